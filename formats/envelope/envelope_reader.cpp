#include "formats/envelope/envelope_reader.h"

#include "core/file_saver.h"
#include "core/memory_manager.h"
#include "core/numbers.h"
#include "formats/envelope/envelope_messages.h"

#include <algorithm>
#include <cwchar>
#include <utility>

namespace
{
constexpr unsigned long LineCapacity = 65536; // weights and exclusions may all stand on one line

using SVertex = CFileFormat_Envelope::CEnvelopeVertexData;
using SWeight = SVertex::SWeight;

/// Heaviest first; pairs of one weight keep their order. There are few, and mostly they are sorted.
void SortWeights(std::span<SWeight> weights)
{
    for (std::size_t i = 1; i < weights.size(); ++i)
        for (std::size_t j = i; j > 0 && weights[j].weight > weights[j - 1].weight; --j)
            std::swap(weights[j], weights[j - 1]);
}

template <class TLine> bool ReadWeightCount(TLine& line, SVertex& vertex)
{
    auto count = static_cast<std::int32_t>(vertex.vertexWeightCount);
    line.Scan(count);
    vertex.vertexWeightCount =
        static_cast<std::uint32_t>(std::clamp(count, 0, static_cast<std::int32_t>(SVertex::MostWeights)));
    return true;
}

template <class TLine> bool ReadWeights(TLine& line, SVertex& vertex)
{
    const std::span<SWeight> weights = vertex.GetWeights();
    for (SWeight& pair : weights)
        if (!line.ScanWeight(pair))
            return false;
    SortWeights(weights);
    return true;
}

/// Reads a line of a vertex, in a buffer or in place; false when it is none, or not plain.
template <class TLine> bool ReadVertexField(TLine& line, SVertex& vertex)
{
    if (line.Strip(L"vertexWeight"))
        return ReadWeights(line, vertex);
    if (line.Strip(L"vertexWeightCount"))
        return ReadWeightCount(line, vertex);
    return line.Read(L"vertexIsModified", vertex.vertexIsModified) ||
           line.Read(L"vertexIsRigid", vertex.vertexIsRigid) ||
           line.Read(L"vertexIsRigidHandle", vertex.vertexIsRigidHandle) ||
           line.Read(L"vertexIsUnNormalized", vertex.vertexIsUnNormalized) ||
           line.Read(L"vertexLocalPosition", vertex.vertexLocalPosition);
}

bool IsWhiteSpace(const wchar_t* text)
{
    while (*text == L' ' || (*text >= L'\t' && *text <= L'\r'))
        ++text;
    return *text == L'\0';
}
} // namespace

void CEnvelopeReader::Read()
{
    auto* const text = static_cast<wchar_t*>(ObtainBlock(LineCapacity * sizeof(wchar_t)));
    while (text != nullptr && parser->GetLine(text, LineCapacity) == 1)
    {
        CEnvelopeLine line(text);
        ReadLine(line);
        ReadPlainVertices();
    }
    ReleaseBlock(text);
}

/// No two keywords are alike and none but "[vertex" is the beginning of another's word, so the first letter
/// may choose which are tried. What follows "numberBones", "switchbones:", "[Vertex Data]", "vertexCount" and
/// "vertexSplineData" is not kept.
void CEnvelopeReader::ReadLine(CEnvelopeLine& line)
{
    switch (*line.GetRest())
    {
    case L'[':
        return ReadHeading(line);
    case L'b':
        return ReadBoneLine(line);
    case L'v':
        return ReadVertexLine(line);
    case L'n':
        return ReadNodeLine(line);
    case L'e':
        return ReadExclusionLine(line);
    default:
        return;
    }
}

void CEnvelopeReader::ReadHeading(CEnvelopeLine& line)
{
    if (RecognizeString(L"[vertex", line.GetRest()) != 0)
        BeginVertex();
    else if (line.Strip(L"[boneName]"))
        BeginBone(line);
    else if (line.Strip(L"[exclusionListForBone"))
        BeginExclusionList();
    else if (bone == nullptr || !line.Read(L"[boneID]", bone->boneID))
        line.Read(L"[baseNodeName]", document.baseNodeName);
}

void CEnvelopeReader::ReadBoneLine(CEnvelopeLine& line)
{
    if (bone == nullptr)
        return;
    CFileFormat_Envelope::CEnvelopeBoneCrossection& section = bone->crossSection;
    (void)(line.Read(L"boneFlagLock", bone->boneFlagLock) || line.Read(L"boneFlagAbsolute", bone->boneFlagAbsolute) ||
           line.Read(L"boneFlagSpline", bone->boneFlagSpline) ||
           line.Read(L"boneFlagSplineClosed", bone->boneFlagSplineClosed) ||
           line.Read(L"boneFlagDrawEnveloe", bone->boneFlagDrawEnveloe) ||
           line.Read(L"boneFlagIsOldBone", bone->boneFlagIsOldBone) || line.Read(L"boneFlagDead", bone->boneFlagDead) ||
           line.Read(L"boneFalloff", bone->boneFalloff) || line.Read(L"boneStartPoint", bone->boneStartPoint) ||
           line.Read(L"boneEndPoint", bone->boneEndPoint) || line.Read(L"boneCrossSectionInner0", section.inner0) ||
           line.Read(L"boneCrossSectionOuter0", section.outer0) || line.Read(L"boneCrossSectionU0", section.u0) ||
           line.Read(L"boneCrossSectionInner1", section.inner1) ||
           line.Read(L"boneCrossSectionOuter1", section.outer1) || line.Read(L"boneCrossSectionU1", section.u1));
}

void CEnvelopeReader::ReadVertexLine(CEnvelopeLine& line)
{
    if (!line.Read(L"ver", document.ver) && vertex != nullptr)
        ReadVertexField(line, *vertex);
}

/// Reads the lines that follow in place, as long as they are of vertices and plain.
void CEnvelopeReader::ReadPlainVertices()
{
    for (CPlainEnvelopeLines line(parser); vertex != nullptr && line.NextLine();)
    {
        const bool beginsvertex = line.BeginsWith(L"[vertex");
        if (beginsvertex)
            line.StripWord();
        else if (line.Strip(L"vertexSplineData"))
            line.PassNumbers();
        else if (!ReadVertexField(line, *vertex))
            return;
        if (!line.EndLine())
            return;
        if (beginsvertex)
            BeginVertex();
    }
}

void CEnvelopeReader::ReadNodeLine(CEnvelopeLine& line)
{
    line.Read(L"nodeCount", document.nodeCount);
}

void CEnvelopeReader::ReadExclusionLine(CEnvelopeLine& line)
{
    if (line.Read(L"exclusionVertexCount", exclusioncount))
        PrintMessage("excluded vertices = ", exclusioncount, "\n");
    else if (exclusions != nullptr && line.Strip(L"excludedVerts"))
        ReadExcludedVertices(line);
}

// A slot that an array hands out may still hold what stood there before, so each record is begun anew.

void CEnvelopeReader::BeginBone(CEnvelopeLine& line)
{
    bone = document.bones.Add();
    if (bone == nullptr)
        return;
    *bone = CFileFormat_Envelope::CEnvelopeBone();
    line.Scan(bone->boneName);
}

void CEnvelopeReader::BeginVertex()
{
    vertex = document.vertices.Add();
    if (vertex == nullptr)
        return;
    *vertex = CFileFormat_Envelope::CEnvelopeVertexData();
    vertex->vertexWeight[0].weight = 1.0F;
}

void CEnvelopeReader::BeginExclusionList()
{
    exclusions = document.exclusionLists.Add();
    if (exclusions != nullptr)
        exclusions->excludedVerts.DeleteAll();
    PrintMessage("exclusion list added\n");
}

void CEnvelopeReader::ReadExcludedVertices(CEnvelopeLine& line)
{
    constexpr unsigned mostmissing = 1000;
    const std::int32_t count = std::exchange(exclusioncount, 0);
    const auto index = static_cast<std::int32_t>(document.exclusionLists.GetNumItems() - 1);

    // Each number takes a digit and a blank, so the line itself bounds how many there can be.
    const std::size_t most = std::wcslen(line.GetRest()) / 2 + 1;
    const std::size_t expected = std::min(static_cast<std::size_t>(std::max(count, 0)), most);
    exclusions->excludedVerts.CreateMultiple(static_cast<unsigned long>(expected + 1));
    exclusions->excludedVerts.Reset();
    if (Log->Accepts(1))
        Log->Write(1, L"exclude list: %d (%d)", index, count);

    unsigned missing = 0;
    for (std::int32_t i = 0; i < count; ++i)
    {
        if (missing == mostmissing)
        {
            parser->Report(2, L"%d excluded vertices cannot stand in this line, %u are read", count,
                           exclusions->excludedVerts.NumItems);
            return;
        }
        missing += ReadExcludedVertex(line) ? 0 : 1;
    }
}

/// Reads one number from the front of the line and removes its word; false when there was none.
bool CEnvelopeReader::ReadExcludedVertex(CEnvelopeLine& line)
{
    constexpr std::int32_t watchedlist = 61; // its entries are told one by one
    const wchar_t* text = line.GetRest();
    std::int32_t number = 0;
    const bool isread = ScanInteger(text, number);
    if (isread)
    {
        if (unsigned long* const entry = exclusions->excludedVerts.Add())
        {
            *entry = static_cast<std::uint32_t>(number);
            if (document.exclusionLists.GetNumItems() - 1 == watchedlist && Log->Accepts(1))
                Log->Write(1, L"exclude: %d -> %d", watchedlist, number);
        }
    }
    else if (IsWhiteSpace(line.GetRest()) && Log->Accepts(1))
    {
        wchar_t shown[64] = {};
        std::wcsncpy(shown, line.GetRest(), std::size(shown) - 1);
        Log->Write(1, L"error!!!");
        Log->Write(1, L"string = [%s]", shown);
    }
    line.StripWord();
    return isread;
}
