/// ASE scenes: load beside Assimp, save beside the plain way of writing the same lines.
#include "bench.h"

namespace
{
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
    const SGridText& scene = GetScene(bytes);
    const std::size_t lists = CountListBytes(*LoadNew<CFileFormat_Ase>(scene.text));
    TakePeakMemory();
    const std::size_t before = TakePeakMemory();
    MeasureText(state, scene, LoadNew<CFileFormat_Ase>);
    if (const std::size_t peak = TakePeakMemory(); peak > before)
        state.counters["memory/lists"] = static_cast<double>(peak - before) / static_cast<double>(lists);
}

#if defined(HAVE_ASSIMP)
void LoadAssimp(benchmark::State& state, std::size_t bytes)
{
    MeasureText(state, GetScene(bytes), [](const std::string& text) { return ImportText(text, "ase"); });
}
#endif

void WidenOnly(benchmark::State& state, std::size_t bytes)
{
    const SGridText& scene = GetScene(bytes);
    for (auto _ : state)
        benchmark::DoNotOptimize(WidenLines(scene.text));
    CountBytes(state, scene.text.size());
}

template <class TWrite> void Write(benchmark::State& state, std::size_t bytes, TWrite write)
{
    const auto document = LoadNew<CFileFormat_Ase>(GetScene(bytes).text);
    std::size_t written = 0;
    for (auto _ : state)
        written = write(*document);
    CountBytes(state, written);
}
} // namespace

void RegisterAseBenchmarks()
{
    constexpr SBenchmark benchmarks[] = {
        {"Ase/load", LoadAse},
#if defined(HAVE_ASSIMP)
        {"Ase/load with Assimp", LoadAssimp},
#endif
        {"Ase/widen only", WidenOnly},
        {"Ase/save", [](benchmark::State& state, std::size_t bytes) { Write(state, bytes, SaveText); }},
        {"Ase/save with to_chars",
         [](benchmark::State& state, std::size_t bytes) { Write(state, bytes, WriteWithToChars); }},
    };
    RegisterEach(benchmarks);
}
