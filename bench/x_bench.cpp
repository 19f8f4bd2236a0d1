/// X meshes: load beside Assimp.
#include "bench.h"

namespace
{
constexpr SBenchSize XSizes[] = {{"small", 2'000'000}, {"17MB", 17'000'000}, {"97MB", 97'000'000}};

void LoadX(benchmark::State& state, std::size_t bytes)
{
    MeasureText(state, GetMesh(bytes), LoadNew<CFileFormat_X>);
}

#if defined(HAVE_ASSIMP)
void LoadAssimp(benchmark::State& state, std::size_t bytes)
{
    MeasureText(state, GetMesh(bytes), [](const std::string& text) { return ImportText(text, "x"); });
}
#endif
} // namespace

void RegisterXBenchmarks()
{
    constexpr SBenchmark benchmarks[] = {
        {"X/load", LoadX},
#if defined(HAVE_ASSIMP)
        {"X/load with Assimp", LoadAssimp},
#endif
    };
    RegisterEach(benchmarks, XSizes);
}
