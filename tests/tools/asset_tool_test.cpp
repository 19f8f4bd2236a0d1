/// asset_tool as its users meet it: arguments in, exit status, streams and files out.
#include "core/file_parser.h"
#include "tests/support/tool.h"

namespace
{
using testing::AllOf;
using testing::EndsWith;
using testing::HasSubstr;
using testing::Not;
using testing::StartsWith;

class AssetTool : public CToolTest
{
  protected:
    const std::string sample = Sample("scene.ase");
};
} // namespace

TEST_F(AssetTool, ConvertsToFileAndToStandardOutput)
{
    const std::string expected = ReadSample("expected/scene.txt");
    EXPECT_EQ(Run("convert " + sample), expected);
    EXPECT_EQ(Run("convert - <" + sample), expected);
    const std::string result = Make("result.txt", "what was there before");
    EXPECT_EQ(Run("convert " + sample + " -o " + result), "");
    EXPECT_EQ(ReadFile(result), expected);
    const std::string itself = Make("itself.ase", std::string(CFile_Parser::PieceSize * 2, '\n') + ReadFile(sample));
    EXPECT_EQ(Run("convert " + itself + " -o " + itself), "");
    EXPECT_EQ(ReadFile(itself), expected);
}

TEST_F(AssetTool, InspectsForPeopleAndPrograms)
{
    const std::string plain = Run("inspect " + sample);
    for (const char* part :
         {"an ASE scene, 14157 bytes", "frames 0 to 100", "2 materials", "\"Crate\": 4 vertices, 2 faces",
          "bounds (-1 -1 0.5) to (1 1 0.5)", "3 cameras", "\"Ruler\": \"Tape\" at (0 0 10)"})
        EXPECT_THAT(plain, HasSubstr(part));
    EXPECT_THAT(plain, AllOf(Not(HasSubstr("suspicious")), Not(EndsWith(")"))));
    EXPECT_EQ(Run("inspect --json " + sample), ReadSample("expected/scene.json"));
}

TEST_F(AssetTool, BuildsModels)
{
    EXPECT_EQ(Run("model --scale 0.5 " + sample), ReadSample("expected/scene_model.txt"));
    const std::string result = (folder / "scene.model").string();
    EXPECT_EQ(Run("model --json --scale 0.5 " + sample + " -o " + result), "");
    EXPECT_EQ(ReadFile(result), ReadSample("expected/scene_model.json"));
    EXPECT_THAT(Run("model --scale half " + sample), EndsWith("(2)"));
    EXPECT_THAT(Run("model " + (folder / "missing.ase").string()), EndsWith("(1)"));
}

TEST_F(AssetTool, PointsOutWhatIsSuspicious)
{
    const std::string scene = "*GEOMOBJECT {\n*NODE_NAME a\n*MESH {\n*MESH_VERTEX_LIST {\n*MESH_VERTEX 0 nan 0 0\n}\n"
                              "*MESH_FACE_LIST {\n*MESH_FACE 0: A: 0 B: 0 C: 1\n*MESH_FACE 1: A: -1 B: 0 C: 0\n}\n"
                              "}\n}\n*GEOMOBJECT {\n*NODE_NAME a\n}\n";
    EXPECT_THAT(
        RunOn("inspect", scene),
        EndsWith("suspicious:\n  a: a face names a vertex that is not there (2 times)\n  a: a vertex is not finite\n"
                 "  a: the mesh has no vertices\n  a: several geometry objects have this name\n"));
    EXPECT_THAT(RunOn("inspect --json", scene), HasSubstr("\"vertices\":[[\"nan\",0,0]]"));
    EXPECT_THAT(RunOn("inspect", "xof 0303txt 0032\nMesh {\n1;\nnan;0;0;;\n2;\n2;0,0;,\n3;0,0,1;;\n}\n"),
                HasSubstr("suspicious:\n  the mesh: a face has fewer than three corners\n"
                          "  the mesh: a face names a vertex that is not there\n  the mesh: a vertex is not finite\n"));
    EXPECT_THAT(
        RunOn("inspect", "[boneName] a\n[boneName] b\n[vertex\nvertexWeightCount 1\nvertexWeight 0,0.5\n[vertex\n"
                         "[vertex\nvertexWeightCount 1\nvertexWeight 4,1\n"
                         "[exclusionListForBone\nexclusionVertexCount 1\nexcludedVerts 9\n"),
        HasSubstr("suspicious:\n  vertices: the weights do not sum to about 1\n"
                  "  vertices: there are no weights\n  bone 0: several bones have this id\n"
                  "  weights: they name a bone that is not there\n  exclusion lists: an entry names no vertex"));
}

TEST_F(AssetTool, SaysWhyItCannotRead)
{
    using namespace std::string_literals;
    const std::pair<std::string, std::string> cases[] = {
        {"missing.ase", "No such file or directory\n"},
        {Make("empty.ase", ""), "it is empty\n"},
        {Make("binary.ase", "\177ELF\0\0\0\1\2\3"s),
         "no line of it belongs to an ASE scene; another kind can be named with --format\n"},
        {Make("binary.x", "xof 0303bin 0032\x78\x9C\x01"), "it is a binary X file, and only text X files are read\n"},
        {Make("tzip.x", "xof 0303tzip0032\x78\x9C\x01"), "it is a compressed X file, and only text X files are read\n"},
        {Make("bzip.x", "xof 0303bzip0032\x78\x9C\x01"), "it is a compressed X file, and only text X files are read\n"},
        {folder.string(), ""},
    };
    const std::string result = (folder / "result").string();
    for (const auto& [path, why] : cases)
    {
        EXPECT_THAT(Run("convert " + path + " -o " + result),
                    AllOf(StartsWith("!asset_tool: cannot read '" + path + "': " + why), EndsWith("(1)")));
        EXPECT_FALSE(fs::exists(result));
    }
    const std::string unknown = Make("notes.txt", "some notes\n");
    EXPECT_THAT(Run("convert " + unknown),
                AllOf(StartsWith("!asset_tool: cannot tell what '" + unknown + "' is; say so with --format ("),
                      EndsWith("(1)")));
}

TEST_F(AssetTool, KeepsWhatItCanOfDamagedTexts)
{
    const std::string text = ReadFile(sample);
    const std::string cut = Make("cut.ase", text.substr(0, text.find("*MESH_NORMALS")));
    EXPECT_THAT(Run("convert " + cut),
                AllOf(HasSubstr("addface: 3 2 0 0"),
                      EndsWith("!asset_tool: warning: '" + cut +
                               "' leaves 2 blocks open; it may be cut off. What was read is kept.\n")));
    const std::string longline = Make("long.ase", "*GEOMOBJECT {\n*NODE_NAME " + std::string(3000, 'x') + "\n}\n");
    EXPECT_THAT(Run("convert " + longline),
                EndsWith("!" + longline + "(2): the line is too long, what does not fit is passed over\n"));
    EXPECT_THAT(Run("convert --log-level 3 " + longline), EndsWith("}\n"));
}

TEST_F(AssetTool, LeavesTheOldFileWhenItCannotWrite)
{
    EXPECT_THAT(Run("convert " + sample + " -o " + (folder / "no such folder" / "x").string()), EndsWith("(2)"))
        << "the blanks make it several arguments";
    const std::string target = (folder / "missing" / "x").string();
    EXPECT_EQ(Run("convert " + sample + " -o " + target),
              "!asset_tool: cannot write '" + target + "': No such file or directory\n(1)");
#if !defined(_WIN32)
    if (fs::exists("/dev/full"))
    {
        EXPECT_EQ(Run("convert " + sample + " -o /dev/full"),
                  "!asset_tool: cannot write '/dev/full': No space left on device\n(1)");
        EXPECT_TRUE(fs::exists("/dev/full"));
    }
#endif
}

TEST_F(AssetTool, ExplainsItself)
{
    for (const std::string& wrong :
         {std::string(), std::string("convert"), "convert --format cake " + sample, "bake " + sample})
        EXPECT_THAT(Run(wrong), EndsWith("(2)")) << wrong;
    EXPECT_THAT(Run("--version"), AllOf(StartsWith("asset_tool "), EndsWith("\n")));
    for (const std::string command : {"convert", "inspect", "model"})
        EXPECT_THAT(Run(command + " --help"),
                    AllOf(HasSubstr("asset_tool " + command + " scene.ase"), Not(EndsWith(")"))));
}

TEST_F(AssetTool, ReadsMeshesAndEnvelopes)
{
    EXPECT_EQ(Run("convert " + Sample("mesh.x")), ReadSample("expected/mesh.txt"));
    EXPECT_EQ(Run("inspect --json " + Sample("mesh.x")), ReadSample("expected/mesh.json"));
    EXPECT_EQ(Run("inspect --json " + Sample("arm.envASCII")), ReadSample("expected/arm.json"))
        << "and nothing of what the reader prints";
    EXPECT_EQ(Run("inspect - <" + Sample("mesh.x")),
              "standard input: an X mesh, 1736 bytes\n1 mesh (the first of the text is read)\n"
              "  9 vertices, 5 faces (2 triangles, 21 corners in all), 4 normals, 9 texture coordinates, "
              "bounds (-3 -0.125 -1) to (3 1.75 1)\n");
    EXPECT_THAT(
        Run("inspect " + Sample("arm.envASCII")),
        AllOf(StartsWith("exclusion list added\n"), HasSubstr("  2 Bip01 Hand: weighs 3 vertices, sum 2.5, 0 excluded\n"
                                                              "3 exclusion lists with 3 entries\n")));
    EXPECT_THAT(Run("convert " + Sample("tail.env")), EndsWith("excluding vertex 2 -> 1: 2\n{\n}\n"));
}
