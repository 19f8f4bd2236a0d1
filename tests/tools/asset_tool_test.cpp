/// asset_tool as its users meet it: arguments in, exit status, streams and files out.
#include "core/file_parser.h"
#include "tests/support/tool.h"

#include <array>

namespace
{
class AssetTool : public CToolTest
{
  protected:
    const std::string sample = std::string(SAMPLES_FOLDER) + "/scene.ase";
};
} // namespace

TEST_F(AssetTool, ConvertsToFileAndToStandardOutput)
{
    const std::string expected = ReadFile(std::string(SAMPLES_FOLDER) + "/expected/scene.txt");
    const SRun toout = Run("convert " + sample);
    EXPECT_EQ(toout.status, 0) << toout.err;
    EXPECT_EQ(toout.out, expected);
    EXPECT_EQ(toout.err, "");

    const fs::path result = Make("result.txt", "what was there before");
    const SRun tofile = Run("convert " + sample + " -o " + result.string());
    EXPECT_EQ(tofile.status, 0) << tofile.err;
    EXPECT_EQ(tofile.out, "");
    EXPECT_EQ(ReadFile(result), expected);

    const fs::path itself = Make("itself.ase", std::string(CFile_Parser::PieceSize * 2, '\n') + ReadFile(sample));
    EXPECT_EQ(Run("convert " + itself.string() + " -o " + itself.string()).status, 0);
    EXPECT_EQ(ReadFile(itself), expected);

    const SRun fromstdin = Run("convert - <" + sample);
    EXPECT_EQ(fromstdin.status, 0) << fromstdin.err;
    EXPECT_EQ(fromstdin.out, expected);
}

TEST_F(AssetTool, InspectsForPeopleAndPrograms)
{
    const SRun plain = Run("inspect " + sample);
    EXPECT_EQ(plain.status, 0);
    for (const char* part :
         {"an ASE scene, 14157 bytes", "frames 0 to 100", "2 materials", "\"Crate\": 4 vertices, 2 faces",
          "bounds (-1 -1 0.5) to (1 1 0.5)", "3 cameras", "\"Ruler\": \"Tape\" at (0 0 10)"})
        EXPECT_NE(plain.out.find(part), std::string::npos) << part << "\n" << plain.out;
    EXPECT_EQ(plain.out.find("suspicious"), std::string::npos);

    const SRun json = Run("inspect --json " + sample);
    EXPECT_EQ(json.status, 0);
    EXPECT_EQ(json.out, ReadFile(std::string(SAMPLES_FOLDER) + "/expected/scene.json"));
}

TEST_F(AssetTool, BuildsModels)
{
    const std::string text = ReadFile(std::string(SAMPLES_FOLDER) + "/expected/scene_model.txt");
    const std::string json = ReadFile(std::string(SAMPLES_FOLDER) + "/expected/scene_model.json");
    const SRun plain = Run("model --scale 0.5 " + sample);
    EXPECT_EQ(plain.status, 0) << plain.err;
    EXPECT_EQ(plain.out, text);
    const fs::path result = folder / "scene.model";
    const SRun tofile = Run("model --json --scale 0.5 " + sample + " -o " + result.string());
    EXPECT_EQ(tofile.status, 0) << tofile.err;
    EXPECT_EQ(tofile.out, "");
    EXPECT_EQ(ReadFile(result), json);
    EXPECT_EQ(Run("model --scale half " + sample).status, 2);
    EXPECT_EQ(Run("model " + (folder / "missing.ase").string()).status, 1);
}

TEST_F(AssetTool, PointsOutWhatIsSuspicious)
{
    const fs::path scene =
        Make("odd.ase", "*GEOMOBJECT {\n*NODE_NAME a\n*MESH {\n*MESH_VERTEX_LIST {\n*MESH_VERTEX 0 nan 0 0\n}\n"
                        "*MESH_FACE_LIST {\n*MESH_FACE 0: A: 0 B: 0 C: 1\n*MESH_FACE 1: A: -1 B: 0 C: 0\n}\n"
                        "}\n}\n*GEOMOBJECT {\n*NODE_NAME a\n}\n");
    const SRun run = Run("inspect " + scene.string());
    EXPECT_EQ(run.status, 0);
    EXPECT_NE(run.out.find(
                  "suspicious:\n  a: a face names a vertex that is not there (2 times)\n  a: a vertex is not finite\n"
                  "  a: the mesh has no vertices\n  a: several geometry objects have this name\n"),
              std::string::npos)
        << run.out;
    const SRun json = Run("inspect --json " + scene.string());
    EXPECT_NE(json.out.find("\"vertices\":[[\"nan\",0,0]]"), std::string::npos);
}

TEST_F(AssetTool, SaysWhyItCannotRead)
{
    const fs::path empty = Make("empty.ase", "");
    const fs::path binary = Make("binary.ase", std::string("\x7F"
                                                           "ELF\0\0\0\1\2\3",
                                                           10));
    const fs::path unknown = Make("notes.txt", "some notes\n");
    const std::array<std::array<std::string, 2>, 5> cases = {{
        {"missing.ase", "asset_tool: cannot read 'missing.ase': No such file or directory\n"},
        {empty.string(), "asset_tool: cannot read '" + empty.string() + "': it is empty\n"},
        {binary.string(), "asset_tool: cannot read '" + binary.string() +
                              "': no line of it belongs to an ASE scene; another kind can be named with --format\n"},
        {unknown.string(), "asset_tool: cannot tell what '" + unknown.string() + "' is; say so with --format ("},
        {folder.string(), "asset_tool: cannot read '" + folder.string() + "': "},
    }};
    for (const auto& [path, message] : cases)
    {
        const SRun run = Run("convert " + path + " -o " + (folder / "result").string());
        EXPECT_EQ(run.status, 1) << path;
        EXPECT_EQ(run.err.substr(0, message.size()), message);
        EXPECT_FALSE(fs::exists(folder / "result"));
    }
}

TEST_F(AssetTool, KeepsWhatItCanOfDamagedTexts)
{
    const std::string text = ReadFile(sample);
    const fs::path cut = Make("cut.ase", text.substr(0, text.find("*MESH_NORMALS")));
    const SRun run = Run("convert " + cut.string());
    EXPECT_EQ(run.status, 0);
    EXPECT_NE(run.out.find("addface: 3 2 0 0"), std::string::npos);
    EXPECT_EQ(run.err, "asset_tool: warning: '" + cut.string() +
                           "' leaves 2 blocks open; it may be cut off. What was read is kept.\n");

    const fs::path longline = Make("long.ase", "*GEOMOBJECT {\n*NODE_NAME " + std::string(3000, 'x') + "\n}\n");
    EXPECT_EQ(Run("convert " + longline.string()).err,
              longline.string() + "(2): the line is too long, what does not fit is passed over\n");
    EXPECT_EQ(Run("convert --log-level 3 " + longline.string()).err, "");
}

TEST_F(AssetTool, LeavesTheOldFileWhenItCannotWrite)
{
    const SRun nowhere = Run("convert " + sample + " -o " + (folder / "no such folder" / "x").string());
    EXPECT_EQ(nowhere.status, 2) << "the blanks make it several arguments";
    const fs::path target = folder / "missing" / "x";
    const SRun missing = Run("convert " + sample + " -o " + target.string());
    EXPECT_EQ(missing.status, 1);
    EXPECT_EQ(missing.err, "asset_tool: cannot write '" + target.string() + "': No such file or directory\n");
#if !defined(_WIN32)
    if (fs::exists("/dev/full"))
    {
        const int status =
            std::system((std::string(ASSET_TOOL) + " convert " + sample + " -o /dev/full 2>" + // NOLINT(cert-env33-c)
                         (folder / "stderr").string())
                            .c_str());
        EXPECT_EQ(WEXITSTATUS(status), 1);
        EXPECT_EQ(ReadFile(folder / "stderr"), "asset_tool: cannot write '/dev/full': No space left on device\n");
        EXPECT_TRUE(fs::exists("/dev/full"));
    }
#endif
}

TEST_F(AssetTool, ExplainsItself)
{
    EXPECT_EQ(Run("").status, 2);
    EXPECT_EQ(Run("convert").status, 2);
    EXPECT_EQ(Run("convert --format cake " + sample).status, 2);
    EXPECT_EQ(Run("bake " + sample).status, 2);
    const SRun version = Run("--version");
    EXPECT_EQ(version.status, 0);
    EXPECT_EQ(version.out.substr(0, 11), "asset_tool ");
    for (const char* command : {"convert", "inspect", "model"})
    {
        const SRun help = Run(std::string(command) + " --help");
        EXPECT_EQ(help.status, 0);
        EXPECT_NE(help.out.find(std::string("asset_tool ") + command + " scene.ase"), std::string::npos) << help.out;
    }
}

TEST_F(AssetTool, ReadsMeshesAndEnvelopes)
{
    const std::string samples = SAMPLES_FOLDER;
    EXPECT_EQ(Run("convert " + samples + "/mesh.x").out, ReadFile(samples + "/expected/mesh.txt"));
    EXPECT_EQ(Run("inspect --json " + samples + "/mesh.x").out, ReadFile(samples + "/expected/mesh.json"));
    EXPECT_EQ(Run("inspect --json " + samples + "/arm.envASCII").out, ReadFile(samples + "/expected/arm.json"))
        << "and nothing of what the reader prints";
    EXPECT_EQ(Run("inspect - <" + samples + "/mesh.x").out,
              "standard input: an X mesh, 1736 bytes\n1 mesh (the first of the text is read)\n"
              "  9 vertices, 5 faces (2 triangles, 21 corners in all), 4 normals, 9 texture coordinates, "
              "bounds (-3 -0.125 -1) to (3 1.75 1)\n");
    const SRun envelope = Run("inspect " + samples + "/arm.envASCII");
    EXPECT_EQ(envelope.out.substr(0, 21), "exclusion list added\n");
    EXPECT_NE(envelope.out.find("  2 Bip01 Hand: weighs 3 vertices, sum 2.5, 0 excluded\n"
                                "3 exclusion lists with 3 entries\n"),
              std::string::npos)
        << envelope.out;
    const SRun converted = Run("convert " + samples + "/tail.env");
    EXPECT_TRUE(converted.out.ends_with("excluding vertex 2 -> 1: 2\n{\n}\n")) << converted.out;
}

TEST_F(AssetTool, PointsOutOddMeshesAndEnvelopes)
{
    const fs::path mesh = Make("odd.x", "xof 0303txt 0032\nMesh {\n1;\nnan;0;0;;\n2;\n2;0,0;,\n3;0,0,1;;\n}\n");
    EXPECT_NE(
        Run("inspect " + mesh.string())
            .out.find("suspicious:\n  the mesh: a face has fewer than three corners\n"
                      "  the mesh: a face names a vertex that is not there\n  the mesh: a vertex is not finite\n"),
        std::string::npos);
    const fs::path envelope =
        Make("odd.env", "[boneName] a\n[boneName] b\n[vertex\nvertexWeightCount 1\nvertexWeight 0,0.5\n[vertex\n"
                        "[vertex\nvertexWeightCount 1\nvertexWeight 4,1\n"
                        "[exclusionListForBone\nexclusionVertexCount 1\nexcludedVerts 9\n");
    EXPECT_NE(
        Run("inspect " + envelope.string())
            .out.find("suspicious:\n  vertices: the weights do not sum to about 1\n"
                      "  vertices: there are no weights\n  bone 0: several bones have this id\n"
                      "  weights: they name a bone that is not there\n  exclusion lists: an entry names no vertex"),
        std::string::npos);
}

TEST_F(AssetTool, NamesXFilesThatAreNoText)
{
    for (const auto& [form, what] : {std::pair{"bin ", "binary"}, {"tzip", "compressed"}, {"bzip", "compressed"}})
    {
        const fs::path path = Make("mesh.x", std::string("xof 0303") + form + "0032\x78\x9C\x01");
        const SRun run = Run("inspect " + path.string());
        EXPECT_EQ(run.status, 1);
        EXPECT_EQ(run.err, "asset_tool: cannot read '" + path.string() + "': it is a " + what +
                               " X file, and only text X files are read\n");
    }
}
