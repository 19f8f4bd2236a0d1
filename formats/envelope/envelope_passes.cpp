#include "formats/envelope/envelope_passes.h"

#include "formats/envelope/envelope_messages.h"

#include <algorithm>
#include <functional>
#include <utility>

namespace
{
constexpr float ExcludedWeight = 0.0001F; // not 0: the bone stays named by the vertex

using CBone = CFileFormat_Envelope::CEnvelopeBone;
using CVertex = CFileFormat_Envelope::CEnvelopeVertexData;

template <class T> bool Append(TArray<T>& list, T value)
{
    T* const slot = list.Add();
    if (slot != nullptr)
        *slot = value;
    return slot != nullptr;
}

/// The ids that weights name, and what becomes of all ids when the others are taken out.
class CIdsInUse
{
  public:
    /// Gathers the ids below the limit that the vertices' weights name. False when there is no memory.
    bool Gather(const TArray<CVertex>& vertices, std::uint64_t newlimit)
    {
        // Most weights name one of a few bones: an id that was gathered lately is not gathered again.
        std::uint64_t lately[256];
        std::fill(std::begin(lately), std::end(lately), newlimit);
        limit = newlimit;
        for (const CVertex& vertex : vertices)
            for (const CVertex::SWeight& pair : vertex.GetWeights())
            {
                std::uint64_t& last = lately[pair.bone % std::size(lately)];
                if (pair.bone >= limit || pair.bone == last)
                    continue;
                last = pair.bone;
                if (!Append(ids, pair.bone))
                    return false;
            }
        std::sort(ids.begin(), ids.end());
        ids.NumItems = static_cast<std::uint32_t>(std::unique(ids.begin(), ids.end()) - ids.begin());
        return true;
    }

    bool AreAllInUse() const
    {
        return ids.NumItems == limit;
    }

    bool IsInUse(std::uint32_t id) const
    {
        return std::binary_search(ids.begin(), ids.end(), id);
    }

    /// The first id in use at or above `id`, or the limit.
    std::uint64_t FindNext(std::uint32_t id) const
    {
        const std::uint32_t* const next = std::lower_bound(ids.begin(), ids.end(), id);
        return next != ids.end() ? *next : limit;
    }

    /// What an id is called afterwards. An id that was taken out gets the number of the next one above it,
    /// which moved into its place; ids from the limit on keep their distance to it.
    std::uint32_t Renumber(std::uint32_t id) const
    {
        if (id >= limit)
            return id - static_cast<std::uint32_t>(limit - ids.NumItems);
        return static_cast<std::uint32_t>(std::lower_bound(ids.begin(), ids.end(), id) - ids.begin());
    }

  private:
    TArray<std::uint32_t> ids; // sorted, each once
    std::uint64_t limit = 0;
};

struct SUnnamedBone
{
    std::uint32_t id = 0;
    std::uint32_t index = 0;

    bool operator<(const SUnnamedBone& other) const
    {
        return id != other.id ? id < other.id : index < other.index;
    }
};

/// Finds the bones that go; `removed` then has their indices in ascending order. False without memory.
///
/// Taking out the ids of a run of unnamed ones from below moves the bones of the whole run, one step an id, to
/// the number of the run's first. Each step takes the first in file order of those that stand there by then.
/// So one walk over the bones sorted by id, with those that wait in a heap, tells which are taken; where none
/// waits the walk goes on at the next bone, however far that is. At the end of the run those that still wait
/// share the number of the id behind it and stay.
bool FindRemovedBones(const TArray<CBone>& bones, const CIdsInUse& used, TArray<std::uint32_t>& removed)
{
    TArray<SUnnamedBone> unnamed;
    for (std::uint32_t i = 0; i < bones.NumItems; ++i)
        if (!used.IsInUse(bones[i]->boneID) && !Append(unnamed, SUnnamedBone{bones[i]->boneID, i}))
            return false;
    std::sort(unnamed.begin(), unnamed.end());

    TArray<std::uint32_t> waiting;
    for (const SUnnamedBone* next = unnamed.begin(); next != unnamed.end();)
    {
        const std::uint64_t runend = used.FindNext(next->id);
        waiting.Reset();
        for (std::uint64_t id = next->id; id < runend; ++id)
        {
            for (; next != unnamed.end() && next->id == id; ++next)
            {
                if (!Append(waiting, next->index))
                    return false;
                std::push_heap(waiting.begin(), waiting.end(), std::greater<>());
            }
            if (waiting.NumItems == 0)
                break;
            std::pop_heap(waiting.begin(), waiting.end(), std::greater<>());
            if (!Append(removed, *waiting.GetLast()))
                return false;
            --waiting.NumItems;
        }
    }
    std::sort(removed.begin(), removed.end());
    return true;
}

void RemoveBones(TArray<CBone>& bones, const TArray<std::uint32_t>& removed)
{
    const std::uint32_t* next = removed.begin();
    std::uint32_t kept = 0;
    for (std::uint32_t i = 0; i < bones.NumItems; ++i)
        if (next != removed.end() && *next == i)
            ++next;
        else if (kept++ != i)
            *bones[kept - 1] = std::move(*bones[i]);
    bones.NumItems = kept;
}
} // namespace

void ApplyExclusions(CFileFormat_Envelope& document)
{
    for (std::uint32_t i = 0; i < document.exclusionLists.NumItems; ++i)
    {
        const TArray<unsigned long>& list = document.exclusionLists[i]->excludedVerts;
        const auto bone = static_cast<std::int32_t>(i);
        PrintMessage("num excluded vertices: ", bone, " = ", static_cast<std::int32_t>(list.NumItems), "\n");
        for (const unsigned long index : list)
        {
            if (index >= document.vertices.GetNumItems())
                continue;
            std::int32_t place = 0;
            for (CVertex::SWeight& pair : document.vertices[index]->GetWeights())
            {
                if (pair.bone == i)
                {
                    pair.weight = ExcludedWeight;
                    PrintMessage("excluding vertex ", bone, " -> ", place, ": ", static_cast<std::int32_t>(index),
                                 "\n");
                }
                ++place;
            }
        }
    }
}

void PruneBones(CFileFormat_Envelope& document)
{
    std::uint32_t topid = 0;
    for (const CBone& bone : document.bones)
        topid = std::max(topid, bone.boneID);

    CIdsInUse used;
    TArray<std::uint32_t> removed;
    if (!used.Gather(document.vertices, std::uint64_t{topid} + 1) || used.AreAllInUse() ||
        !FindRemovedBones(document.bones, used, removed))
        return;
    RemoveBones(document.bones, removed);
    for (CBone& bone : document.bones)
        bone.boneID = used.Renumber(bone.boneID);
    for (CVertex& vertex : document.vertices)
        for (CVertex::SWeight& pair : vertex.GetWeights())
            pair.bone = used.Renumber(pair.bone);
}
