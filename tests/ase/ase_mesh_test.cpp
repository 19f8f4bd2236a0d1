#include "formats/ase/ase_mesh.h"

#include "formats/ase/ase_geom_object.h"
#include "tests/hostile/ase_fields.h"
#include "tests/support/odd_lines.h"

#include <gtest/gtest.h>

namespace
{
using CMesh = CFileFormat_AseRecords::CASEMesh;
} // namespace

TEST(AseMesh, LoadedTwiceKeepsOnlyTheColoursOfBoth)
{
    CMesh mesh;
    std::string once;
    for (int i = 0; i < 2; ++i)
    {
        LoadText(mesh, "*MESH_VERTEX_LIST {\n*MESH_VERTEX 0 1 2 3\n}\n*MESH_FACE_LIST {\n*MESH_FACE 0: A: 1\n}\n"
                       "*MESH_TVERTLIST {\n*MESH_TVERT 0 1 2 3\n}\n*MESH_TFACELIST {\n*MESH_TFACE 0 1 2 3\n}\n"
                       "*MESH_CVERTLIST {\n*MESH_VERTCOL 0 1 0.5 0\n}\n*MESH_CFACELIST {\n*MESH_CFACE 0 1 2 3\n}\n"
                       "*MESH_NORMALS {\n*MESH_FACENORMAL 0 0 0 1\n}\n*MESH_MAPPINGCHANNEL 3 {\n}\n}\n");
        once = i == 0 ? SaveText(mesh) : once;
    }
    EXPECT_EQ(SaveText(mesh), once);
    EXPECT_EQ(mesh.cvertices.GetNumItems(), 2U);
    EXPECT_EQ(mesh.cfaces.GetNumItems(), 2U);
}

TEST(AseMesh, ReadsFaceLinesByLabel)
{
    struct SFaceCase
    {
        const char* line;
        std::int32_t a, b, c, mtlid;
    };
    static const SFaceCase cases[] = {
        {"*MESH_FACE 0: A: 1 B: 2 C: 3 *MESH_SMOOTHING *MESH_MTLID 7", 1, 2, 3, 7}, // no smoothing group
        {"*MESH_FACE 0: *MESH_MTLID -1 A: -5", -5, 0, 0, -1},
        {"*MESH_FACE 0: A: x B: 2", 0, 2, 0, 0},
        {"*MESH_FACE 0: A: 1 A: 9", 9, 0, 0, 0},
        {"*MESH_FACE 0: A: 1 B:", 1, 0, 0, 0},
        {"*MESH_FACE A: 1 B: 2", 0, 2, 0, 0}, // the first word is the face number, whatever it is
        {"*MESH_FACE 0: A:1 B: 2", 0, 2, 0, 0},
        {"*MESH_FACE", 0, 0, 0, 0},
    };
    for (const SFaceCase& row : cases)
    {
        auto mesh = LoadNew<CMesh>(std::string("*MESH_FACE_LIST {\n") + row.line + "\n}\n}\n");
        ASSERT_EQ(mesh.faces.GetNumItems(), 1U) << row.line;
        const CFileFormat_AseRecords::CASEFace& face = *mesh.faces[0];
        EXPECT_EQ((std::vector{face.a, face.b, face.c, face.mtlid}), (std::vector{row.a, row.b, row.c, row.mtlid}))
            << row.line;
    }
}

TEST(AseMesh, CornerNormalsGoRound)
{
    // The first face is one normal short, so the next three begin with its third corner.
    auto mesh = LoadNew<CMesh>("*MESH_NORMALS {\n"
                               "*MESH_VERTEXNORMAL 0 9 9 9\n" // before any face: dropped, and not counted
                               "*MESH_FACENORMAL 0 0 0 1\n*MESH_VERTEXNORMAL 0 1 0 0\n*MESH_VERTEXNORMAL 0 2 0 0\n"
                               "*MESH_FACENORMAL 1 0 0 1\n*MESH_VERTEXNORMAL 0 3 0 0\n*MESH_VERTEXNORMAL 0 4 0 0\n"
                               "*MESH_VERTEXNORMAL 0 5 0 0\n}\n}\n");
    ASSERT_EQ(mesh.facenormals.GetNumItems(), 2U);
    EXPECT_EQ(mesh.facenormals[0]->vnormala.x, 1.0F);
    EXPECT_EQ(mesh.facenormals[0]->vnormalb.x, 2.0F);
    EXPECT_EQ(mesh.facenormals[0]->vnormalc.x, 0.0F);
    EXPECT_EQ(mesh.facenormals[1]->vnormalc.x, 3.0F);
    EXPECT_EQ(mesh.facenormals[1]->vnormala.x, 4.0F);
    EXPECT_EQ(mesh.facenormals[1]->vnormalb.x, 5.0F);
}

TEST(AseMesh, PassesOverBlocksInsideListsAndBetween)
{
    CMesh mesh;
    LoadText(mesh,
             "*MESH_WEIGHTS {\n*MESH_VERTEX_LIST {\n*MESH_VERTEX 0 9 9 9\n}\n}\n"
             "*MESH_VERTEX_LIST {\n*MESH_VERTEX 0 1 1 1\n*ODD {\n*MESH_VERTEX 0 9 9 9\n}\n*MESH_VERTEX 1 2 x 2\n}\n"
             "*TIMEVALUE 3\n}\n*TIMEVALUE 4\n");
    ASSERT_EQ(mesh.vertices.GetNumItems(), 2U);
    EXPECT_EQ(*mesh.vertices[1], CMath_Vector3(2, 0, 0));
    EXPECT_EQ(mesh.timevalue, 3);
}

namespace
{
/// Every field of the mesh in the text.
std::string DescribeMesh(std::string_view text)
{
    auto mesh = LoadNew<CMesh>(text);
    CDescriber describer;
    Visit(describer, mesh);
    return describer.text;
}
} // namespace

TEST(AseMesh, ReadsListsInPlaceAsLineByLine)
{
    static constexpr const char* lists[][2] = {
        {"*MESH_VERTEX_LIST", "*MESH_VERTEX 3 0.5 @ 2"},
        {"*MESH_FACE_LIST", "*MESH_FACE 3: A: 7 B: @ C: 2 AB: 1 *MESH_SMOOTHING 1,2 *MESH_MTLID 4"},
        {"*MESH_TFACELIST", "*MESH_TFACE @ 7 8 9"},
        {"*MESH_CFACELIST", "\t*MESH_CFACE 3\t7\t8\t@"},
        {"*MESH_NORMALS", "*MESH_FACENORMAL 3 0.5 2 @"},
        {"*MESH_CVERTLIST", "*MESH_VERTCOL@ 0.5 2 3"},
    };
    for (const auto& [heading, entry] : lists)
        for (const std::string& oddity : GetOddities())
            for (const char* const behind : {"", "*MESH_VERTEX 5 5 5 5\n*MESH_FACE 0: A: 5\n}\n*TIMEVALUE 5\n}\n"})
                EXPECT_TRUE(IsReadInPlaceAsLineByLine(
                    std::string(heading) + " {\n" + WriteOddLines(entry, oddity) + behind, DescribeMesh));
}
