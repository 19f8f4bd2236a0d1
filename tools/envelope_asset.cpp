/// Skin envelopes for asset_tool.
#include "formats/envelope/envelope.h"
#include "tools/asset.h"
#include "tools/describe.h"

#include <cmath>
#include <map>
#include <string>

using CBone = CFileFormat_Envelope::CEnvelopeBone;
using CVertex = CFileFormat_Envelope::CEnvelopeVertexData;

static void WriteFields(CJsonWriter& json, const CFileFormat_Envelope::CEnvelopeBoneCrossection& section)
{
    json.Field("inner0", section.inner0);
    json.Field("outer0", section.outer0);
    json.Field("u0", section.u0);
    json.Field("inner1", section.inner1);
    json.Field("outer1", section.outer1);
    json.Field("u1", section.u1);
}

static void WriteFields(CJsonWriter& json, const CBone& bone)
{
    json.Field("boneName", bone.boneName);
    json.Field("boneID", bone.boneID);
    json.Field("boneFlagLock", bone.boneFlagLock);
    json.Field("boneFlagAbsolute", bone.boneFlagAbsolute);
    json.Field("boneFlagSpline", bone.boneFlagSpline);
    json.Field("boneFlagSplineClosed", bone.boneFlagSplineClosed);
    json.Field("boneFlagDrawEnveloe", bone.boneFlagDrawEnveloe);
    json.Field("boneFlagIsOldBone", bone.boneFlagIsOldBone);
    json.Field("boneFlagDead", bone.boneFlagDead);
    json.Field("boneFalloff", bone.boneFalloff);
    json.Field("boneStartPoint", bone.boneStartPoint);
    json.Field("boneEndPoint", bone.boneEndPoint);
    json.Field("crossSection", bone.crossSection);
}

static void WriteFields(CJsonWriter& json, const CVertex::SWeight& pair)
{
    json.Field("bone", pair.bone);
    json.Field("weight", pair.weight);
}

static void WriteFields(CJsonWriter& json, const CVertex& vertex)
{
    json.Field("vertexIsModified", vertex.vertexIsModified);
    json.Field("vertexIsRigid", vertex.vertexIsRigid);
    json.Field("vertexIsRigidHandle", vertex.vertexIsRigidHandle);
    json.Field("vertexIsUnNormalized", vertex.vertexIsUnNormalized);
    json.Field("vertexLocalPosition", vertex.vertexLocalPosition);
    json.Field("vertexWeightCount", vertex.vertexWeightCount);
    json.Key("vertexWeight");
    json.StartArray();
    for (const CVertex::SWeight& pair : vertex.GetWeights())
        json.Value(pair);
    json.EndArray();
}

static void WriteFields(CJsonWriter& json, const CFileFormat_Envelope& document)
{
    json.Field("ver", document.ver);
    json.Field("bones", document.bones);
    json.Field("nodeCount", document.nodeCount);
    json.Field("baseNodeName", document.baseNodeName);
    json.Field("vertices", document.vertices);
    json.Key("exclusionLists");
    json.StartArray();
    for (const CFileFormat_Envelope::CEnvelopeVertexExclusionList& list : document.exclusionLists)
    {
        json.StartArray();
        for (const unsigned long index : list.excludedVerts)
            json.Value(static_cast<std::uint32_t>(index));
        json.EndArray();
    }
    json.EndArray();
}

namespace
{
/// What vertices say about one bone.
struct SBoneUse
{
    unsigned long vertices = 0;
    unsigned long excluded = 0;
    double weights = 0.0;
};

/// What an exclusion leaves of a weight. The lists themselves cannot tell whom they exclude any more: they go by
/// the ids that the bones had before the gaps were closed.
bool IsExcluded(const CVertex::SWeight& pair)
{
    return pair.weight == 0.0001F;
}

/// Weights come with two digits or more, so their sum is out by half of the last one each at the most. A vertex
/// that is excluded from a bone has lost that bone's share.
void CheckWeights(const CVertex& vertex, CSuspicions& suspicions)
{
    double sum = 0.0;
    for (const CVertex::SWeight& pair : vertex.GetWeights())
    {
        if (IsExcluded(pair))
            return;
        sum += double{pair.weight};
    }
    if (vertex.vertexWeightCount == 0)
        suspicions.Add("vertices", "there are no weights");
    else if (!(std::fabs(sum - 1.0) < 0.001 + 0.005 * vertex.vertexWeightCount))
        suspicions.Add("vertices", "the weights do not sum to about 1");
}

class CEnvelopeAsset : public TDocumentAsset<CFileFormat_Envelope>
{
  public:
    void Describe(std::ostream& out) const override
    {
        CSuspicions suspicions;
        std::map<std::uint32_t, SBoneUse> uses;
        for (const CVertex& vertex : document.vertices)
        {
            CheckWeights(vertex, suspicions);
            for (const CVertex::SWeight& pair : vertex.GetWeights())
            {
                SBoneUse& use = uses[pair.bone];
                ++use.vertices;
                use.excluded += IsExcluded(pair) ? 1 : 0;
                use.weights += double{pair.weight};
            }
        }
        const unsigned long vertices = document.vertices.GetNumItems();
        out << "version " << document.ver << ", node " << Name(document.baseNodeName) << ", " << vertices
            << (vertices == 1 ? " vertex" : " vertices") << '\n';
        PrintBones(out, uses, suspicions);
        PrintExclusions(out, suspicions);
        suspicions.Print(out);
    }

    void WriteJson(CJsonWriter& json) const override
    {
        json.Value(document);
    }

  private:
    void PrintBones(std::ostream& out, std::map<std::uint32_t, SBoneUse>& uses, CSuspicions& suspicions) const
    {
        out << Count(document.bones.GetNumItems(), "bone") << '\n';
        std::map<std::uint32_t, unsigned> ids;
        for (const CBone& bone : document.bones)
        {
            const SBoneUse& use = uses[bone.boneID];
            out << "  " << bone.boneID << ' ' << Name(bone.boneName) << ": weighs " << use.vertices
                << (use.vertices == 1 ? " vertex" : " vertices") << ", sum " << use.weights << ", " << use.excluded
                << " excluded\n";
            if (++ids[bone.boneID] == 2)
                suspicions.Add("bone " + std::to_string(bone.boneID), "several bones have this id");
        }
        for (const auto& [id, use] : uses)
            if (!ids.contains(id))
                suspicions.Add("weights", "they name a bone that is not there");
    }

    void PrintExclusions(std::ostream& out, CSuspicions& suspicions) const
    {
        unsigned long entries = 0;
        for (const CFileFormat_Envelope::CEnvelopeVertexExclusionList& list : document.exclusionLists)
        {
            entries += list.excludedVerts.GetNumItems();
            for (const unsigned long index : list.excludedVerts)
                if (index >= document.vertices.GetNumItems())
                    suspicions.Add("exclusion lists", "an entry names no vertex");
        }
        out << Count(document.exclusionLists.GetNumItems(), "exclusion list") << " with " << entries
            << (entries == 1 ? " entry" : " entries") << '\n';
    }
};

constexpr std::string_view Endings[] = {".envascii", ".env"};

bool Recognises(CFile_Parser& parser, unsigned mostlines)
{
    static constexpr const wchar_t* words[] = {
        L"numberBones",          L"[boneName]",        L"[boneID]",     L"[baseNodeName]",
        L"vertexLocalPosition",  L"vertexWeightCount", L"vertexWeight", L"[exclusionListForBone",
        L"exclusionVertexCount", L"excludedVerts",     L"ver"};
    return HasLineWithWord(parser, mostlines, words);
}
} // namespace

const SAssetFormat EnvelopeAssetFormat = {"envelope", "a skin envelope", Endings, Recognises,
                                          []() -> std::unique_ptr<CAsset>
                                          { return std::make_unique<CEnvelopeAsset>(); }};
