/// Prints how quick the roads are beside their peers: each pair is run in turn, so that the machine's other work
/// meets both, after one round that does not count; times are medians. One thread, from memory where no file is named.
///     asset_speed [MEGABYTES...]      sizes of the ASE text: 7, 70 and 400, which have targets; X texts are a quarter
/// Needs asset_tool beside it; leaves out the rows of what is not installed. Ends with 1 when a result is wrong,
/// not when one is late.
#include "apart.h"
#include "grid_scene.h"
#include "grid_x.h"
#include "roads.h"
#include "temporary_file.h"

#if defined(HAVE_ASSIMP)
#include <assimp/version.h>
#endif

#include <algorithm>
#include <array>
#include <chrono>
#include <cmath>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <list>
#include <map>
#include <span>
#include <stdexcept>
#include <vector>

namespace
{
constexpr double MB = 1e6;
constexpr std::array<double, 3> TargetSizes = {7, 70, 400};

struct SSample
{
    double seconds = 0;
    double peak = 0; ///< Bytes; of processes only.
};

/// Medians.
struct SPair
{
    SSample ours;
    SSample theirs;
};

/// What is measured at one size. The texts are made after the processes have run.
struct SInput
{
    double megabytes = 0;
    std::string tool;
    CTemporaryFile scenefile{".ase"};
    CTemporaryFile savedfile{".txt"};
    SGridText scene;
    SGridText x;
};

void Check(bool isright, const char* what)
{
    if (!isright)
        throw std::runtime_error(what);
}

double GetMedian(std::vector<SSample>& samples, double SSample::*member)
{
    const auto middle = samples.begin() + static_cast<std::ptrdiff_t>(samples.size() / 2);
    std::nth_element(samples.begin(), middle, samples.end(),
                     [&](const SSample& a, const SSample& b) { return a.*member < b.*member; });
    return (*middle).*member;
}

SSample GetMedians(std::vector<SSample>& samples)
{
    return {GetMedian(samples, &SSample::seconds), GetMedian(samples, &SSample::peak)};
}

/// Both are called once in vain, as memory that is touched for the first time is slow on a virtual machine.
template <class TOurs, class TTheirs> SPair Interleave(const SInput& input, TOurs ours, TTheirs theirs)
{
    const int rounds = input.megabytes < 200 ? 7 : 5;
    std::vector<SSample> oursamples;
    std::vector<SSample> theirsamples;
    ours();
    theirs();
    for (int i = 0; i < rounds; ++i)
    {
        oursamples.push_back(ours());
        theirsamples.push_back(theirs());
    }
    return {GetMedians(oursamples), GetMedians(theirsamples)};
}

/// Times `work`, has what it made checked and destroys it.
template <class TWork, class TCheck> SSample Time(TWork work, TCheck isright)
{
    const auto start = std::chrono::steady_clock::now();
    const auto made = work();
    const std::chrono::duration<double> time = std::chrono::steady_clock::now() - start;
    Check(isright(made), "a road led elsewhere");
    return {time.count(), 0};
}

/// A road that must come to so many faces.
template <class TRoad> auto Read(std::size_t faces, TRoad road)
{
    return [=] { return Time(road, [=](const auto& made) { return CountFaces(*made) == faces; }); };
}

#if defined(HAVE_ASSIMP)
SPair ReadAse(const SInput& in)
{
    return Interleave(in, Read(in.scene.faces, [&] { return LoadNew<CFileFormat_Ase>(in.scene.text); }),
                      Read(in.scene.faces, [&] { return ImportText(in.scene.text, "ase"); }));
}

SPair BuildAseText(const SInput& in)
{
    return Interleave(in, Read(in.scene.faces, [&] { return BuildFromText(in.scene.text); }),
                      Read(in.scene.faces, [&] { return ImportText(in.scene.text, "ase"); }));
}

SPair BuildAseFile(const SInput& in)
{
    return Interleave(in, Read(in.scene.faces, [&] { return BuildFromFile(in.scenefile.path); }),
                      Read(in.scene.faces, [&] { return ImportFile(in.scenefile.path); }));
}

SPair ReadX(const SInput& in)
{
    return Interleave(in, Read(in.x.faces, [&] { return LoadNew<CFileFormat_X>(in.x.text); }),
                      Read(in.x.faces, [&] { return ImportText(in.x.text, "x"); }));
}
#endif

SPair WriteText(const SInput& in)
{
    const auto document = LoadNew<CFileFormat_Ase>(in.scene.text);
    const std::size_t size = WriteWithToChars(*document);
    // What is no line of a mesh is less than a hundredth of the text.
    const auto isright = [=](std::size_t written) { return written >= size && written - size < size / 100; };
    return Interleave(
        in, [&] { return Time([&] { return SaveText(*document); }, isright); },
        [&] { return Time([&] { return WriteWithToChars(*document); }, isright); });
}

SPair ReadBesideWidening(const SInput& in)
{
    return Interleave(in, Read(in.scene.faces, [&] { return LoadNew<CFileFormat_Ase>(in.scene.text); }),
                      [&] {
                          return Time([&] { return WidenLines(in.scene.text); },
                                      [&](std::size_t lines) { return lines > in.scene.faces; });
                      });
}

template <class... TWords> SOutcome RunProgram(const char* program, const TWords*... words)
{
    return RunApart(
        [=]
        {
            if (std::freopen("/dev/null", "w", stdout) != nullptr && std::freopen("/dev/null", "w", stderr) != nullptr)
                execlp(program, program, words..., nullptr);
        });
}

template <class... TWords> SSample TakeProgram(const char* program, const TWords*... words)
{
    const SOutcome outcome = RunProgram(program, words...);
    Check(outcome.isdone, (std::string(program) + " failed").c_str());
    return {outcome.seconds, outcome.peak};
}

template <class... TWords> SPair ConvertBeside(const SInput& in, const TWords*... options)
{
    const char* const from = in.scenefile.path.c_str();
    const char* const to = in.savedfile.path.c_str();
    const auto convert = [&]
    {
        std::filesystem::remove(to);
        return TakeProgram(in.tool.c_str(), "convert", from, "-o", to);
    };
    return Interleave(in, convert, [&] { return TakeProgram("assimp", "info", from, options...); });
}

SPair Convert(const SInput& in)
{
    return ConvertBeside(in);
}

SPair ConvertBesideRaw(const SInput& in)
{
    return ConvertBeside(in, "--raw");
}

enum class EKind
{
    InProcess,
    Processes,
    ProcessMemory,
};

using MeasureFunction = SPair (*)(const SInput& input);

struct SRow
{
    const char* road;
    const char* against;
    EKind kind;
    MeasureFunction measure;
    bool isatmost; ///< The ratio is ours to theirs and the target its upper bound, else the other way round.
    std::array<double, 3> targets; ///< At TargetSizes; 0 is none.
};

constexpr SRow Rows[] = {
#if defined(HAVE_ASSIMP)
    {"ASE text to document", "Assimp, no post-processing", EKind::InProcess, ReadAse, false, {2, 2.2, 3}},
    {"ASE text to model", "the same", EKind::InProcess, BuildAseText, false, {1.7, 1.9, 2.6}},
    {"ASE file to model", "the same, from the file", EKind::InProcess, BuildAseFile, false, {0, 1.3, 2}},
    {"X text (a quarter of the size) to document", "Assimp", EKind::InProcess, ReadX, false, {4, 4, 4}},
#endif
    {"document to text", "`std::to_chars(fixed, 6)`", EKind::InProcess, WriteText, false, {2, 2, 2}},
    {"`asset_tool convert`, file to file", "`assimp info`", EKind::Processes, Convert, false, {1.5, 1.5, 2}},
    {"the same", "`assimp info --raw`", EKind::Processes, ConvertBesideRaw, false, {}},
    {"its peak memory", "`assimp info`", EKind::ProcessMemory, Convert, true, {0.8, 0.8, 0.8}},
    {"the same", "`assimp info --raw`", EKind::ProcessMemory, ConvertBesideRaw, true, {}},
    {"time of ASE text to document",
     "finding line ends and widening bytes",
     EKind::InProcess,
     ReadBesideWidening,
     true,
     {7, 7, 7}},
};

double GetTarget(const SRow& row, double megabytes)
{
    for (std::size_t i = 0; i < TargetSizes.size(); ++i)
        if (TargetSizes[i] == megabytes)
            return row.targets[i];
    return 0;
}

void PrintCell(const SRow& row, double megabytes, const SPair& pair)
{
    const bool ismemory = row.kind == EKind::ProcessMemory;
    const auto get = [&](const SSample& sample) { return ismemory ? sample.peak / MB : sample.seconds * 1000; };
    const double ours = get(pair.ours);
    const double theirs = get(pair.theirs);
    const double ratio = row.isatmost ? ours / theirs : theirs / ours;
    std::printf(" %.2f", ratio);
    if (const double target = GetTarget(row, megabytes); target != 0)
        std::printf(" (%s%s %g)", (row.isatmost ? ratio > target : ratio < target) ? "missed: " : "",
                    row.isatmost ? "≤" : "≥", target);
    const auto getdigits = [](double value) { return value < 10 ? 1 : 0; };
    std::printf(": %.*f / %.*f", getdigits(ours), ours, getdigits(theirs), theirs);
    std::printf(" %s |", ismemory ? "MB" : "ms");
}

using CResults = std::map<std::pair<MeasureFunction, const SInput*>, SPair>;

void Measure(CResults& results, const SInput& input, bool areprocesses)
{
    for (const SRow& row : Rows)
        if ((row.kind != EKind::InProcess) == areprocesses && !results.contains({row.measure, &input}))
        {
            if (isatty(STDERR_FILENO) == 1)
                std::fprintf(stderr, "%g MB: %s beside %s\n", input.megabytes, row.road, row.against);
            results[{row.measure, &input}] = row.measure(input);
        }
}

void Print(const CResults& results, const std::list<SInput>& inputs)
{
    std::printf("| Road | Against |");
    for (const SInput& input : inputs)
        std::printf(" %g MB |", input.megabytes);
    std::printf("\n|---|---|");
    for (std::size_t i = 0; i < inputs.size(); ++i)
        std::printf("---|");
    for (const SRow& row : Rows)
    {
        if (!results.contains({row.measure, &inputs.front()}))
            continue;
        std::printf("\n| %s | %s |", row.road, row.against);
        for (const SInput& input : inputs)
            PrintCell(row, input.megabytes, results.at({row.measure, &input}));
    }
    std::printf("\n");
}
std::size_t GetBytes(double megabytes)
{
    return static_cast<std::size_t>(megabytes * MB);
}

/// In a process of its own, as the text would be counted for those that this one starts afterwards.
void WriteScene(const SInput& input)
{
    const auto write = [&]
    {
        std::ofstream file(input.scenefile.path, std::ios::binary);
        file << MakeGridScene(GetBytes(input.megabytes)).text;
        file.close();
        _exit(file ? 0 : 1);
    };
    Check(RunApart(write).isdone, "cannot write a temporary file");
}

void PrintVersions()
{
#if defined(__clang__)
    const char* const compiler = "";
#else
    const char* const compiler = "g++ ";
#endif
    std::printf("\nBuilt with %s%s, ", compiler, __VERSION__);
#if defined(HAVE_ASSIMP)
    std::printf("beside Assimp %u.%u.%u\n", aiGetVersionMajor(), aiGetVersionMinor(), aiGetVersionPatch());
#else
    std::printf("without Assimp (libassimp-dev), whose rows are missing\n");
#endif
}

void MeasureAndPrint(const std::string& tool, std::span<const double> sizes)
{
    std::list<SInput> inputs;
    CResults results;
    const bool hasassimp = RunProgram("assimp", "version").isdone;
    for (const double size : sizes)
    {
        Check(size > 0 && size < 10'000, "a size is a number of megabytes");
        SInput& input = inputs.emplace_back();
        input.megabytes = size;
        input.tool = tool;
        WriteScene(input);
        if (hasassimp)
            Measure(results, input, true);
    }
    for (SInput& input : inputs)
    {
        input.scene = MakeGridScene(GetBytes(input.megabytes));
        input.x = MakeGridX(GetBytes(std::ceil(input.megabytes / 4.13))); // 2, 17 and 97 MB
        Measure(results, input, false);
        input.scene = {};
        input.x = {};
    }
    Print(results, inputs);
    if (!hasassimp)
        std::printf("\nNo assimp (assimp-utils) here: whole processes were not measured.\n");
    PrintVersions();
}
} // namespace

int main(int argc, char** argv)
{
    const std::filesystem::path folder = std::filesystem::path(argv[0]).parent_path();
    std::vector<double> sizes;
    for (int i = 1; i < argc; ++i)
        sizes.push_back(std::strtod(argv[i], nullptr));
    if (sizes.empty())
        sizes.assign(TargetSizes.begin(), TargetSizes.end());
    try
    {
        MeasureAndPrint((folder / "asset_tool").string(), sizes);
        return 0;
    }
    catch (const std::exception& error)
    {
        std::fprintf(stderr, "asset_speed: %s\n", error.what());
        return 1;
    }
}
