/// The records of a scene but for its meshes: text in, text or fields out.
#include "formats/ase/ase.h"

#include "tests/support/documents.h"

#include <gtest/gtest.h>

#include <cmath>

namespace
{
using CRecords = CFileFormat_AseRecords;

bool Holds(const std::string& text, const std::string& line)
{
    return text.find(line) != std::string::npos;
}

/// How often a line stands in the text.
int Count(const std::string& text, const std::string& line)
{
    int count = 0;
    for (std::size_t at = text.find(line); at != std::string::npos; at = text.find(line, at + 1))
        ++count;
    return count;
}
} // namespace

TEST(AseScene, ReadsAndWritesItsHeader)
{
    CRecords::CASEScene scene;
    EXPECT_EQ(SaveText(scene),
              "{\n\tfirstframe: 0\n\tlastframe: 0\n\tframespeed: 0\n\tticksperframe: 0\n"
              "\tbackgroundstatic: 0.000000 0.000000 0.000000\n\tambientstatic: 0.000000 0.000000 0.000000\n}\n");
    LoadText(scene, "*SCENE_FIRSTFRAME -5\n*SCENE_LASTFRAME 100\n*SCENE_FRAMESPEED 30.5\n*SCENE_TICKSPERFRAME x\n"
                    "*SCENE_BACKGROUND_STATIC 0.1 0.2\n*SCENE_AMBIENT_STATIC 1 2 3\n"
                    "*SCENE_ENVMAP {\n*MAP_NAME \"Sky\"\n*MAP_AMOUNT 0.5\n}\n*SCENE_LASTFRAME 101\n}\n");
    EXPECT_EQ(SaveText(scene),
              "{\n\tfirstframe: -5\n\tlastframe: 101\n\tframespeed: 30\n\tticksperframe: 0\n"
              "\tbackgroundstatic: 0.100000 0.200000 0.000000\n\tambientstatic: 1.000000 2.000000 3.000000\n}\n");
    EXPECT_STREQ(scene.envmap.name.Get(), L"\"Sky\"");
    EXPECT_EQ(scene.envmap.amount, 0.5F);
}

TEST(AseNode, ResetsOnlyTheMatrix)
{
    CRecords::CASENode node;
    LoadText(node, "*NODE_NAME \"100% box\"\n*TM_ROW0 1 2 3\n*TM_ROW3 7 8 9\n*TM_POS 4 5 6\n}\n");
    EXPECT_EQ(node.matrix.m[3][0], 7.0F);
    LoadText(node, "*TM_ROTANGLE 2\n}\n");
    EXPECT_EQ(node.matrix.m[0][2], 0.0F);
    EXPECT_EQ(node.matrix.m[3][0], 0.0F);
    EXPECT_EQ(SaveText(node), "{\n\tname: \"100% box\"\n\tinheritpos: 0.000000 0.000000 0.000000\n"
                              "\tinheritrot: 0.000000 0.000000 0.000000\n\tinheritscale: 0.000000 0.000000 0.000000\n"
                              "\tposition: 4.000000 5.000000 6.000000\n\trotationaxis: 0.000000 0.000000 0.000000\n"
                              "\trotationangle: 2.000000\n\tscale: 0.000000 0.000000 0.000000\n"
                              "\tscaleaxis: 0.000000 0.000000 0.000000\n\tscaleangle: 0.000000\n}\n");
}

TEST(AseMaterial, WritesItsScalarDescription)
{
    CRecords::CASEMaterial material;
    LoadText(material, "*MATERIAL_NAME \"Planks\"\n}\n");
    EXPECT_EQ(
        SaveText(material),
        "{\n\tname: \"Planks\"\n\tclass: \n\tambient: 0.000000 0.000000 0.000000\n\tdiffuse: 0.000000 0.000000 "
        "0.000000\n"
        "\tspecular: 0.000000 0.000000 0.000000\n\tshine: 0.000000\n\tshinestrength: 0.000000\n\ttransparency: "
        "0.000000\n"
        "\twiresize: 0.000000\n\tshading: Blinn\n\txp_falloff: 0.000000\n\tselfillumination: 0.000000\n\tfalloff: In\n"
        "\txp_type: Filter\n}\n");
    LoadText(material, "*MATERIAL_AMBIENT 0.1 x 0.3\n*MATERIAL_SPECULAR 1\n}\n");
    EXPECT_TRUE(Holds(SaveText(material), "\tambient: 0.100000 0.000000 0.300000\n"));
    EXPECT_TRUE(Holds(SaveText(material), "\tspecular: 1.000000 0.000000 0.000000\n"));
}

TEST(AseMaterial, KeepsOptionsItDoesNotKnow)
{
    CRecords::CASEMaterial material;
    LoadText(material, "*MATERIAL_SHADING Phong\n*MATERIAL_FALLOFF Out\n*MATERIAL_XP_TYPE Subtractive\n"
                       "*MATERIAL_XP_TYPE Additive\n}\n");
    const std::string text = SaveText(material);
    EXPECT_TRUE(Holds(text, "shading: Blinn\n") && Holds(text, "falloff: In\n") &&
                Holds(text, "xp_type: Subtractive\n"))
        << text;
    LoadText(material, "*MATERIAL_XP_TYPE Filter\n}\n");
    EXPECT_EQ(material.xp_type, 0U);
}

TEST(AseMaterial, KeepsMapsAndSubMaterialsInTheOrderMet)
{
    CRecords::CASEMaterial material;
    LoadText(material,
             "*MAP_BUMP {\n*MAP_SUBNO 3\n*BITMAP \"x.tga\"\n}\n*MAP_AMBIENT {\n*MAP_SUBNO 99\n}\n*NUMSUBMTLS 3\n"
             "*SUBMATERIAL 7 {\n*MATERIAL_NAME \"first\"\n*SUBMATERIAL 0 {\n*MATERIAL_NAME \"inner\"\n}\n}\n"
             "*SUBMATERIAL 1 {\n*MATERIAL_NAME \"second\"\n}\n*MATERIAL_SHINE 1\n}\n");
    EXPECT_EQ(material.map_bump.subno, 3);
    ASSERT_EQ(material.submaterials.GetNumItems(), 2U);
    EXPECT_STREQ(material.submaterials[0]->name.Get(), L"\"first\"");
    EXPECT_STREQ((*material.submaterials[0]).submaterials[0]->name.Get(), L"\"inner\"");
    EXPECT_STREQ(material.submaterials[1]->name.Get(), L"\"second\"");
    EXPECT_EQ(material.shine, 1.0F);
    EXPECT_EQ(SaveText(material.map_bump), "{\n}\n");

    // A second block of one map replaces values and appends sub-maps.
    LoadText(material,
             "*MAP_BUMP {\n*MAP_AMOUNT 0.5\n*MAP_GENERIC {\n*MAP_NAME \"a\"\n*MAP_GENERIC {\n*MAP_GENERIC {\n"
             "*MAP_NAME \"c\"\n}\n}\n}\n}\n*MAP_BUMP {\n*MAP_SUBNO 5\n*MAP_GENERIC {\n*MAP_NAME \"b\"\n}\n}\n}\n");
    EXPECT_EQ(material.map_bump.subno, 5);
    EXPECT_EQ(material.map_bump.amount, 0.5F);
    ASSERT_EQ(material.map_bump.generic.GetNumItems(), 2U);
    EXPECT_STREQ(material.map_bump.generic[0]->generic[0]->generic[0]->name.Get(), L"\"c\"");

    // The source may belong to the target.
    material = *material.submaterials[0];
    EXPECT_STREQ(material.name.Get(), L"\"first\"");
    EXPECT_STREQ(material.submaterials[0]->name.Get(), L"\"inner\"");
}

TEST(AseAnimation, GathersSamplesAndTcbKeys)
{
    CRecords::CASEAnimation animation;
    LoadText(animation, "*NODE_NAME \"Box\"\n}\n");
    EXPECT_TRUE(animation.IsEmpty());
    EXPECT_EQ(SaveText(animation), "{\n\tname: \"Box\"\n}\n");
    LoadText(animation,
             "*CONTROL_POS_TRACK {\n*CONTROL_POS_SAMPLE -160\t1\t2\t3\n*CONTROL_POS_SAMPLE 5 x 7\n}\n"
             "*CONTROL_ROT_TRACK {\n*CONTROL_ROT_SAMPLE 320\t0\t0\t1\t0.5\n}\n"
             "*CONTROL_SCALE_TRACK {\n*CONTROL_SCALE_SAMPLE 0 1 1 1 0 0 0 0\n*CONTROL_POS_SAMPLE 9 9 9 9\n}\n"
             "*CONTROL_POS_BEZIER {\n*CONTROL_BEZIER_POS_KEY 0 1 1 1\n*CONTROL_POS_TRACK {\n"
             "*CONTROL_POS_SAMPLE 8 8 8 8\n}\n}\n"
             "*CONTROL_POS_TCB {\n*CONTROL_TCB_POS_KEY 480\t4\t5\t6\t0\t25\n}\n"
             "*CONTROL_ROT_TCB {\n*CONTROL_TCB_ROT_KEY 640\t1\t0\t0\t0.25\t9\n}\n"
             "*CONTROL_POS_TRACK {\n}\n}\n");
    EXPECT_EQ(SaveText(animation), "{\n\tname: \"Box\"\n\taddanimationpos:\n"
                                   "\taddnode: -160 1.000000 2.000000 3.000000\n"
                                   "\taddnode: 5 0.000000 7.000000 0.000000\n"
                                   "\taddnode: 480 4.000000 5.000000 6.000000\n"
                                   "\taddanimationrot:\n"
                                   "\taddnode: 320 0.000000 0.000000 1.000000 0.500000\n"
                                   "\taddnode: 640 1.000000 0.000000 0.000000 0.250000\n}\n");
    EXPECT_EQ(animation.animationscale.GetNumItems(), 0U);

    CRecords::CASEAnimationNode key;
    EXPECT_EQ(LoadText(key, "1 2 3\n}\n"), 1);
    EXPECT_EQ(SaveText(key), "addnode: 0 0.000000 0.000000 0.000000\n");
}

TEST(AseGeomObject, LeavesOutWhatIsEmpty)
{
    CRecords::CASEGeomObject object;
    LoadText(object, "*NODE_NAME 50% of \"it\"\n*NODE_PARENT \"Root\"\n*WIREFRAME_COLOR 0.25 0.5\n}\n");
    EXPECT_EQ(object.wireframecolor.a, 1.0F);
    const std::string text = SaveText(object);
    EXPECT_TRUE(text.starts_with("{\n\tname: 50% of \"it\"\n\tparent: \"Root\"\n\taddnode:\n\t{\n\t\tname: \n\t"));
    EXPECT_FALSE(Holds(text, "addmesh:") || Holds(text, "addanimation:"));
    EXPECT_TRUE(Holds(text, "\twireframecolor: 0.250000 0.500000 0.000000\n\taddikjoint:\n\t{\n\t\ttype: 0\n"));

    LoadText(object, "*MESH {\n*MESH_VERTEX_LIST {\n*MESH_VERTEX 0 1 2 3\n}\n}\n"
                     "*TM_ANIMATION {\n*CONTROL_ROT_TRACK {\n*CONTROL_ROT_SAMPLE 0 0 0 1 1\n}\n}\n}\n");
    EXPECT_TRUE(Holds(SaveText(object), "\taddmesh:\n\t{\n\t\ttimevalue: 0\n"));
    EXPECT_TRUE(Holds(SaveText(object), "\taddanimation:\n\t{\n"));
}

TEST(AseGeomObject, ReplacesItsMeshAnimation)
{
    CRecords::CASEGeomObject object;
    const std::string five = "*MESH_ANIMATION {\n*MESH {\n*TIMEVALUE 0\n}\n*MESH {\n*TIMEVALUE 1\n}\n*MESH {\n}\n*MESH "
                             "{\n}\n*MESH {\n}\n}\n}\n";
    LoadText(object, five);
    LoadText(object, five);
    ASSERT_EQ(object.meshanimation.meshes.GetNumItems(), 5U);
    EXPECT_EQ(object.meshanimation.meshes[1]->timevalue, 1);
    EXPECT_EQ(object.mesh.timevalue, 0);
    EXPECT_FALSE(Holds(SaveText(object), "timevalue"));
    EXPECT_EQ(SaveText(object.meshanimation), "{\n}\n");
}

TEST(AseIkJoint, ReadsEveryNumber)
{
    CRecords::CASEIKJoint joint;
    joint.type = 5;
    LoadText(
        joint,
        "*IK_TYPE Sliding\n*IK_DOF 1\n*IK_XACTIVE 2\n*IK_YACTIVE 3\n*IK_ZACTIVE 4\n*IK_XLIMITED 5\n*IK_YLIMITED 6\n"
        "*IK_ZLIMITED 7\n*IK_XEASE 8\n*IK_YEASE 9\n*IK_ZEASE 10\n*IK_LIMITEXACT 11\n*IK_JOINTINFO 1 0.5 1.5 2.5\n"
        "*IK_JOINTINFO 3 9 9 9\n*IK_JOINTINFO -1 9 9 9\n*IK_JOINTINFO x 1 2 3\n}\n");
    EXPECT_EQ(SaveText(joint),
              "{\n\ttype: 5\n\tdof: 1\n\txactive: 2\n\tyactive: 3\n\tzactive: 4\n\txlimited: 5\n\tylimited: 6\n"
              "\tzlimited: 7\n\txease: 8\n\tyease: 9\n\tzease: 10\n\tlimitexact: 11\n"
              "\tjointinfo: 0 1.000000 2.000000 3.000000\n\tjointinfo: 1 0.500000 1.500000 2.500000\n"
              "\tjointinfo: 2 0.000000 0.000000 0.000000\n}\n");
    LoadText(joint, "*IK_TYPE Rotation\n}\n");
    EXPECT_EQ(joint.type, 0);
}

TEST(AseLight, WritesTypeAndShapeOnlyWhenNamed)
{
    CRecords::CASELight light;
    LoadText(light, "*NODE_NAME \"Spot\"\n*LIGHT_TYPE Target\n*LIGHT_SHADOWS Mapped\n*LIGHT_USELIGHT "
                    "1\n*LIGHT_SPOTSHAPE Rect\n}\n");
    std::string text = SaveText(light);
    EXPECT_FALSE(Holds(text, "type:"));
    EXPECT_TRUE(Holds(text, "\tshadows: 1\n\tuselight: 1\n\taddlightsettings:\n")) << text;
    EXPECT_TRUE(Holds(text, "\taddanimation:\n\t{\n\t\tname: \n\t}\n}\n")) << "always";
    LoadText(light, "*LIGHT_TYPE Omni\n*LIGHT_SHADOWS Off\n*LIGHT_SPOTSHAPE Circle\n"
                    "*LIGHT_SETTINGS {\n*LIGHT_COLOR 0.5 0.25\n}\n}\n");
    text = SaveText(light);
    EXPECT_TRUE(Holds(text, "{\n\tname: \"Spot\"\n\ttype: omni\n\taddnode:\n")) << text;
    EXPECT_TRUE(Holds(text, "\tshadows: 0\n\tuselight: 1\n\tspottype: circle\n")) << text;
    EXPECT_TRUE(Holds(text, "\t\tlightcolor: 0.500000 0.250000 0.000000\n")) << text;
}

TEST(AseCamera, KeepsListsAndItsType)
{
    struct STypeCase
    {
        const char* line;
        const char* saved;
    };
    static const STypeCase cases[] = {{"*CAMERA_TYPE Target", "cameratype: target"},
                                      {"*CAMERA_TYPE Free", "cameratype: free"},
                                      {"*CAMERA_TYPE Target \t", "cameratype: target"},
                                      {"*CAMERA_TYPE Target one", "cameratype: unknown"},
                                      {"*CAMERA_TYPE Free\n*CAMERA_TYPE Other", "cameratype: free"},
                                      {"", "cameratype: unknown"}};
    CRecords::CASECamera camera;
    for (const STypeCase& row : cases)
    {
        LoadText(camera, std::string(row.line) + "\n}\n");
        EXPECT_EQ(SaveText(camera), std::string("{\n\tname: \n\t") + row.saved + "\n}\n") << row.line;
    }
}

TEST(AseHelper, HasNoAnimation)
{
    CRecords::CASEHelper helper;
    LoadText(helper, "*NODE_NAME \"P\"\n*NODE_PARENT \"Q\"\n*HELPER_CLASS \"PointHelper\"\n*BOUNDINGBOX_MIN -1 -2 -3\n"
                     "*TM_ANIMATION {\n*NODE_NAME \"wrong\"\n*BOUNDINGBOX_MIN 9 9 9\n}\n*BOUNDINGBOX_MAX 1 x\n}\n");
    const std::string text = SaveText(helper);
    EXPECT_TRUE(Holds(text, "{\n\tname: \"P\"\n\tclass: \"PointHelper\"\n\taddnode:\n")) << text;
    EXPECT_TRUE(Holds(text, "\taabbmin: -1.000000 -2.000000 -3.000000\n\taabbmax: 1.000000 0.000000 0.000000\n}\n"))
        << text;
}

TEST(AseShape, KeepsKnotsOfOpenAndClosedLines)
{
    CRecords::CASEShapeObject shape;
    LoadText(shape,
             "*NODE_NAME \"S\"\n*SHAPE_LINE 3 {\n*SHAPE_CLOSED\n*SHAPE_VERTEXCOUNT 2\n*SHAPE_VERTEX_KNOT\t0\t1\t2\t3\n"
             "*SHAPE_VERTEX_INTERP\t1\t9\t9\t9\n*SHAPE_VERTEX_KNOT\t2\t4\tx\t6\n}\n*SHAPE_LINE 0 {\n}\n}\n");
    std::string text = SaveText(shape);
    EXPECT_TRUE(Holds(text, "\taddline:\n\t{\n\t\ttype: 0\n\t\taddvertex: 1.000000 2.000000 3.000000\n"
                            "\t\taddvertex: 4.000000 0.000000 6.000000\n\t}\n\taddline:\n\t{\n\t\ttype: 1\n\t}\n}\n"))
        << text;
    LoadText(shape, "*TM_ANIMATION {\n*CONTROL_POS_TRACK {\n*CONTROL_POS_SAMPLE 0 0 0 0\n}\n}\n}\n");
    text = SaveText(shape);
    EXPECT_EQ(Count(text, "\taddanimation:\n"), 1);
}
