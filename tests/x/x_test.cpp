/// X meshes: what is read, how real files lay it out, what broken and hostile texts do.
#include "formats/x/x.h"

#include "core/numbers.h"
#include "tests/support/odd_lines.h"
#include "tests/support/saved_lines.h"

#include <gtest/gtest.h>

namespace
{
using CMesh = CFileFormat_X::CXMesh;

std::string Show(const TArray<CMath_Vector3>& vectors)
{
    std::string text;
    for (const CMath_Vector3& vector : vectors)
    {
        for (const float number : {vector.x, vector.y, vector.z})
        {
            char digits[NumberCapacity];
            text.append(digits, WriteExact(digits, number)) += ' ';
        }
        text.back() = '|';
    }
    return text;
}

std::string Show(const TArray<CMesh::SXFace>& faces)
{
    std::string text;
    for (const CMesh::SXFace& face : faces)
    {
        for (const int corner : face.Indices)
            text += std::to_string(corner) + ' ';
        text += '|';
    }
    return text;
}

/// The mesh of a text in which it is the only one; an empty one when there is none.
CMesh LoadMesh(std::string_view text)
{
    CFileFormat_X document;
    EXPECT_EQ(LoadText(document, text), 1);
    return document.Meshes.GetNumItems() == 1 ? *document.Meshes[0] : CMesh();
}

/// The mesh, and what the log heard of it.
std::string Describe(std::string_view text)
{
    CLogWatch log(1);
    const CMesh mesh = LoadMesh(text);
    return Show(mesh.Vertices) + "\n" + Show(mesh.Faces) + "\n" + Show(mesh.Normals) + "\n" + Show(mesh.TextureCoords) +
           "\n" + log.GetText();
}

constexpr std::string_view Quad = "Mesh q {\n4;\n0;0;0;,\n1;0;0;,\n1;1;0;,\n0;1;0;;\n1;\n4;0,1,2,3;;\n"
                                  "MeshNormals {\n1;\n0;0;1;;\n1;\n4;0,0,0,0;;\n}\n"
                                  "MeshTextureCoords {\n2;\n0.5;0.25;,\n1;0;;\n}\n}\n";
} // namespace

TEST(X, LoadReplacesAndDestroyEmpties)
{
    const CRegistryWatch watch;
    {
        auto document = LoadNew<CFileFormat_X>(Quad);
        const CFileFormat_X copy(document);
        LoadText(document, Quad);
        EXPECT_EQ(document.Meshes.GetNumItems(), 1U);
        LoadText(document, "xof 0303txt 0032\ntemplate Mesh {\n4;\n}\nMeshNormals {\n1;\n1;2;3;\n}\n");
        EXPECT_EQ(document.Meshes.GetNumItems(), 0U) << "neither a template nor normals are a mesh";
        EXPECT_EQ(Show(copy.Meshes[0]->Faces), "0 1 2 3 |") << "a copy has its own mesh";
        LoadText(document, Quad);
        EXPECT_EQ(document.Destroy(), 1);
        EXPECT_EQ(document.Meshes.Items, nullptr);
    }
    EXPECT_TRUE(watch.IsBalanced());
}

TEST(X, TheFirstMeshReadsToTheEndOfTheText)
{
    const std::string text = std::string(Quad) + "Mesh second {\n1;\n9;9;9;;\n0;\nMeshNormals {\n2;\n1;2;3;,\n4;5;6;;\n"
                                                 "}\nMeshTextureCoords {\n1;\n7;8;;\n}\n}\n";
    const CMesh mesh = LoadMesh(text);
    EXPECT_EQ(mesh.Vertices.GetNumItems(), 4U);
    EXPECT_EQ(Show(mesh.Normals), "1 2 3|4 5 6|") << "later normals replace earlier ones";
    EXPECT_EQ(Show(mesh.TextureCoords), "7 8 0|");
}

TEST(X, TellsTheLogOfEachFace)
{
    CLogWatch log(1);
    LoadMesh(Quad);
    LoadMesh("Mesh {\n0;\n3;\n3;0,0,0;,\n0;,\n");
    EXPECT_EQ(log.GetText(), "addpoly: 0\naddpoly: 0\naddpoly: 1\naddpoly: 2\n");
}

struct SLayout
{
    const char* name;
    const char* text;
    const char* vertices;
    const char* faces;
    const char* normals = "";
    const char* coords = "";
};

class XLayout : public testing::TestWithParam<SLayout>
{
};

TEST_P(XLayout, IsRead)
{
    const SLayout& layout = GetParam();
    const CMesh mesh = LoadMesh(layout.text);
    EXPECT_EQ(Show(mesh.Vertices), layout.vertices);
    EXPECT_EQ(Show(mesh.Faces), layout.faces);
    EXPECT_EQ(Show(mesh.Normals), layout.normals);
    EXPECT_EQ(Show(mesh.TextureCoords), layout.coords);
    EXPECT_TRUE(IsReadInPlaceAsLineByLine(layout.text, Describe));
}

static const SLayout kLayouts[] = {
    {"Indented", "\t Mesh {\n \t2;\n\t 1; -2;\t3;,\n 4;5;6;;\n\t1;\n  2; 0, 1;;\n", "1 -2 3|4 5 6|", "0 1 |"},
    {"BraceBehindTheWord", "Mesh{\n1;\n1;2;3;;\n1;\n1;0;;\nMeshNormals{\n1;\n4;5;6;;\n}\n}\n", "1 2 3|", "0 |",
     "4 5 6|"},
    {"BraceOnTheNextLine", "Mesh a\n{\n1;\n1;2;3;;\n1;\n1;0;;\nMeshTextureCoords\n{\n1;\n4;5;;\n}\n}\n", "1 2 3|",
     "0 |", "", "4 5 0|"},
    {"BlankAndCommentLines", "Mesh {\n\n// two\n2;\n# one\n1;2;3;,\n\n  // other\n4;5;6;;\n\n1;\n//\n2;0,1;;\n",
     "1 2 3|4 5 6|", "0 1 |"},
    {"CommentsBehindNumbers", "Mesh {\n2; // vertices\n1;2;3;, # a\n4;5; // goes on\n6;;// b\n1;# f\n2;0,//c\n1;;\n",
     "1 2 3|4 5 6|", "0 1 |"},
    {"SeveralEntriesOnALine", "Mesh {\n3;\n1;2;3;, 4;5;6;,\n7;8;9;;\n2;\n3;0,1,2;, 2;2,1;;\n", "1 2 3|4 5 6|7 8 9|",
     "0 1 2 |2 1 |"},
    {"ListsBehindTheirCounts", "Mesh {\n2;1;2;3;,4;5;6;;1;2;0,1;;\nMeshTextureCoords {\n1; 7;8;;\n}\n}\n",
     "1 2 3|4 5 6|", "0 1 |", "", "7 8 0|"},
    {"EntriesOverTwoLines", "Mesh {\n2;\n1;\n2;3;,\n4;5\n;6;;\n1;\n3;\n0,1\n,2;;\n", "1 2 3|4 5 6|", "0 1 2 |"},
    {"AnyRunOfMarksAtTheEnd", "Mesh {\n2;;\n1;2;3;,;\n4;5;6;;;,;\n2;,\n1;0;;;\n1;1,;,;\n", "1 2 3|4 5 6|", "0 |1 |"},
    {"NoMarksAtTheEnd", "Mesh {\n2\n1;2;3\n4;5;6\n1\n2;0,1\n", "1 2 3|4 5 6|", "0 1 |"},
    {"FacesWithSemicolons", "Mesh {\n0;\n2;\n3;0;1;2;,\n2;4;5;;\n", "", "0 1 2 |4 5 |"},
    {"RestsOfLinesAreDropped", "Mesh {\n2 vertices\n1;2;3; 9;9;9;,\n4;5;6;, and more\n1 of 7;1;7;;\n2;0 x,1;;\n",
     "1 2 3|4 5 6|", "0 1 |"},
    {"BraceBehindNumbersEndsTheBlock",
     "Mesh {\n1;\n1;2;3;;\n1;\n1;0;;\nMeshNormals {\n2;\n1;2;3;, }\n4;5;6;;\n}\nMeshTextureCoords {\n2;\n7;8; x }\n",
     "1 2 3|", "0 |", "1 2 3|0 0 0|", "7 8 0|0 0 0|"},
    {"EndsEarly", "Mesh {\n3;\n1;2;3;,\n4;5\n}\n2;\n1;0;;\nMeshNormals {\n2;\n7;8;9;;\n}\n", "1 2 3|4 5 0|0 0 0|", "",
     "7 8 9|0 0 0|"},
    {"CutInAFace", "Mesh {\n1;\n1;2;3;;\n2;\n3;0,1", "1 2 3|", "0 1 0 ||"},
    {"MissingNumbersAreZero", "Mesh {\n3;\n1;;3;,\nx;2;3;,\n7;8;9;;\n4;\n4;0,1,2;,\n3;0,x,2;,\n2;\n5,6;,\n-1;3;,\n",
     "1 0 0|0 0 0|7 8 9|", "0 1 2 0 |0 0 0 |5 6 ||"},
    {"OneNumberThatIsNone", "Mesh {\n2;\n1.#QNAN0;2;3;,\n4;5;6;;\n0;\n", "1 0 0|4 5 6|", ""},
    {"CountsThatDoNotParse", "Mesh {\nmany\nsome\nMeshNormals {\n-3;\n1;2;3;;\n}\n}\n", "", ""},
    {"DecimalCommasEndNumbers", "Mesh {\n1;\n0,5;1,5;2;;\n0;\n", "0 0 0|", ""},
    {"NumbersOfAllForms", "Mesh {\n1;\n-1e2;+.5;0x10;;\n1;\n2; -7, 99999999999;;\n", "-100 0.5 16|", "-7 2147483647 |"},
    {"HeadingReadAsTheLastNormal",
     "Mesh {\n0;\n0;\nMeshNormals {\n2;\n1;2;3;,\nMeshTextureCoords {\n1;\n4;5;;\n}\n}\n}\n", "", "", "1 2 3|0 0 0|",
     "4 5 0|"},
};

INSTANTIATE_TEST_SUITE_P(X, XLayout, testing::ValuesIn(kLayouts), SRowName());

TEST(X, ReadsListsInPlaceAsLineByLine)
{
    // A list of so many entries; the last pattern is of lines that nobody reads.
    static constexpr const char* lists[][2] = {
        {"Mesh {\n", "0.5;@;2;,"},
        {"Mesh {\n", "\t-4;@;\t0.5;, \t  "},
        {"Mesh {\n0;\n", "4;0,1,@,3;,"},
        {"Mesh {\n0;\n", "@;0,1,2;3; ;,"},
        {"Mesh {\n0;\n0;\nMeshTextureCoords {\n", "0.5;@;,"},
        {"Mesh {\n0;\n0;\n0;\n", "4;0,1,@,3;,"},
    };
    for (const auto& [heading, entry] : lists)
        for (const std::string& oddity : GetOddities())
            for (const char* const count : {"2;\n", "3;\n", "5;\n", "100;\n"})
                for (const char* const behind :
                     {"",
                      "7;8;9;;\n1;\n2;0,1;;\nMeshNormals {\n1;\n2;3;4;;\n}\nMeshTextureCoords {\n1;\n6;7;;\n}\n}\n"})
                    EXPECT_TRUE(IsReadInPlaceAsLineByLine(
                        std::string(heading) + count + WriteOddLines(entry, oddity) + behind, Describe));
}

TEST(XHostile, LyingCountsAreCutToWhatTheTextCanHold)
{
    CLogWatch log(2);
    const CMesh mesh = LoadMesh("Mesh {\n2000000000;\n1;2;3;,\n}\nMeshNormals {\n99999999999;\n}\n"
                                "MeshTextureCoords {\n1000000;\n1;2;;\n}\n");
    EXPECT_LT(mesh.Vertices.GetNumItems(), 20U);
    EXPECT_LT(mesh.Normals.GetNumItems(), 20U);
    EXPECT_LT(mesh.TextureCoords.GetNumItems(), 20U);
    EXPECT_EQ(log.GetText(), "text(4): a count of 2000000000 is more than its list can hold and is cut to 8\n"
                             "text(7): a count of 2147483647 is more than its list can hold and is cut to 8\n"
                             "text(11): a count of 1000000 is more than its list can hold and is cut to 8\n");
}

TEST(XHostile, ManyLyingCountsCostNoMoreThanTheirText)
{
    const std::string text = "Mesh {\n0;\n20000;\n" + Repeat("2000000000;x\n2000000000;1,2;,;\n", 10'000) +
                             Repeat("MeshNormals {\n2000000000;\n}\n", 20'000);
    CRegistryWatch watch;
    auto document = LoadNew<CFileFormat_X>(text);
    ASSERT_EQ(document.Meshes.GetNumItems(), 1U);
    EXPECT_EQ(document.Meshes[0]->Faces.GetNumItems(), 20'000U);
    EXPECT_LT(watch.registry.GetAllocatedSize(), text.size() * 8);
}

TEST(XHostile, AListWithoutMemoryStaysEmptyAndTheOthersAreRead)
{
    const std::string text = "Mesh {\n300;\n" + Repeat("1;2;3;,\n", 300) + "1;\n3;0,1,2;;\n";
    CFileFormat_X document;
    // the mesh and the first block of its vertices are had, the second is not
    LoadWithout(document, text, 2);
    ASSERT_EQ(document.Meshes.GetNumItems(), 1U);
    EXPECT_EQ(document.Meshes[0]->Vertices.GetNumItems(), 0U);
    EXPECT_EQ(Show(document.Meshes[0]->Faces), "0 1 2 |");
}
