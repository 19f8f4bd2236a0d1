/// What the benchmarks share: input sizes, peers, and the check that comes before the timing.
#pragma once

#include <benchmark/benchmark.h>

#include <cstdint>
#include <string>

/// The sizes of text that every reader is measured at. Names of benchmarks end in them, so that a filter
/// picks one: "/small" is quick enough for every change.
struct SBenchSize
{
    const char* name;
    std::size_t bytes;
};
inline constexpr SBenchSize BenchSizes[] = {
    {"small", 1'000'000}, {"7MB", 7'000'000}, {"70MB", 70'000'000}, {"400MB", 400'000'000}};

/// Ends a benchmark whose result is not what it should be; true when it did.
inline bool FailUnless(benchmark::State& state, bool isright, const char* what)
{
    if (!isright)
        state.SkipWithError(what);
    return !isright;
}

/// Counts the bytes of the text that every round went through.
inline void CountBytes(benchmark::State& state, std::size_t bytes)
{
    state.SetBytesProcessed(static_cast<std::int64_t>(bytes) * static_cast<std::int64_t>(state.iterations()));
}

/// The most memory the process has held since the last call, in bytes; 0 where that cannot be told.
std::size_t TakePeakMemory();

/// Each file registers its benchmarks in one function, called from main.
void RegisterAseBenchmarks();
void RegisterModelBenchmarks();
void RegisterEnvelopeBenchmarks();
void RegisterXBenchmarks();
void RegisterContainerBenchmarks();
