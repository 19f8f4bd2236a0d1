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

using SWeight = CFileFormat_Envelope::CEnvelopeVertexData::SWeight;

/// The exporter writes "bone,weight", the weight with the decimal sign of its country: where a second comma
/// stands among the first five characters it is one.
void TurnDecimalComma(wchar_t* text)
{
    unsigned commas = 0;
    for (unsigned i = 0; i < 5 && text[i] != L'\0'; ++i)
        if (text[i] == L',' && ++commas == 2)
        {
            text[i] = L'.';
            return;
        }
}

/// Reads "bone,weight". What does not parse keeps its value.
void ScanWeight(const wchar_t* text, SWeight& pair)
{
    std::int32_t bone = 0;
    if (!ScanInteger(text, bone))
        return;
    pair.bone = static_cast<std::uint32_t>(bone);
    if (*text++ == L',')
        ScanFloat(text, pair.weight);
}

/// Heaviest first; pairs of one weight keep their order. There are few, and mostly they are sorted.
void SortWeights(std::span<SWeight> weights)
{
    for (std::size_t i = 1; i < weights.size(); ++i)
        for (std::size_t j = i; j > 0 && weights[j].weight > weights[j - 1].weight; --j)
            std::swap(weights[j], weights[j - 1]);
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
    auto* const line = static_cast<wchar_t*>(ObtainBlock(LineCapacity * sizeof(wchar_t)));
    while (line != nullptr && parser->GetLine(line, LineCapacity) == 1)
    {
        rest = line;
        ReadLine();
    }
    ReleaseBlock(line);
}

/// No two keywords are alike and none but "[vertex" is the beginning of another's word, so the first letter
/// may choose which are tried. What follows "numberBones", "switchbones:", "[Vertex Data]", "vertexCount" and
/// "vertexSplineData" is not kept.
void CEnvelopeReader::ReadLine()
{
    rest += SkipBlanks(rest) - rest;
    wordlength = static_cast<std::size_t>(FindWordEnd(rest) - rest);
    switch (*rest)
    {
    case L'[':
        return ReadHeading();
    case L'b':
        return ReadBoneLine();
    case L'v':
        return ReadVertexLine();
    case L'n':
        return ReadNodeLine();
    case L'e':
        return ReadExclusionLine();
    default:
        return;
    }
}

void CEnvelopeReader::ReadHeading()
{
    if (RecognizeString(L"[vertex", rest) != 0)
        BeginVertex();
    else if (Strip(L"[boneName]"))
        BeginBone();
    else if (Strip(L"[exclusionListForBone"))
        BeginExclusionList();
    else if (bone == nullptr || !Read(L"[boneID]", bone->boneID))
        Read(L"[baseNodeName]", document.baseNodeName);
}

void CEnvelopeReader::ReadBoneLine()
{
    if (bone == nullptr)
        return;
    CFileFormat_Envelope::CEnvelopeBoneCrossection& section = bone->crossSection;
    (void)(Read(L"boneFlagLock", bone->boneFlagLock) || Read(L"boneFlagAbsolute", bone->boneFlagAbsolute) ||
           Read(L"boneFlagSpline", bone->boneFlagSpline) || Read(L"boneFlagSplineClosed", bone->boneFlagSplineClosed) ||
           Read(L"boneFlagDrawEnveloe", bone->boneFlagDrawEnveloe) ||
           Read(L"boneFlagIsOldBone", bone->boneFlagIsOldBone) || Read(L"boneFlagDead", bone->boneFlagDead) ||
           Read(L"boneFalloff", bone->boneFalloff) || Read(L"boneStartPoint", bone->boneStartPoint) ||
           Read(L"boneEndPoint", bone->boneEndPoint) || Read(L"boneCrossSectionInner0", section.inner0) ||
           Read(L"boneCrossSectionOuter0", section.outer0) || Read(L"boneCrossSectionU0", section.u0) ||
           Read(L"boneCrossSectionInner1", section.inner1) || Read(L"boneCrossSectionOuter1", section.outer1) ||
           Read(L"boneCrossSectionU1", section.u1));
}

void CEnvelopeReader::ReadVertexLine()
{
    if (Read(L"ver", document.ver) || vertex == nullptr)
        return;
    if (Strip(L"vertexWeight"))
        ReadWeights();
    else if (Strip(L"vertexWeightCount"))
        ReadWeightCount();
    else
        (void)(Read(L"vertexIsModified", vertex->vertexIsModified) || Read(L"vertexIsRigid", vertex->vertexIsRigid) ||
               Read(L"vertexIsRigidHandle", vertex->vertexIsRigidHandle) ||
               Read(L"vertexIsUnNormalized", vertex->vertexIsUnNormalized) ||
               Read(L"vertexLocalPosition", vertex->vertexLocalPosition));
}

void CEnvelopeReader::ReadNodeLine()
{
    Read(L"nodeCount", document.nodeCount);
}

void CEnvelopeReader::ReadExclusionLine()
{
    if (Read(L"exclusionVertexCount", exclusioncount))
        PrintMessage("excluded vertices = ", exclusioncount, "\n");
    else if (exclusions != nullptr && Strip(L"excludedVerts"))
        ReadExcludedVertices();
}

// A slot that an array hands out may still hold what stood there before, so each record is begun anew.

void CEnvelopeReader::BeginBone()
{
    bone = document.bones.Add();
    if (bone == nullptr)
        return;
    *bone = CFileFormat_Envelope::CEnvelopeBone();
    Scan(bone->boneName);
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

void CEnvelopeReader::ReadWeightCount()
{
    auto count = static_cast<std::int32_t>(vertex->vertexWeightCount);
    Scan(count);
    constexpr auto most = static_cast<std::int32_t>(CFileFormat_Envelope::CEnvelopeVertexData::MostWeights);
    vertex->vertexWeightCount = static_cast<std::uint32_t>(std::clamp(count, 0, most));
}

void CEnvelopeReader::ReadWeights()
{
    const std::span<SWeight> weights = vertex->GetWeights();
    for (SWeight& pair : weights)
    {
        TurnDecimalComma(rest);
        ScanWeight(rest, pair);
        StripWord();
    }
    SortWeights(weights);
}

void CEnvelopeReader::ReadExcludedVertices()
{
    constexpr unsigned mostmissing = 1000;
    const std::int32_t count = std::exchange(exclusioncount, 0);
    const auto index = static_cast<std::int32_t>(document.exclusionLists.GetNumItems() - 1);

    // Each number takes a digit and a blank, so the line itself bounds how many there can be.
    const std::size_t most = std::wcslen(rest) / 2 + 1;
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
        missing += ReadExcludedVertex() ? 0 : 1;
    }
}

/// Reads one number from the front of the line and removes its word; false when there was none.
bool CEnvelopeReader::ReadExcludedVertex()
{
    constexpr std::int32_t watchedlist = 61; // its entries are told one by one
    const wchar_t* text = rest;
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
    else if (IsWhiteSpace(rest) && Log->Accepts(1))
    {
        wchar_t shown[64] = {};
        std::wcsncpy(shown, rest, std::size(shown) - 1);
        Log->Write(1, L"error!!!");
        Log->Write(1, L"string = [%s]", shown);
    }
    StripWord();
    return isread;
}

/// Whether the line's first word is the keyword, which is then removed with the blanks behind it.
bool CEnvelopeReader::Strip(SKeyword keyword)
{
    if (keyword.length != wordlength || std::wmemcmp(keyword.text, rest, wordlength) != 0)
        return false;
    rest += SkipBlanks(rest + wordlength) - rest;
    return true;
}

void CEnvelopeReader::StripWord()
{
    rest += SkipBlanks(FindWordEnd(rest)) - rest;
}

template <class T> bool CEnvelopeReader::Read(SKeyword keyword, T& value)
{
    if (!Strip(keyword))
        return false;
    Scan(value);
    return true;
}

void CEnvelopeReader::Scan(std::int32_t& value)
{
    const wchar_t* text = rest;
    ScanInteger(text, value);
}

void CEnvelopeReader::Scan(std::uint32_t& value)
{
    auto number = static_cast<std::int32_t>(value);
    Scan(number);
    value = static_cast<std::uint32_t>(number);
}

void CEnvelopeReader::Scan(float& value)
{
    const wchar_t* text = rest;
    ScanFloat(text, value);
}

/// Exporters write points with the decimal sign of their country, so every comma is one.
void CEnvelopeReader::Scan(CMath_Vector3& vector)
{
    for (wchar_t* at = rest; *at != L'\0'; ++at)
        if (*at == L',')
            *at = L'.';
    const wchar_t* text = rest;
    (void)(ScanFloat(text, vector.x) && ScanFloat(text, vector.y) && ScanFloat(text, vector.z));
}

void CEnvelopeReader::Scan(CSys_String& text)
{
    text.Write(L"%s", rest);
}
