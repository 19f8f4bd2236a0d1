/// The records of a scene but for its meshes: what odd lines leave behind, and what is written only sometimes.
#include "formats/ase/ase.h"

#include "tests/support/documents.h"
#include "tests/support/saved_lines.h"

namespace
{
using CRecords = CFileFormat_AseRecords;

const SSavedCase RecordCases[] = {
    {"SceneNumbers",
     "*SCENE {\n*SCENE_FIRSTFRAME -5\n*SCENE_LASTFRAME 100\n*SCENE_FRAMESPEED 30.5\n*SCENE_TICKSPERFRAME x\n"
     "*SCENE_BACKGROUND_STATIC 0.1 0.2\n*SCENE_ENVMAP {\n*SCENE_FIRSTFRAME 1\n}\n*SCENE_LASTFRAME 101\n}\n",
     {"firstframe: -5\nlastframe: 101\nframespeed: 30\nticksperframe: 0\nbackgroundstatic: 0.100000 0.200000 "
      "0.000000\n"}},
    {"MaterialColoursWordByWord",
     "*MATERIAL_LIST {\n*MATERIAL_COUNT 1\n*MATERIAL 0 {\n*MATERIAL_AMBIENT 0.1 x 0.3\n*MATERIAL_SPECULAR 1\n}\n}\n",
     {"\nambient: 0.100000 0.000000 0.300000\n", "specular: 1.000000 0.000000 0.000000\n"}},
    {"MaterialOptionsItDoesNotKnow",
     "*MATERIAL_LIST {\n*MATERIAL_COUNT 1\n*MATERIAL 0 {\n*MATERIAL_SHADING Phong\n*MATERIAL_FALLOFF Out\n"
     "*MATERIAL_XP_TYPE Subtractive\n*MATERIAL_XP_TYPE Additive\n}\n}\n",
     {"shading: Blinn\n", "falloff: In\n", "xp_type: Subtractive\n"}},
    {"MaterialOptionTakenBack",
     "*MATERIAL_LIST {\n*MATERIAL_COUNT 1\n*MATERIAL 0 {\n*MATERIAL_XP_TYPE Subtractive\n*MATERIAL_XP_TYPE Filter\n"
     "}\n}\n",
     {"xp_type: Filter\n"}},
    {"GeometryWithoutMeshAndAnimation",
     "*GEOMOBJECT {\n*NODE_NAME 50% of \"it\"\n*NODE_PARENT \"Root\"\n*WIREFRAME_COLOR 0.25 0.5\n"
     "*MESH_ANIMATION {\n*MESH {\n*TIMEVALUE 7\n}\n}\n}\n",
     {"{\nname: 50% of \"it\"\nparent: \"Root\"\naddnode:\n{\nname: \n",
      "wireframecolor: 0.250000 0.500000 0.000000\naddikjoint:\n{\ntype: 0\n"},
     {"addmesh:", "addanimation:", "timevalue"}},
    {"TracksOfAllKinds",
     "*GEOMOBJECT {\n*TM_ANIMATION {\n*NODE_NAME \"Box\"\n"
     "*CONTROL_POS_TRACK {\n*CONTROL_POS_SAMPLE -160\t1\t2\t3\n*CONTROL_POS_SAMPLE 5 x 7\n}\n"
     "*CONTROL_ROT_TRACK {\n*CONTROL_ROT_SAMPLE 320\t0\t0\t1\t0.5\n}\n"
     "*CONTROL_SCALE_TRACK {\n*CONTROL_SCALE_SAMPLE 0 1 1 1 0 0 0 0\n*CONTROL_POS_SAMPLE 9 9 9 9\n}\n"
     "*CONTROL_POS_BEZIER {\n*CONTROL_BEZIER_POS_KEY 0 1 1 1\n*CONTROL_POS_TRACK {\n*CONTROL_POS_SAMPLE 8 8 8 8\n}\n}\n"
     "*CONTROL_POS_TCB {\n*CONTROL_TCB_POS_KEY 480\t4\t5\t6\t0\t25\n}\n"
     "*CONTROL_ROT_TCB {\n*CONTROL_TCB_ROT_KEY 640\t1\t0\t0\t0.25\t9\n}\n*CONTROL_POS_TRACK {\n}\n}\n}\n",
     {"addanimation:\n{\nname: \"Box\"\naddanimationpos:\naddnode: -160 1.000000 2.000000 3.000000\n"
      "addnode: 5 0.000000 7.000000 0.000000\naddnode: 480 4.000000 5.000000 6.000000\naddanimationrot:\n"
      "addnode: 320 0.000000 0.000000 1.000000 0.500000\naddnode: 640 1.000000 0.000000 0.000000 0.250000\n}\n"}},
    {"JointInfoOfThreeAxes",
     "*GEOMOBJECT {\n*IK_JOINT {\n*IK_TYPE Sliding\n*IK_JOINTINFO 1 0.5 1.5 2.5\n*IK_JOINTINFO 3 9 9 9\n"
     "*IK_JOINTINFO -1 9 9 9\n*IK_JOINTINFO x 1 2 3\n}\n}\n",
     {"addikjoint:\n{\ntype: 0\n", "jointinfo: 0 1.000000 2.000000 3.000000\njointinfo: 1 0.500000 1.500000 2.500000\n"
                                   "jointinfo: 2 0.000000 0.000000 0.000000\n"}},
    {"LightOfUnknownKind",
     "*LIGHTOBJECT {\n*NODE_NAME \"Spot\"\n*LIGHT_TYPE Target\n*LIGHT_SHADOWS Mapped\n*LIGHT_USELIGHT 1\n"
     "*LIGHT_SPOTSHAPE Rect\n}\n",
     {"shadows: 1\nuselight: 1\naddlightsettings:\n", "addanimation:\n{\nname: \n}\n}\n"},
     {"\ntype: omni", "spottype:"}},
    {"LightOfKnownKind",
     "*LIGHTOBJECT {\n*NODE_NAME \"Spot\"\n*LIGHT_TYPE Omni\n*LIGHT_SHADOWS Mapped\n*LIGHT_SHADOWS Off\n"
     "*LIGHT_SPOTSHAPE Circle\n*LIGHT_SETTINGS {\n*LIGHT_COLOR 0.5 0.25\n}\n}\n",
     {"{\nname: \"Spot\"\ntype: omni\naddnode:\n", "shadows: 0\nuselight: 0\nspottype: circle\n",
      "\nlightcolor: 0.500000 0.250000 0.000000\n"}},
    {"TargetCamera", "*CAMERAOBJECT {\n*CAMERA_TYPE Target \t\n}\n", {"{\nname: \ncameratype: target\n}\n"}},
    {"FreeCamera", "*CAMERAOBJECT {\n*CAMERA_TYPE Free\n*CAMERA_TYPE Other\n}\n", {"cameratype: free\n"}},
    {"CameraWithTwoWords", "*CAMERAOBJECT {\n*CAMERA_TYPE Target one\n}\n", {"cameratype: unknown\n"}},
    {"CameraWithoutType", "*CAMERAOBJECT {\n}\n", {"cameratype: unknown\n"}},
    {"HelperWithAnimation",
     "*HELPEROBJECT {\n*NODE_NAME \"P\"\n*NODE_PARENT \"Q\"\n*HELPER_CLASS \"PointHelper\"\n*BOUNDINGBOX_MIN -1 -2 -3\n"
     "*TM_ANIMATION {\n*NODE_NAME \"wrong\"\n*BOUNDINGBOX_MIN 9 9 9\n}\n*BOUNDINGBOX_MAX 1 x\n}\n",
     {"{\nname: \"P\"\nclass: \"PointHelper\"\naddnode:\n",
      "aabbmin: -1.000000 -2.000000 -3.000000\naabbmax: 1.000000 0.000000 0.000000\n}\n"},
     {"\"Q\""}},
    {"ShapeOfOpenAndClosedLines",
     "*SHAPEOBJECT {\n*NODE_NAME \"S\"\n*SHAPE_LINE 3 {\n*SHAPE_CLOSED\n*SHAPE_VERTEXCOUNT 2\n"
     "*SHAPE_VERTEX_KNOT\t0\t1\t2\t3\n*SHAPE_VERTEX_INTERP\t1\t9\t9\t9\n*SHAPE_VERTEX_KNOT\t2\t4\tx\t6\n}\n"
     "*SHAPE_LINE 0 {\n}\n}\n",
     {"addline:\n{\ntype: 0\naddvertex: 1.000000 2.000000 3.000000\naddvertex: 4.000000 0.000000 6.000000\n}\n"
      "addline:\n{\ntype: 1\n}\n}\n"},
     {"addanimation:"}},
    {"ShapeWithAnimation",
     "*SHAPEOBJECT {\n*TM_ANIMATION {\n*CONTROL_POS_TRACK {\n*CONTROL_POS_SAMPLE 0 0 0 0\n}\n}\n}\n",
     {"addanimation:\n{\nname: \naddanimationpos:\naddnode: 0 "}},
};

class AseRecord : public testing::TestWithParam<SSavedCase>
{
};
} // namespace

TEST_P(AseRecord, IsSaved)
{
    auto document = LoadNew<CFileFormat_Ase>(GetParam().text);
    ExpectLines(GetParam(), SaveText(document));
}

INSTANTIATE_TEST_SUITE_P(Ase, AseRecord, testing::ValuesIn(RecordCases), SRowName());

TEST(AseNode, ResetsOnlyTheMatrix)
{
    auto node = LoadNew<CRecords::CASENode>("*TM_ROW0 1 2 3\n*TM_ROW3 7 8 9\n*TM_POS 4 5 6\n}\n");
    EXPECT_EQ(node.matrix.m[3][0], 7.0F);
    LoadText(node, "*TM_ROTANGLE 2\n}\n");
    EXPECT_EQ(node.matrix.m[0][2], 0.0F);
    EXPECT_EQ(node.matrix.m[3][0], 0.0F);
    EXPECT_EQ(node.position, CMath_Vector3(4, 5, 6));
}

TEST(AseMaterial, KeepsMapsAndSubMaterialsInTheOrderMet)
{
    auto material = LoadNew<CRecords::CASEMaterial>(
        "*MAP_BUMP {\n*MAP_AMOUNT 0.5\n*MAP_GENERIC {\n*MAP_NAME \"a\"\n}\n}\n*NUMSUBMTLS 3\n"
        "*SUBMATERIAL 7 {\n*MATERIAL_NAME \"first\"\n*SUBMATERIAL 0 {\n*MATERIAL_NAME \"inner\"\n}\n}\n"
        "*SUBMATERIAL 1 {\n*MATERIAL_NAME \"second\"\n}\n"
        "*MAP_BUMP {\n*MAP_SUBNO 5\n*MAP_GENERIC {\n*MAP_NAME \"b\"\n}\n}\n}\n");
    EXPECT_EQ(material.map_bump.subno, 5);
    EXPECT_EQ(material.map_bump.amount, 0.5F);
    ASSERT_EQ(material.map_bump.generic.GetNumItems(), 2U) << "a second block of one map appends";
    EXPECT_STREQ(material.map_bump.generic[1]->name.Get(), L"\"b\"");
    EXPECT_EQ(SaveText(material.map_bump), "{\n}\n");
    ASSERT_EQ(material.submaterials.GetNumItems(), 2U);
    EXPECT_STREQ(material.submaterials[1]->name.Get(), L"\"second\"");

    // The source may belong to the target.
    material = *material.submaterials[0];
    EXPECT_STREQ(material.name.Get(), L"\"first\"");
    EXPECT_STREQ(material.submaterials[0]->name.Get(), L"\"inner\"");
}

TEST(AseGeomObject, ReplacesItsMeshAnimation)
{
    CRecords::CASEGeomObject object;
    for (int i = 0; i < 2; ++i)
        LoadText(object, "*MESH_ANIMATION {\n*MESH {\n}\n*MESH {\n*TIMEVALUE 1\n}\n}\n}\n");
    ASSERT_EQ(object.meshanimation.meshes.GetNumItems(), 2U);
    EXPECT_EQ(object.meshanimation.meshes[1]->timevalue, 1);
    EXPECT_EQ(object.mesh.timevalue, 0);
}

TEST(AseIkJoint, KeepsATypeItDoesNotKnow)
{
    CRecords::CASEIKJoint joint;
    joint.type = 5;
    LoadText(joint, "*IK_TYPE Sliding\n}\n");
    EXPECT_EQ(joint.type, 5);
    LoadText(joint, "*IK_TYPE Rotation\n}\n");
    EXPECT_EQ(joint.type, 0);
}
