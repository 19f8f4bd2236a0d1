/// ASE scenes: load beside Assimp, save beside the plain ways of writing the same lines.
#include "bench.h"
#include "core/block_writer.h"
#include "core/file_parser.h"
#include "core/file_saver.h"
#include "formats/ase/ase.h"
#include "grid_scene.h"

#if defined(HAVE_ASSIMP)
#include <assimp/Importer.hpp>
#include <assimp/scene.h>
#endif

#include <charconv>
#include <cstring>
#include <cwchar>
#include <map>
#include <memory>

namespace
{
/// One scene of each size, made when first asked for and kept; the last one asked for only, as they are large.
const std::string& GetScene(std::size_t bytes)
{
    static std::pair<std::size_t, std::string> scene;
    if (scene.first != bytes)
    {
        scene = {0, {}};
        scene = {bytes, MakeGridScene(bytes)};
    }
    return scene.second;
}

void Load(CFileFormat_Ase& document, const std::string& text)
{
    CFile_Parser parser;
    parser.Open(text.data(), text.size());
    document.Load(&parser, nullptr);
}

std::size_t CountFaces(const CFileFormat_Ase& document)
{
    std::size_t faces = 0;
    for (const CFileFormat_Ase::CASEGeomObject& object : document.GeomObjects)
        faces += object.mesh.faces.GetNumItems();
    return faces;
}

/// Bytes of the lists that a document holds.
std::size_t CountListBytes(const CFileFormat_Ase& document)
{
    const auto size = [](const auto& list) { return list.Capacity * sizeof(*list.Items); };
    std::size_t bytes = 0;
    for (const CFileFormat_Ase::CASEGeomObject& object : document.GeomObjects)
    {
        const CFileFormat_Ase::CASEMesh& mesh = object.mesh;
        bytes +=
            size(mesh.vertices) + size(mesh.faces) + size(mesh.tvertices) + size(mesh.tfaces) + size(mesh.facenormals);
    }
    return bytes;
}

void LoadAse(benchmark::State& state, std::size_t bytes)
{
    const std::string& text = GetScene(bytes);
    {
        CFileFormat_Ase document;
        Load(document, text);
        if (FailUnless(state, CountFaces(document) == document.GeomObjects.GetNumItems() * 20'000,
                       "not every face was read"))
            return;
    }
    TakePeakMemory();
    const std::size_t before = TakePeakMemory();
    std::size_t lists = 1;
    for (auto _ : state)
    {
        auto document = std::make_unique<CFileFormat_Ase>();
        Load(*document, text);
        benchmark::DoNotOptimize(document->GeomObjects.Items);
        state.PauseTiming();
        lists = CountListBytes(*document);
        document.reset();
        state.ResumeTiming();
    }
    CountBytes(state, text.size());
    if (const std::size_t peak = TakePeakMemory(); peak > before)
        state.counters["memory/lists"] = static_cast<double>(peak - before) / static_cast<double>(lists);
}

#if defined(HAVE_ASSIMP)
void LoadAssimp(benchmark::State& state, std::size_t bytes)
{
    const std::string& text = GetScene(bytes);
    for (auto _ : state)
    {
        auto importer = std::make_unique<Assimp::Importer>();
        const aiScene* const scene = importer->ReadFileFromMemory(text.data(), text.size(), 0, "ase");
        benchmark::DoNotOptimize(scene);
        state.PauseTiming();
        const bool isread = scene != nullptr && scene->mNumMeshes > 0;
        importer.reset();
        state.ResumeTiming();
        if (FailUnless(state, isread, "Assimp did not read it"))
            break;
    }
    CountBytes(state, text.size());
}
#endif

/// Finds every line end and widens every byte: what no reader into wide text can do without.
void WidenOnly(benchmark::State& state, std::size_t bytes)
{
    const std::string& text = GetScene(bytes);
    wchar_t line[512];
    std::size_t lines = 0;
    for (auto _ : state)
    {
        for (const char *at = text.data(), *const end = at + text.size(); at < end; ++lines)
        {
            const auto* const newline =
                static_cast<const char*>(std::memchr(at, '\n', static_cast<std::size_t>(end - at)));
            const char* const last = newline == nullptr ? end : newline;
            for (wchar_t* to = line; at < last; ++at, ++to)
                *to = static_cast<unsigned char>(*at);
            benchmark::DoNotOptimize(line);
            at = last + 1;
        }
    }
    benchmark::DoNotOptimize(lines);
    CountBytes(state, text.size());
}

Result Discard(const char* bytes, std::size_t size, void* context)
{
    benchmark::DoNotOptimize(bytes);
    *static_cast<std::size_t*>(context) += size;
    return 1;
}

void SaveAse(benchmark::State& state, std::size_t bytes)
{
    CFileFormat_Ase document;
    Load(document, GetScene(bytes));
    std::size_t written = 0;
    for (auto _ : state)
    {
        written = 0;
        CFile_Saver saver;
        saver.OpenSink(Discard, &written);
        document.Save(&saver);
        saver.Close();
    }
    CountBytes(state, written);
}

/// The numbers of the document's lines, handed to `line` with how many there are and whether they are floats.
template <class TLine> void ForEachLine(const CFileFormat_Ase& document, TLine line)
{
    const auto vector = [&](const CMath_Vector3& v) { line(v); };
    for (const CFileFormat_Ase::CASEGeomObject& object : document.GeomObjects)
    {
        for (const CMath_Vector3& vertex : object.mesh.vertices)
            vector(vertex);
        for (const CMath_Vector3& vertex : object.mesh.tvertices)
            vector(vertex);
        for (const CFileFormat_Ase::CASEMesh::SFaceNormals& normals : object.mesh.facenormals)
        {
            vector(normals.normal);
            vector(normals.vnormala);
            vector(normals.vnormalb);
            vector(normals.vnormalc);
        }
    }
}

/// Our saver on the vector lines alone, to stand beside the two below.
void SaveVectors(benchmark::State& state, std::size_t bytes)
{
    CFileFormat_Ase document;
    Load(document, GetScene(bytes));
    std::size_t written = 0;
    for (auto _ : state)
    {
        written = 0;
        CFile_Saver saver;
        saver.OpenSink(Discard, &written);
        ForEachLine(document, [&](const CMath_Vector3& v) { WriteLine(&saver, L"addvertex: %f %f %f", v); });
        saver.Close();
    }
    CountBytes(state, written);
}

void WriteWithToChars(benchmark::State& state, std::size_t bytes)
{
    CFileFormat_Ase document;
    Load(document, GetScene(bytes));
    std::size_t written = 0;
    for (auto _ : state)
    {
        written = 0;
        char line[256] = "addvertex:";
        ForEachLine(document,
                    [&](const CMath_Vector3& v)
                    {
                        char* at = line + 10;
                        for (const float number : {v.x, v.y, v.z})
                        {
                            *at++ = ' ';
                            at = std::to_chars(at, line + sizeof(line), number, std::chars_format::fixed, 6).ptr;
                        }
                        *at++ = '\n';
                        benchmark::DoNotOptimize(line);
                        written += static_cast<std::size_t>(at - line);
                    });
    }
    CountBytes(state, written);
}

void WriteWithSwprintf(benchmark::State& state, std::size_t bytes)
{
    CFileFormat_Ase document;
    Load(document, GetScene(bytes));
    std::size_t written = 0;
    for (auto _ : state)
    {
        written = 0;
        wchar_t line[256];
        ForEachLine(document,
                    [&](const CMath_Vector3& v)
                    {
                        const int length = std::swprintf(line, std::size(line), L"addvertex: %f %f %f\n", double{v.x},
                                                         double{v.y}, double{v.z});
                        benchmark::DoNotOptimize(line);
                        written += static_cast<std::size_t>(length);
                    });
    }
    CountBytes(state, written);
}

void Register(const char* name, const SBenchSize& size, void (*function)(benchmark::State&, std::size_t))
{
    benchmark::RegisterBenchmark((std::string(name) + "/" + size.name).c_str(),
                                 [function, &size](benchmark::State& state) { function(state, size.bytes); })
        ->Unit(benchmark::kMillisecond)
        ->UseRealTime();
}
} // namespace

void RegisterAseBenchmarks()
{
    for (const SBenchSize& size : BenchSizes)
    {
        Register("Ase/load", size, LoadAse);
#if defined(HAVE_ASSIMP)
        Register("Ase/load with Assimp", size, LoadAssimp);
#endif
        Register("Ase/widen only", size, WidenOnly);
        Register("Ase/save", size, SaveAse);
        Register("Ase/save vectors", size, SaveVectors);
        Register("Ase/save vectors with to_chars", size, WriteWithToChars);
        Register("Ase/save vectors with swprintf", size, WriteWithSwprintf);
    }
}
