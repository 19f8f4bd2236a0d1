/// Shows what large and hostile texts cost: writes each into a temporary folder, has it read by a process of
/// its own with a stack of 256 KB, and prints time and peak memory as a table. Ends with 1 when a reader
/// fails or needs more than its text allows.
///     asset_limits ASSET_TOOL [PART [WORD]]
/// PART: the large texts are that many times smaller. WORD: only the rows that name it.
#include "apart.h"
#include "containers/channel_list.h"
#include "containers/graph.h"
#include "containers/tree.h"
#include "core/graphics_model.h"
#include "formats/ase/ase.h"
#include "formats/envelope/envelope.h"
#include "formats/modelbuild/model_from_ase.h"
#include "formats/x/x.h"
#include "temporary_file.h"

#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <span>
#include <string>
#include <string_view>
#include <type_traits>

namespace
{
constexpr std::size_t StackSize = 256 * 1024;
constexpr unsigned MostSeconds = 60;
constexpr double MB = 1024 * 1024;

// Readers: what the process of its own does. Each returns whether it went well.

bool OpenText(CFile_Parser& parser, const char* path)
{
    return parser.OpenFile(path) == 1;
}

template <class TDocument> bool LoadDocument(const char* path)
{
    CFile_Parser parser;
    TDocument document;
    return OpenText(parser, path) && document.Load(&parser, nullptr) == 1;
}

/// Also copies, assigns and saves it.
template <class TDocument> bool UseDocument(const char* path)
{
    CFile_Parser parser;
    TDocument document;
    CFile_Saver saver;
    if (!OpenText(parser, path) || document.Load(&parser, nullptr) != 1 || saver.OpenFile("/dev/null") != 1)
        return false;
    if constexpr (std::is_copy_constructible_v<TDocument>)
    {
        TDocument copy(document);
        document = copy;
    }
    return document.Save(&saver) == 1 && saver.Close() == 1;
}

bool BuildModel(const char* path)
{
    CFile_Parser parser;
    CFileFormat_Ase document;
    CGraphics_Model model;
    return OpenText(parser, path) && document.Load(&parser, nullptr) == 1 &&
           CreateModelFromASE(model, document, 1.0F) == 1;
}

struct SReader
{
    std::string_view name;
    bool (*read)(const char* path);
};

constexpr SReader Readers[] = {
    {"load ase", LoadDocument<CFileFormat_Ase>},
    {"use ase", UseDocument<CFileFormat_Ase>},
    {"build model", BuildModel},
    {"load x", LoadDocument<CFileFormat_X>},
    {"use x", UseDocument<CFileFormat_X>},
    {"use envelope", UseDocument<CFileFormat_Envelope>},
    {"use text tree", UseDocument<TTree<CSys_Text>>},
    {"load tree", LoadDocument<TTree<CSys_String>>},
    {"use tree", UseDocument<TTree<CSys_String>>},
    {"load graph", LoadDocument<TGraph<CSys_DataNode>>},
    {"use graph", UseDocument<TGraph<CSys_DataNode>>},
    {"use channels", UseDocument<TChannelList<float, 4>>},
    {"load model", LoadDocument<CGraphics_Model>},
    {"use model", UseDocument<CGraphics_Model>},
};

// Texts.

using CText = std::ofstream;

void Repeat(CText& text, std::size_t count, std::string_view piece)
{
    for (std::size_t i = 0; i < count; ++i)
        text << piece;
}

void Nest(CText& text, std::string_view before, std::string_view opening, std::size_t count)
{
    text << before;
    Repeat(text, count, opening);
    Repeat(text, count, "}\n");
}

/// Blocks that are not closed either.
void Open(CText& text, std::string_view before, std::string_view opening, std::size_t count)
{
    text << before;
    Repeat(text, count, opening);
}

/// Chains as deep as they are still kept, one behind the other.
void Chains(CText& text, std::string_view before, std::string_view opening, std::size_t count)
{
    text << before;
    for (std::size_t i = 0; i < count; i += 999)
        Nest(text, "", opening, 999);
}

/// One line of so many bytes.
void Line(CText& text, std::string_view before, std::string_view piece, std::size_t size)
{
    text << before;
    Repeat(text, size / piece.size(), piece);
    text << "\n}\n";
}

void WriteAseFaces(CText& text, std::string_view, std::string_view, std::size_t count)
{
    text << "*GEOMOBJECT {\n*MESH {\n*MESH_FACE_LIST {\n";
    for (std::size_t i = 0; i < count; ++i)
        text << "\t\t\t*MESH_FACE " << i << ": A: " << i << " B: " << i + 1 << " C: " << i + 2
             << " AB: 1 BC: 1 CA: 0 *MESH_SMOOTHING 1 *MESH_MTLID 0\n";
    text << "}\n}\n}\n";
}

void WriteXFaces(CText& text, std::string_view, std::string_view, std::size_t count)
{
    text << "Mesh {\n1;\n0.0;0.0;0.0;;\n" << count << ";\n";
    for (std::size_t i = 0; i < count; ++i)
        text << "3;" << i << ',' << i + 1 << ',' << i + 2 << ";,\n";
    text << "}\n";
}

void WriteObjects(CText& text, std::string_view, std::string_view, std::size_t count)
{
    for (std::size_t i = 0; i < count; ++i)
        text << "*GEOMOBJECT {\n\t*NODE_NAME \"Box" << i << "\"\n\t*NODE_TM {\n\t\t*NODE_NAME \"Box" << i
             << "\"\n\t\t*TM_ROW0 1.0 0.0 0.0\n\t\t*TM_ROW1 0.0 1.0 0.0\n\t\t*TM_ROW2 0.0 0.0 1.0\n\t\t*TM_ROW3 " << i
             << ".5 0.0 0.0\n\t\t*TM_POS " << i << ".5 0.0 0.0\n\t\t*TM_ROTAXIS 0.0 0.0 1.0\n\t\t*TM_ROTANGLE 0.0\n"
             << "\t\t*TM_SCALE 1.0 1.0 1.0\n\t}\n}\n";
}

struct SRow
{
    std::string_view what;
    std::string_view reader; ///< A name of Readers, or the arguments of asset_tool.
    std::size_t count;       ///< Levels, blocks, objects or bytes.
    void (*write)(CText& text, std::string_view before, std::string_view piece, std::size_t count);
    std::string_view before = {}; ///< What the text begins with,
    std::string_view piece = {};  ///< and what it then repeats.
    double mosttimes = 128;       ///< Peak memory: at most so many times the text and 64 MB.
};

constexpr std::size_t Deep = 1'000'000;
constexpr std::size_t LongLine = 100'000'000;
constexpr std::size_t Blocks = 20'000;
constexpr std::size_t Short = 300'000;
constexpr std::size_t Once = 1;

constexpr std::string_view Maps = "*MATERIAL_LIST {\n*MATERIAL_COUNT 1\n*MATERIAL 0 {\n*MAP_DIFFUSE {\n";
constexpr std::string_view Submaterials = "*MATERIAL_LIST {\n*MATERIAL_COUNT 1\n*MATERIAL 0 {\n";

constexpr SRow Rows[] = {
    {"maps in maps", "use ase", Deep, Nest, Maps, "*MAP_GENERIC 1 {\n"},
    {"maps in maps, never closed", "use ase", Deep, Open, Maps, "*MAP_GENERIC 1 {\n"},
    {"materials in materials", "use ase", Deep, Nest, Submaterials, "*SUBMATERIAL 0 {\n"},
    {"meshes in meshes", "use ase", Deep, Nest, "*GEOMOBJECT {\n", "*MESH {\n"},
    {"unknown ASE blocks", "use ase", Deep, Nest, "*SCENE {\n", "*UNKNOWN {\n"},
    {"the same built", "build model", Deep, Nest, "*GEOMOBJECT {\n", "*MESH_ANIMATION {\n"},
    {"X frames", "use x", Deep, Nest, "xof 0303txt 0032\nMesh {\n1;\n0;0;0;;\n0;\n", "Frame {\n"},
    {"X meshes", "use x", Deep, Nest, "xof 0303txt 0032\n", "Mesh {\n"},
    {"envelope blocks", "use envelope", Deep, Nest, "", "[boneName] x\n{\n"},
    {"folders", "use tree", Deep, Nest, "{\n", "addfolder: a\n{\n"},
    {"folders of texts", "use text tree", Deep, Nest, "{\n", "addfolder: a\n{\n"},
    {"folders, never closed", "use tree", Deep, Open, "{\n", "addfolder: a\n{\n"},
    {"keys in keys", "use tree", Deep, Nest, "{\n", "addkey: a\n{\n"},
    {"graph nodes", "use graph", Deep, Nest, "{\n", "addnode:\n{\n"},
    {"graph data", "use graph", Deep, Nest, "{\naddnode:\n{\n", "addextradata:\n{\n"},
    {"channel lists", "use channels", Deep, Nest, "{\n", "addnode: 1 2 3 4 5\n{\n"},
    {"engine models", "use model", Deep, Nest, "{\n", "addgeometry:\n{\n"},
    {"maps, asset_tool", "inspect --json --format ase", Deep, Nest, Maps, "*MAP_GENERIC 1 {\n"},
    {"materials, asset_tool", "inspect --json --format ase", Deep, Nest, Submaterials, "*SUBMATERIAL 0 {\n"},
    {"folders, asset_tool", "inspect --json --format tree", Deep, Nest, "{\n", "addfolder: a\n{\n"},
    {"folders, asset_tool", "inspect --format tree", Deep, Nest, "{\n", "addfolder: a\n{\n"},
    {"folders, asset_tool", "convert --format tree", Deep, Nest, "{\n", "addfolder: a\n{\n"},

    {"a long ASE line", "use ase", LongLine, Line, "*GEOMOBJECT {\n*NODE_NAME ", "1234567 "},
    {"a long X line", "use x", LongLine, Line, "Mesh {\n", "1234567;"},
    {"a long envelope line", "use envelope", LongLine, Line, "[boneName] ", "1234567,"},
    {"a long line of exclusions", "use envelope", LongLine, Line,
     "exclusionVertexCount 4294967\n[exclusionListForBone] 0\nexcludedVerts ", "1 "},
    {"a long name in a tree", "use tree", LongLine, Line, "{\naddfolder: ", "1234567 "},
    {"a long line of braces", "use graph", LongLine, Line, "{\naddnode:\n", "\"{\" { }"},
    {"a long line of channels", "use channels", LongLine, Line, "{\naddnode: ", "1234567 "},
    {"a long line in a model", "use model", LongLine, Line, "{\naddpoint: ", "1234567 "},

    {"an ASE count", "load ase", Once, Open, "*MATERIAL_LIST {\n*MATERIAL_COUNT 4294967295\n}\n", ""},
    {"an ASE count, signed", "load ase", Once, Open, "*MATERIAL_LIST {\n*MATERIAL_COUNT 2147483647\n}\n", ""},
    {"an X vertex count", "use x", Once, Open, "Mesh {\n4294967295;\n1;2;3;;\n", "}"},
    {"an X face count", "use x", Once, Open, "Mesh {\n1;\n1;2;3;;\n4294967295;\n3;0,0,0;;\n", "}"},
    {"an X corner count", "use x", Once, Open, "Mesh {\n1;\n1;2;3;;\n1;\n4294967295;0,0,0;;\n", "}"},
    {"an X normal count", "use x", Once, Open, "Mesh {\n0;\n0;\nMeshNormals {\n4294967295;\n1;2;3;;\n", "}}"},
    {"an envelope weight count", "use envelope", Once, Open,
     "[vertex 0]\nvertexWeightCount 4294967295\nvertexWeight 1,1\n", ""},
    {"an exclusion count", "use envelope", Once, Open,
     "exclusionVertexCount 4294967295\n[exclusionListForBone] 0\nexcludedVerts 1\n", ""},
    {"a bone's number", "use envelope", Once, Open, "[boneName] a\n[boneID] 4294967295\n", ""},
    {"a raw node count", "use channels", Once, Open, "{\naddbnodes: 4294967295\r\nabcdefghijklmnopqrst", "}"},

    {"lying material lists", "load ase", Blocks, Open, "", "*MATERIAL_LIST {\n*MATERIAL_COUNT 60000\n}\n"},
    {"lying X lists", "load x", Blocks, Open, "Mesh {\n0;\n0;\n}\n", "MeshNormals {\n2000000000;\n1;2;3;;\n}\n"},
    {"lying X faces", "load x", Blocks, Open, "Mesh {\n0;\n2000000000;\n", "2000000000;1,2,3\n"},
    {"lying weight counts", "use envelope", Blocks, Open, "", "[vertex 0]\nvertexWeightCount 2000000000\n"},
    {"lying exclusion counts", "use envelope", Blocks, Open, "",
     "[exclusionListForBone] 0\nexclusionVertexCount 2000000000\nexcludedVerts 1 2\n"},
    {"lying raw node counts", "use channels", Blocks, Open, "{\n", "addbnodes: 2000000000\r\n"},

    {"the shortest mesh with normals", "load ase", Short, Open, "*GEOMOBJECT {\n*MESH_ANIMATION {\n",
     "*MESH{\n*MESH_NORMALS{\n*MESH_FACENORMAL\n}\n}\n"},
    {"the shortest mesh with faces", "load ase", Short, Open, "*GEOMOBJECT {\n*MESH_ANIMATION {\n",
     "*MESH{\n*MESH_FACE_LIST{\n*MESH_FACE\n}\n}\n"},
    {"the shortest shape", "load ase", Short, Open, "", "*SHAPEOBJECT{\n*SHAPE_LINE{\n}\n}\n"},
    {"the shortest spline", "load ase", Short, Open, "*SHAPEOBJECT{\n", "*SHAPE_LINE{\n*SHAPE_VERTEX_KNOT\n}\n"},
    {"the shortest animations", "load ase", Short, Open, "*CAMERAOBJECT {\n",
     "*TM_ANIMATION{\n*CONTROL_ROT_TRACK{\n*CONTROL_ROT_SAMPLE\n}\n}\n"},
    {"the shortest camera", "load ase", Short, Open, "", "*CAMERAOBJECT{\n*NODE_TM{\n}\n}\n"},
    {"the shortest materials", "load ase", Short, Chains, Submaterials, "*SUBMATERIAL{\n"},
    {"the shortest maps", "load ase", Short, Chains, Maps, "*MAP_GENERIC{\n"},
    {"the shortest X faces", "load x", Short, Open, "Mesh {\n0;\n2000000000;\n", "8;\n"},
    {"the shortest vertex", "use envelope", Short, Open, "", "[vertex\n"},
    {"the shortest folders", "load tree", Short, Chains, "{\n", "addfolder:\n{\n"},
    {"the shortest folders with a key", "load tree", Short, Open, "{\n", "addfolder:\n{\naddkey:\n{\n}\n}\n"},
    {"the shortest graph node", "load graph", Short, Open, "{\n", "addnode:\n}\n"},
    {"the shortest face space", "load model", Short, Open, "{\n", "addgeometry:\nmesh:\naddfacespace:\n}\n}\n"},
    {"the shortest model of meshes", "build model", Short, Open, "",
     "*GEOMOBJECT{\n*MESH{\n*MESH_NORMALS{\n*MESH_FACENORMAL\n}\n}\n}\n"},

    {"ASE objects", "load ase", 1'000'000, WriteObjects, "", "", 6},
    {"ASE faces", "load ase", 10'000'000, WriteAseFaces, "", "", 2},
    {"X faces", "load x", 10'000'000, WriteXFaces, "", "", 4},
    {"folders side by side", "load tree", 1'000'000, Open, "{\n", "addfolder: harbour\n{\n}\n", 8},
    {"graph nodes side by side", "load graph", 1'000'000, Open, "{\n",
     "addnode:\n{\naddlink: 0 1\naddnodedata:\n{\nname: \"door\"\nkind: 1\nvalue: \"oak\"\n}\n}\n", 8},
};

// Processes. What writes a text and what reads one are processes of their own, so that neither's memory is
// counted for the other.

const SReader* FindReader(std::string_view name)
{
    for (const SReader& reader : Readers)
        if (reader.name == name)
            return &reader;
    return nullptr;
}

/// Replaces this process by the reader, which then has the small stack from its first function on.
void Execute(const SRow& row, const char* self, const char* tool, const std::string& path)
{
    const rlimit stack = {StackSize, StackSize};
    setrlimit(RLIMIT_STACK, &stack);
    alarm(MostSeconds);
    if (FindReader(row.reader) != nullptr)
    {
        if (std::freopen("/dev/null", "w", stdout) == nullptr)
            return;
        execl(self, self, "--read", std::string(row.reader).c_str(), path.c_str(), nullptr);
        return;
    }
    const std::string command =
        "exec \"$0\" " + std::string(row.reader) + " --log-level 9 \"$1\" >/dev/null 2>/dev/null";
    execl("/bin/sh", "sh", "-c", command.c_str(), tool, path.c_str(), nullptr);
}

bool Measure(const SRow& row, std::size_t part, const char* self, const char* tool, const std::string& path)
{
    const std::size_t count = row.count > part ? row.count / part : row.count;
    const auto write = [&]
    {
        CText text(path, std::ios::binary);
        row.write(text, row.before, row.piece, count);
        text.close();
        _exit(text ? 0 : 1);
    };
    if (!RunApart(write).isdone)
    {
        std::fprintf(stderr, "cannot write %s\n", path.c_str());
        return false;
    }
    const auto size = static_cast<double>(std::filesystem::file_size(path));
    const SOutcome outcome = RunApart([&] { Execute(row, self, tool, path); });
    const bool isright = outcome.isdone && outcome.peak <= row.mosttimes * size + 64 * MB;
    std::printf("| %s (%.*s) | %zu | %.3f | %.2f | %.0f | %.1f |%s\n", std::string(row.what).c_str(),
                static_cast<int>(row.reader.size()), row.reader.data(), count, size / MB, outcome.seconds,
                outcome.peak / MB, outcome.peak / size,
                isright          ? ""
                : outcome.isdone ? " TOO MUCH"
                                 : " FAILED");
    return isright;
}
} // namespace

int main(int argc, char** argv)
{
    if (argc == 4 && std::strcmp(argv[1], "--read") == 0)
    {
        const SReader* const reader = FindReader(argv[2]);
        return reader != nullptr && reader->read(argv[3]) ? 0 : 1;
    }
    if (argc < 2)
    {
        std::fprintf(stderr, "usage: asset_limits ASSET_TOOL [PART [WORD]]\n");
        return 2;
    }
    const auto part = static_cast<std::size_t>(argc > 2 ? std::strtoul(argv[2], nullptr, 10) : 1);
    if (part == 0)
        return 2;
    const CTemporaryFile file("");
    std::printf("| Text | Count | MB | Seconds | Peak MB | Peak / text |\n|---|---|---|---|---|---|\n");
    bool isright = true;
    for (const SRow& row : Rows)
        if (argc <= 3 || row.what.find(argv[3]) != std::string_view::npos)
            isright &= Measure(row, part, argv[0], argv[1], file.path);
    return isright ? 0 : 1;
}
