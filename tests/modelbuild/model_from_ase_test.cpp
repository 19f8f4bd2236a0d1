/// Models from scenes written as text: what stands in the model's own text, which is exact to the bit.
#include "formats/modelbuild/model_from_ase.h"
#include "tests/support/documents.h"
#include "tests/support/saved_lines.h"
#include "tests/support/vectors.h"

#include <gmock/gmock.h>

#include <string>

namespace
{
/// A geometry object whose mesh has the lines.
std::string Object(const std::string& mesh)
{
    return "*GEOMOBJECT {\n*MESH {\n" + mesh + "}\n}\n";
}

/// Lines of a triangle with texture and normals. `face` has its corners, `textureface` those of its texture.
std::string Triangle(const char* face = "A: 0 B: 1 C: 2 *MESH_MTLID 5", const char* textureface = "0 1 2",
                     const char* texture = "*MESH_TVERT 0 0 0 0\n*MESH_TVERT 1 1 0 0\n*MESH_TVERT 2 0 1 0\n")
{
    return std::string("*MESH_VERTEX_LIST {\n*MESH_VERTEX 0 0 0 0\n*MESH_VERTEX 1 1 0 0\n*MESH_VERTEX 2 0 1 0.5\n}\n"
                       "*MESH_FACE_LIST {\n*MESH_FACE 0: ") +
           face + "\n}\n*MESH_TFACELIST {\n*MESH_TFACE 0 " + textureface + "\n}\n*MESH_TVERTLIST {\n" + texture +
           "}\n*MESH_NORMALS {\n*MESH_FACENORMAL 0 0 0 1\n*MESH_VERTEXNORMAL 0 0 0 1\n*MESH_VERTEXNORMAL 1 0 0 1\n"
           "*MESH_VERTEXNORMAL 2 0 0 1\n}\n";
}

void Build(CGraphics_Model& model, const std::string& text, float scale = 1.0F)
{
    auto scene = LoadNew<CFileFormat_Ase>(text);
    EXPECT_EQ(CreateModelFromASE(model, scene, scale), 1);
}

/// Built at scale 2.
const SSavedCase Scenes[] = {
    {"Empty", "", {"{\naddmateriallist:\n{\naddmaterial:\n{\nname: \"unknown\"\n}\n}\n}\n"}},
    {"FacesAndTextureWithVTurned",
     "*GEOMOBJECT {\n*MESH {\n"
     "*MESH_FACE_LIST {\n*MESH_FACE 0: A: 2 B: -1 C: 7 *MESH_MTLID 5\n*MESH_FACE 1: A: 1 B: 0 C: 2 *MESH_MTLID 9\n}\n"
     "*MESH_TVERTLIST {\n*MESH_TVERT 0 0.25 0.75 0\n*MESH_TVERT 1 2 -1 3\n}\n*MESH_TFACELIST {\n*MESH_TFACE 0 1 0 -2\n"
     "}\n}\n}\n",
     {"addface: 2 4294967295 7 0\naddface: 1 0 2 1\naddtexturevertex: 0.25 0.25 0\naddtexturevertex: 2 2 3\n"
      "addtextureface: 1 0 4294967294 0\n}\n",
      "{\naddmaterial:\n{\nname: \"unknown\"\n}\naddmaterial:\n{\nname: \"unknown\"\n}\n}\n"}},
    {"ColoursNeedBothVerticesAndFaces",
     "*GEOMOBJECT {\n*MESH {\n*MESH_CVERTLIST {\n*MESH_VERTCOL 0 1 1 1\n}\n}\n}\n"
     "*GEOMOBJECT {\n*MESH {\n*MESH_CFACELIST {\n*MESH_CFACE 0 0 0 0\n}\n}\n}\n",
     {"mesh:\n{\n}\n}\naddgeometry:\n{\nmesh:\n{\n}\n}\n"}},
    {"NormalsOnlyChangeTheFrame",
     "*GEOMOBJECT {\n*NODE_TM {\n*TM_ROTAXIS 0 0 1\n*TM_ROTANGLE 1\n}\n"
     "*TM_ANIMATION {\n*CONTROL_ROT_TRACK {\n*CONTROL_ROT_SAMPLE 0\n}\n}\n*MESH {\n*MESH_NORMALS {\n"
     "*MESH_FACENORMAL 0 1 2 3\n*MESH_VERTEXNORMAL 0 4 5 6\n*MESH_VERTEXNORMAL 0 7 8 9\n*MESH_VERTEXNORMAL 0 0 0 0.5\n"
     "}\n}\n}\n",
     {"addfacespace: 1 3 2\ncornera: 4 6 5 ", "cornerb: 7 9 8 ", "cornerc: 0 0.5 0 "}},
    {"PointsAndAxesByTheirClass",
     "*HELPEROBJECT {\n*HELPER_CLASS \"Tape\"\n*NODE_TM {\n*TM_POS 0 0 10\n*TM_ROW2 0 0 1\n}\n}\n"
     "*HELPEROBJECT {\n*HELPER_CLASS \"PointHelper\"\n*NODE_TM {\n*TM_POS 1 2 3\n}\n}\n"
     "*HELPEROBJECT {\n*HELPER_CLASS \"Tape\" and more\n*NODE_TM {\n*TM_POS 1 0 0\n*TM_ROW2 3 4 5\n}\n}\n"
     "*HELPEROBJECT {\n*HELPER_CLASS Tape\n}\n*HELPEROBJECT {\n*HELPER_CLASS \"Tapes\"\n}\n"
     "*HELPEROBJECT {\n*HELPER_CLASS \"Dummy\"\n}\n*HELPEROBJECT {\n*HELPER_CLASS x \"PointHelper\"\n}\n"
     "*HELPEROBJECT {\n}\n",
     {"}\naddpoint: 2 6 4\naddaxis: 0 20 0 -0 -1 -0\naddaxis: 2 0 0 -3 -5 -4\n}\n"}},
};

class BuiltScene : public testing::TestWithParam<SSavedCase>
{
};
} // namespace

TEST_P(BuiltScene, IsSaved)
{
    CGraphics_Model model;
    Build(model, GetParam().text, 2);
    ExpectLines(GetParam(), SaveText(model));
}

INSTANTIATE_TEST_SUITE_P(ModelFromAse, BuiltScene, testing::ValuesIn(Scenes), SRowName());

/// The exporter's own numbers: its angles run clockwise, so a quarter turn about z carries x to -y and y to x. The
/// local point (1, 2, 3) then stands at (2, -1, 3) and with the position at (12, 19, 33). A third of a turn about the
/// diagonal carries x to z, z to y and y to x: (1, 2, 3) to (2, 3, 1).
TEST(ModelFromAse, ObjectWithKeysIsMovedBackToItsOwnSpace)
{
    struct SMoved
    {
        const char* node;
        const char* keys;
        const char* vertex;
        bool isscaled = false; ///< Has a key that no text gives it.
    };
    static constexpr const char* quarter = "*TM_POS 10 20 30\n*TM_ROTAXIS 0 0 1\n*TM_ROTANGLE 1.57079633\n";
    static constexpr const char* third = "*TM_ROTAXIS 0.5773503 0.5773503 0.5773503\n*TM_ROTANGLE 2.09439510\n";
    static constexpr const char* rotation = "*CONTROL_ROT_TRACK {\n*CONTROL_ROT_SAMPLE 0\n}\n";
    static constexpr SMoved moves[] = {
        {quarter, "", "1 2 3"},          {quarter, "*CONTROL_POS_TRACK {\n*CONTROL_POS_SAMPLE 0\n}\n", "12 19 33"},
        {quarter, rotation, "12 19 33"}, {quarter, "", "12 19 33", true},
        {third, rotation, "2 3 1"},
    };
    for (const SMoved& moved : moves)
    {
        auto scene = LoadNew<CFileFormat_Ase>(
            std::string("*GEOMOBJECT {\n*NODE_TM {\n") + moved.node + "}\n*TM_ANIMATION {\n" + moved.keys +
            "}\n*MESH {\n*MESH_VERTEX_LIST {\n*MESH_VERTEX 0 " + moved.vertex + "\n}\n}\n}\n");
        if (moved.isscaled)
            scene.GeomObjects[0]->animation.animationscale.Add();
        CGraphics_Model model;
        CreateModelFromASE(model, scene, 2);
        EXPECT_THAT(*model.Geometries[0]->Mesh.Vertices[0], IsNear(CMath_Vector3(2, 6, 4), 1e-5F))
            << moved.node << moved.keys;
    }
}

/// Scene: the triangle lies nearly flat, u runs along x and v along y. In the model y has become z, V points
/// down and so to -z, and the frame is right-handed about the normal, which has become y.
TEST(ModelFromAse, TangentsFollowTheTurnedTexture)
{
    CGraphics_Model model;
    Build(model, Object(Triangle()));
    const CGraphics_FaceSpace& space = *model.Geometries[0]->Mesh.FaceSpaces[0];
    EXPECT_THAT(space.TangentA, IsNear(CMath_Vector3(1, 0, 0), 1e-6F));
    EXPECT_THAT(space.BinormalA, IsNear(CMath_Vector3(0, 0, -1), 1e-6F));
}

TEST(ModelFromAse, CollapsedTextureFacesAreReported)
{
    const std::string sound = Triangle();
    const std::string collapsed = "*MESH_TVERTLIST {\n*MESH_TVERT 3 0 0 0\n}\n" // equal to the first by value
                                  "*MESH_FACE_LIST {\n*MESH_FACE 1: A: 2 B: 1 C: 0\n}\n"
                                  "*MESH_TFACELIST {\n*MESH_TFACE 1 0 3 0\n}\n*MESH_NORMALS {\n*MESH_FACENORMAL 1\n}\n";
    const std::string warning = "Normal Warning: face 1\n";
    const std::string corners = "...a_uv = 0.000000 1.000000 0.000000\n"
                                "...b_uv = 0.000000 1.000000 0.000000\n"
                                "...c_uv = 0.000000 1.000000 0.000000\n"
                                "...a_v = 0.000000 1.000000 2.000000\n"
                                "...b_v = 2.000000 0.000000 0.000000\n"
                                "...c_v = 0.000000 0.000000 0.000000\n";
    const std::string count = "Warnings: 1\n";
    const std::string texts[] = {"\n" + warning + corners + count + "\n", warning + count, count};
    for (unsigned long level = 1; level <= 3; ++level)
    {
        CLogWatch log(level);
        CGraphics_Model model;
        Build(model, Object(sound) + Object(sound + collapsed), 2);
        EXPECT_EQ(log.GetText(), texts[level - 1]) << "at level " << level;
        EXPECT_EQ(model.Geometries[1]->Mesh.FaceSpaces.NumItems, 2U);
    }
}

/// Each of them has equal texture vertices, were they looked for inside the list alone.
TEST(ModelFromAse, WhatIsMissingIsNotChecked)
{
    CLogWatch log(2);
    CGraphics_Model model;
    Build(model, Object(Triangle("A: 0 B: 1 C: 2", "0 0 3")) + Object(Triangle("A: 0 B: 1 C: 2", "-1 -1 -1")) +
                     Object(Triangle("A: 0 B: 3 C: 2", "0 0 0")) +
                     Object(Triangle("A: 0 B: 1 C: -2147483648", "0 0 0")) +
                     Object(Triangle("A: 0 B: 1 C: 2", "0 0 1")) + Object(Triangle("A: 0 B: 1 C: 2", "0 1 0")) +
                     Object(Triangle("A: 0 B: 1 C: 2", "0 1 2", "")) +
                     Object("*MESH_NORMALS {\n*MESH_FACENORMAL 0 0 0 1\n}\n"));
    EXPECT_EQ(log.GetText(), "");
    EXPECT_EQ(model.Geometries[7]->Mesh.FaceSpaces.NumItems, 1U);
}

TEST(ModelFromAse, SecondSceneJoinsTheFirst)
{
    CGraphics_Model model;
    const std::string point = "*HELPEROBJECT {\n*HELPER_CLASS \"PointHelper\"\n}\n";
    Build(model, Object(Triangle()) + point);
    CGraphics_Model::SMaterial& attached = *model.MaterialLists[0]->Materials[0];
    TResourceHandle<CGraphics_Material> handle;
    handle.AddRef();
    attached.Material.handle = &handle;
    attached.Name = L"Wood";

    Build(model, Object("*MESH_FACE_LIST {\n*MESH_FACE 0: *MESH_MTLID -1\n*MESH_FACE 1:\n}\n") + point);
    ASSERT_EQ(model.Geometries.NumItems, 2U);
    EXPECT_EQ(model.Geometries[0]->Mesh.Faces[0]->Material, 0U);
    EXPECT_EQ(model.Geometries[1]->Mesh.Faces[0]->Material, 1U);
    EXPECT_EQ(model.Geometries[1]->Mesh.Faces[1]->Material, 0U);
    ASSERT_EQ(model.MaterialLists.NumItems, 2U);
    EXPECT_EQ(model.MaterialLists[0]->Materials.NumItems, 3U);
    EXPECT_EQ(model.MaterialLists[1]->Materials.NumItems, 0U);
    EXPECT_EQ(model.Points.NumItems, 2U);
    EXPECT_EQ(attached.Name, CSys_String(L"Wood"));
    EXPECT_EQ(handle.refCount, 1U);
    attached.Material.Destroy(); // the model outlives the handle here
}
