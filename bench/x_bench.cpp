/// X meshes: load beside Assimp.
#include "bench.h"

namespace
{
constexpr SBenchSize XSizes[] = {{"small", 2'000'000}, {"17MB", 17'000'000}, {"97MB", 97'000'000}};

void LoadX(benchmark::State& state, std::size_t bytes)
{
    const SGridText& mesh = GetMesh(bytes);
    MeasureRoad(state, mesh.faces, [&] { return LoadNew<CFileFormat_X>(mesh.text); });
    CountBytes(state, mesh.text.size());
}

#if defined(HAVE_ASSIMP)
void LoadAssimp(benchmark::State& state, std::size_t bytes)
{
    const SGridText& mesh = GetMesh(bytes);
    MeasureRoad(state, mesh.faces, [&] { return ImportText(mesh.text, "x"); });
    CountBytes(state, mesh.text.size());
}
#endif
} // namespace

void RegisterXBenchmarks()
{
    for (const SBenchSize& size : XSizes)
    {
        Register(std::string("X/load/") + size.name, size.bytes, LoadX);
#if defined(HAVE_ASSIMP)
        Register(std::string("X/load with Assimp/") + size.name, size.bytes, LoadAssimp);
#endif
    }
}
