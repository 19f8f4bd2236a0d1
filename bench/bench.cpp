/// Runs the benchmarks: asset_bench --benchmark_filter=Ase, and what else Google Benchmark takes.
#include "bench.h"

#include <cstdio>
#include <cstring>

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
