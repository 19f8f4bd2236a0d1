/// Pruning of bones that no weight names, by the document and by the rule it follows.
#pragma once

#include "formats/envelope/envelope.h"
#include "tests/support/documents.h"

#include <algorithm>
#include <cstdint>
#include <ostream>
#include <string>
#include <vector>

/// What pruning reads and changes.
struct SSkin
{
    struct SBone
    {
        std::uint32_t name;
        std::uint32_t id;

        bool operator==(const SBone&) const = default;
    };
    std::vector<SBone> bones;
    std::vector<std::vector<std::uint32_t>> vertices; ///< The ids that the weights name.

    bool operator==(const SSkin&) const = default;
};

inline std::ostream& operator<<(std::ostream& out, const SSkin& skin)
{
    for (const SSkin::SBone& bone : skin.bones)
        out << 'b' << bone.name << '=' << bone.id << ' ';
    for (const auto& vertex : skin.vertices)
    {
        out << '(';
        for (const std::uint32_t id : vertex)
            out << id << ' ';
        out << ')';
    }
    return out;
}

/// The rule: a flag for each id up to the greatest; as long as one is not set, the lowest such id is taken out,
/// with the first bone that has it, and everything above it is lowered.
inline void PruneSlowly(SSkin& skin)
{
    std::uint64_t top = 0;
    for (const SSkin::SBone& bone : skin.bones)
        top = std::max<std::uint64_t>(top, bone.id);
    std::vector<int> flags(top + 1);
    for (;;)
    {
        std::fill(flags.begin(), flags.end(), 0);
        for (const auto& vertex : skin.vertices)
            for (const std::uint32_t id : vertex)
                if (id < flags.size())
                    flags[id] = 1;
        const auto unset = std::find(flags.begin(), flags.end(), 0);
        if (unset == flags.end())
            return;
        const auto id = static_cast<std::uint32_t>(unset - flags.begin());
        flags.erase(unset);
        const auto bone = std::find_if(skin.bones.begin(), skin.bones.end(),
                                       [id](const SSkin::SBone& candidate) { return candidate.id == id; });
        if (bone != skin.bones.end())
            skin.bones.erase(bone);
        for (SSkin::SBone& other : skin.bones)
            other.id -= other.id > id ? 1 : 0;
        for (auto& vertex : skin.vertices)
            for (std::uint32_t& other : vertex)
                other -= other > id ? 1 : 0;
    }
}

/// The same skin as a document's text prunes it. Bones are told apart by their falloff.
inline SSkin PruneDocument(const SSkin& skin)
{
    std::string text;
    for (const SSkin::SBone& bone : skin.bones)
        text += "[boneName]\n[boneID] " + std::to_string(static_cast<std::int32_t>(bone.id)) + "\nboneFalloff " +
                std::to_string(bone.name) + '\n';
    for (const auto& vertex : skin.vertices)
    {
        text += "[vertex]\nvertexWeightCount " + std::to_string(vertex.size()) + "\nvertexWeight";
        for (const std::uint32_t id : vertex)
            text += ' ' + std::to_string(static_cast<std::int32_t>(id)) + ",0";
        text += '\n';
    }
    CFileFormat_Envelope document;
    LoadText(document, text);
    SSkin pruned;
    for (const CFileFormat_Envelope::CEnvelopeBone& bone : document.bones)
        pruned.bones.push_back({static_cast<std::uint32_t>(bone.boneFalloff), bone.boneID});
    for (const CFileFormat_Envelope::CEnvelopeVertexData& vertex : document.vertices)
    {
        pruned.vertices.emplace_back();
        for (const auto& pair : vertex.GetWeights())
            pruned.vertices.back().push_back(pair.bone);
    }
    return pruned;
}
