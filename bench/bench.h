/// What the benchmarks share: input sizes and texts, the check of the result, the registration.
#pragma once

#include "grid_text.h"
#include "roads.h"

#include <benchmark/benchmark.h>

#include <cstdint>
#include <span>
#include <string>
#include <utility>

/// A size of input: bytes of text or elements. The sizes of text that every reader is measured at follow. Names of
/// benchmarks end in them, so that a filter picks one: "/small" is quick enough for every change.
struct SBenchSize
{
    const char* name;
    std::size_t size;
};
inline constexpr SBenchSize BenchSizes[] = {
    {"small", 1'000'000}, {"7MB", 7'000'000}, {"70MB", 70'000'000}, {"400MB", 400'000'000}};

/// A text of that size. Only the last one asked for is kept, as they are large.
const SGridText& GetScene(std::size_t bytes);
const SGridText& GetMesh(std::size_t bytes);

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

/// Times a road (see roads.h), which must come to so many faces.
template <class TRoad> void MeasureRoad(benchmark::State& state, std::size_t faces, TRoad road)
{
    for (auto _ : state)
    {
        auto made = road();
        state.PauseTiming();
        const bool isright = CountFaces(*made) == faces;
        {
            const auto gone = std::move(made);
        }
        state.ResumeTiming();
        if (FailUnless(state, isright, "not every face was read"))
            break;
    }
}

/// Times a road from a text, which must come to all its faces.
template <class TRoad> void MeasureText(benchmark::State& state, const SGridText& text, TRoad road)
{
    MeasureRoad(state, text.faces, [&] { return road(text.text); });
    CountBytes(state, text.text.size());
}

/// The most memory the process has held since the last call, in bytes; 0 where that cannot be told.
std::size_t TakePeakMemory();

/// Registers a benchmark that is given `size`.
using BenchFunction = void (*)(benchmark::State& state, std::size_t size);
void Register(const std::string& name, std::size_t size, BenchFunction function);

/// Registers each of the benchmarks at each of the sizes, "name/size": all of a size together, as they share its text.
struct SBenchmark
{
    const char* name;
    BenchFunction function;
};
void RegisterEach(std::span<const SBenchmark> benchmarks, std::span<const SBenchSize> sizes = BenchSizes);

/// Each file registers its benchmarks in one function, called from main.
void RegisterAseBenchmarks();
void RegisterModelBenchmarks();
void RegisterEnvelopeBenchmarks();
void RegisterXBenchmarks();
void RegisterContainerBenchmarks();
