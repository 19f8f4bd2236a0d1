/// Skin envelopes: load, and the two passes behind it.
#include "bench.h"
#include "formats/envelope/envelope.h"

#include <cstdio>
#include <memory>

#if !defined(_WIN32)
#include <fcntl.h>
#include <unistd.h>
#endif

namespace
{
/// While it lives, what the reader prints goes where it does not stand among the figures.
class CQuietStandardOutput
{
  public:
#if defined(_WIN32)
    CQuietStandardOutput() = default;
#else
    CQuietStandardOutput()
    {
        std::fflush(stdout);
        const int null = open("/dev/null", O_WRONLY);
        dup2(null, STDOUT_FILENO);
        close(null);
    }
    ~CQuietStandardOutput()
    {
        std::fflush(stdout);
        dup2(former, STDOUT_FILENO);
        close(former);
    }
#endif
    CQuietStandardOutput(const CQuietStandardOutput&) = delete;
    CQuietStandardOutput& operator=(const CQuietStandardOutput&) = delete;

#if !defined(_WIN32)
  private:
    int former = dup(STDOUT_FILENO);
#endif
};

/// Bones are numbered with a gap that the loader has to close.
std::size_t GetBoneId(std::size_t index)
{
    return index < 40 ? index : index + 3;
}

void Bone(std::string& text, std::size_t id)
{
    Line(text, "[boneName] Bip01 Bone%zu", id);
    Line(text, "[boneID] %zu", id);
    for (const char* flag : {"Lock", "Absolute", "Spline", "SplineClosed", "DrawEnveloe", "IsOldBone", "Dead"})
        Line(text, "\tboneFlag%s 0", flag);
    Line(text, "\tboneFalloff 2");
    Line(text, "\tboneStartPoint %zu.125000 0.000000 1.500000", id);
    Line(text, "\tboneEndPoint %zu.125000 0.000000 1.500000", id + 1);
    Line(text, "\tboneCrossSectionCount 2");
    for (int i = 0; i < 2; ++i)
    {
        Line(text, "\tboneCrossSectionInner%d 1.250000", i);
        Line(text, "\tboneCrossSectionOuter%d 2.500000", i);
        Line(text, "\tboneCrossSectionU%d 0.%d00000", i, 1 + i * 8);
    }
}

void Vertex(std::string& text, std::size_t index, std::size_t bones)
{
    const std::size_t bone = index * 7 % (bones - 1);
    Line(text, "[vertex%zu]", index);
    Line(text, "\tvertexIsModified 0");
    Line(text, "\tvertexIsRigid 0");
    Line(text, "\tvertexIsRigidHandle 0");
    Line(text, "\tvertexIsUnNormalized 0");
    Line(text, "\tvertexLocalPosition %zu.%06zu -%zu.031250 0.%06zu", index % 97, index * 31 % 1'000'000, index % 13,
         index * 17 % 1'000'000);
    Line(text, "\tvertexWeightCount 3");
    Line(text, "\tvertexWeight %zu,0.125000 %zu,0.625000 %zu,0.250000", GetBoneId(bone), GetBoneId(bone + 1),
         GetBoneId((bone + 5) % bones));
    Line(text, "\tvertexSplineData 0 0.000000 0.000000");
}

/// A character of 80 bones as the exporter lays it out, with points; one vertex in fifty is excluded from the
/// bone it weighs on most.
std::string MakeEnvelope(std::size_t bytes)
{
    constexpr std::size_t bones = 80;
    std::string text;
    text.reserve(bytes + bytes / 8);
    Line(text, "ver 3");
    Line(text, "numberBones %zu", bones);
    for (std::size_t i = 0; i < bones; ++i)
        Bone(text, GetBoneId(i));
    Line(text, "[Vertex Data]");
    Line(text, "nodeCount 1");
    Line(text, "[baseNodeName] Body");
    std::size_t vertices = 0;
    for (; text.size() < bytes; ++vertices)
        Vertex(text, vertices, bones);
    for (std::size_t i = 0; i < bones; ++i)
    {
        Line(text, "[exclusionListForBone %zu]", i);
        const std::size_t excluded = vertices / bones / 50;
        Line(text, "\texclusionVertexCount %zu", excluded);
        std::string list = "\texcludedVerts";
        for (std::size_t j = 0; j < excluded; ++j)
            list.append(" ").append(std::to_string((i + j * 83) % vertices));
        text.append(list) += "\r\n";
    }
    return text;
}

/// Half of the bones named by a weight, ids with gaps, in no order: what pruning has most to do with.
std::string MakeGaps(std::size_t bones)
{
    std::string text;
    for (std::size_t i = 0; i < bones; ++i)
    {
        const std::size_t id = i * 7919 % bones * 20'000;
        Line(text, "[boneName] b");
        Line(text, "[boneID] %zu", id);
        if (i % 2 == 0)
        {
            Line(text, "[vertex");
            Line(text, "vertexWeightCount 1");
            Line(text, "vertexWeight %zu,1", id);
        }
    }
    return text;
}

void LoadEnvelope(benchmark::State& state, const std::string& text, unsigned long bones)
{
    const CQuietStandardOutput quiet;
    for (auto _ : state)
    {
        auto document = std::make_unique<CFileFormat_Envelope>();
        Load(*document, text);
        benchmark::DoNotOptimize(document->vertices.Items);
        state.PauseTiming();
        const bool isread = document->bones.GetNumItems() == bones;
        document.reset();
        state.ResumeTiming();
        if (FailUnless(state, isread, "not the bones that are named"))
            break;
    }
    CountBytes(state, text.size());
}

/// The passes alone: an empty text read into a document that is full, with the gap in the ids opened again.
void RunPasses(benchmark::State& state, std::size_t bytes)
{
    const CQuietStandardOutput quiet;
    CFileFormat_Envelope full;
    const std::string text = MakeEnvelope(bytes);
    Load(full, text);
    for (auto _ : state)
    {
        state.PauseTiming();
        for (auto& bone : full.bones)
            bone.boneID = static_cast<std::uint32_t>(GetBoneId(bone.boneID));
        for (auto& vertex : full.vertices)
            for (auto& pair : vertex.GetWeights())
                pair.bone = static_cast<std::uint32_t>(GetBoneId(pair.bone));
        state.ResumeTiming();
        Load(full, "");
    }
    CountBytes(state, text.size());
}

} // namespace

void RegisterEnvelopeBenchmarks()
{
    const BenchFunction load = [](benchmark::State& state, std::size_t bytes)
    { LoadEnvelope(state, MakeEnvelope(bytes), 80); };
    Register("Envelope/load/small", 1'000'000, load);
    Register("Envelope/load/70MB", 70'000'000, load);
    Register("Envelope/passes/70MB", 70'000'000, RunPasses);
    Register("Envelope/prune 100,000 bones with gaps", 100'000,
             [](benchmark::State& state, std::size_t bones) { LoadEnvelope(state, MakeGaps(bones), bones / 2); });
}
