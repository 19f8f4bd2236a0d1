/// Shows that growing an array by its fixed step costs the same per element however long it gets: fills
/// arrays, and std::vector beside them, with elements of 48 bytes. Ends with 1 when an element of a long array
/// costs more than three times one of a short array. Needs no package, so that it runs on every system.
#include "formats/ase/ase_mesh.h"

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <limits>
#include <vector>

namespace
{
using SElement = CFileFormat_AseRecords::SMeshFaceNormals;
static_assert(sizeof(SElement) == 48);

constexpr std::uint32_t ShortLength = 30'000;
constexpr std::uint32_t LongLength = 300'000;
constexpr double MostGrowth = 3;

void Check(bool isright)
{
    if (isright)
        return;
    std::fputs("the array does not hold what was put into it\n", stderr);
    std::exit(1);
}

void FillArray(std::uint32_t length)
{
    TArray<SElement> array;
    for (std::uint32_t i = 0; i < length; ++i)
        array.Add()->normal.x = static_cast<float>(i);
    Check(array.NumItems == length && array[length / 2]->normal.x == static_cast<float>(length / 2));
}

void FillVector(std::uint32_t length)
{
    std::vector<SElement> vector;
    for (std::uint32_t i = 0; i < length; ++i)
        vector.emplace_back().normal.x = static_cast<float>(i);
    Check(vector.size() == length && vector[length / 2].normal.x == static_cast<float>(length / 2));
}

/// Nanoseconds per element in the best of several rounds, which the machine's other work disturbs least.
double Measure(void (*fill)(std::uint32_t), std::uint32_t length)
{
    using Clock = std::chrono::steady_clock;
    constexpr int rounds = 20;
    double best = std::numeric_limits<double>::max();
    for (int round = 0; round < rounds; ++round)
    {
        const Clock::time_point start = Clock::now();
        fill(length);
        const std::chrono::duration<double, std::nano> time = Clock::now() - start;
        best = std::min(best, time.count() / length);
    }
    return best;
}

double MeasureGrowth(const char* name, void (*fill)(std::uint32_t))
{
    const double atshort = Measure(fill, ShortLength);
    const double atlong = Measure(fill, LongLength);
    std::printf("%-12s %6.1f ns per element at %u, %6.1f ns at %u: %.2f times\n", name, atshort, ShortLength, atlong,
                LongLength, atlong / atshort);
    return atlong / atshort;
}
} // namespace

int main()
{
    MeasureGrowth("std::vector", FillVector);
    return MeasureGrowth("TArray", FillArray) <= MostGrowth ? 0 : 1;
}
