/// X meshes: load beside Assimp.
#include "bench.h"
#include "core/file_parser.h"
#include "formats/x/x.h"
#include "grid_x.h"

#if defined(HAVE_ASSIMP)
#include <assimp/Importer.hpp>
#include <assimp/scene.h>
#endif

#include <memory>

namespace
{
using CMesh = CFileFormat_X::CXMesh;

constexpr SBenchSize XSizes[] = {{"small", 2'000'000}, {"17MB", 17'000'000}, {"97MB", 97'000'000}};

/// The text of the size asked for last.
const std::string& GetMesh(std::size_t bytes)
{
    static std::pair<std::size_t, std::string> mesh;
    if (mesh.first != bytes)
        mesh = {bytes, MakeGridX(bytes)};
    return mesh.second;
}

void Load(CFileFormat_X& document, const std::string& text)
{
    CFile_Parser parser;
    parser.Open(text.data(), text.size());
    document.Load(&parser, nullptr);
}

/// Whether the grid of quads and triangles came whole.
bool IsWhole(const CFileFormat_X& document)
{
    if (document.Meshes.GetNumItems() != 1)
        return false;
    const CMesh& mesh = *document.Meshes[0];
    const unsigned long vertices = mesh.Vertices.GetNumItems();
    const TArray<CMesh::SXFace>& faces = mesh.Faces;
    if (vertices == 0 || faces.GetNumItems() == 0)
        return false;
    const TArray<int>& last = faces[faces.GetNumItems() - 1]->Indices;
    return mesh.Normals.GetNumItems() == vertices && mesh.TextureCoords.GetNumItems() == vertices &&
           last.GetNumItems() >= 3 && *last[2] < static_cast<int>(vertices) &&
           mesh.Vertices[vertices - 1]->x == mesh.Vertices[vertices - 1]->y;
}

void LoadX(benchmark::State& state, std::size_t bytes)
{
    const std::string& text = GetMesh(bytes);
    {
        CFileFormat_X document;
        Load(document, text);
        if (FailUnless(state, IsWhole(document), "the mesh did not load whole"))
            return;
    }
    for (auto _ : state)
    {
        auto document = std::make_unique<CFileFormat_X>();
        Load(*document, text);
        benchmark::DoNotOptimize(document->Meshes.Items);
        state.PauseTiming();
        document.reset();
        state.ResumeTiming();
    }
    CountBytes(state, text.size());
}

#if defined(HAVE_ASSIMP)
void LoadAssimp(benchmark::State& state, std::size_t bytes)
{
    const std::string& text = GetMesh(bytes);
    for (auto _ : state)
    {
        auto importer = std::make_unique<Assimp::Importer>();
        const aiScene* const scene = importer->ReadFileFromMemory(text.data(), text.size(), 0, "x");
        benchmark::DoNotOptimize(scene);
        state.PauseTiming();
        const bool isread = scene != nullptr && scene->mNumMeshes == 1;
        importer.reset();
        state.ResumeTiming();
        if (FailUnless(state, isread, "Assimp did not read it"))
            break;
    }
    CountBytes(state, text.size());
}
#endif

void Register(const char* name, const SBenchSize& size, void (*function)(benchmark::State&, std::size_t))
{
    benchmark::RegisterBenchmark((std::string(name) + "/" + size.name).c_str(),
                                 [function, &size](benchmark::State& state) { function(state, size.bytes); })
        ->Unit(benchmark::kMillisecond)
        ->UseRealTime();
}
} // namespace

void RegisterXBenchmarks()
{
    for (const SBenchSize& size : XSizes)
    {
        Register("X/load", size, LoadX);
#if defined(HAVE_ASSIMP)
        Register("X/load with Assimp", size, LoadAssimp);
#endif
    }
}
