/// Runs the benchmarks: asset_bench --benchmark_filter=Ase, and what else Google Benchmark takes.
#include "bench.h"
#include "grid_scene.h"
#include "grid_x.h"

#include <cstdio>
#include <utility>

namespace
{
template <class TMake> const SGridText& GetGrid(std::size_t bytes, TMake make)
{
    static std::pair<std::size_t, SGridText> grid;
    if (grid.first != bytes)
    {
        grid = {};
        grid = {bytes, make(bytes)};
    }
    return grid.second;
}
} // namespace

const SGridText& GetScene(std::size_t bytes)
{
    return GetGrid(bytes, [](std::size_t size) { return MakeGridScene(size); });
}

const SGridText& GetMesh(std::size_t bytes)
{
    return GetGrid(bytes, MakeGridX);
}

void Register(const std::string& name, std::size_t size, BenchFunction function)
{
    benchmark::RegisterBenchmark(name.c_str(), function, size)->Unit(benchmark::kMillisecond)->UseRealTime();
}

void RegisterEach(std::span<const SBenchmark> benchmarks, std::span<const SBenchSize> sizes)
{
    for (const SBenchSize& size : sizes)
        for (const SBenchmark& benchmark : benchmarks)
            Register(std::string(benchmark.name) + '/' + size.name, size.size, benchmark.function);
}

std::size_t TakePeakMemory()
{
    std::size_t kilobytes = 0;
    if (std::FILE* const status = std::fopen("/proc/self/status", "r"))
    {
        char line[256];
        while (std::fgets(line, sizeof(line), status) != nullptr)
            if (std::sscanf(line, "VmHWM: %zu", &kilobytes) == 1)
                break;
        std::fclose(status);
    }
    if (std::FILE* const reset = std::fopen("/proc/self/clear_refs", "w"))
    {
        std::fputs("5", reset);
        std::fclose(reset);
    }
    return kilobytes * 1024;
}

int main(int argc, char** argv)
{
    benchmark::Initialize(&argc, argv);
    if (benchmark::ReportUnrecognizedArguments(argc, argv))
        return 1;
    RegisterAseBenchmarks();
    RegisterModelBenchmarks();
    RegisterEnvelopeBenchmarks();
    RegisterXBenchmarks();
    RegisterContainerBenchmarks();
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
    return 0;
}
