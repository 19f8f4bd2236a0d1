#include "formats/modelbuild/material_indices.h"

#include <algorithm>
#include <iterator>
#include <limits>

namespace
{
template <class TVisit> void VisitIndices(CGraphics_Model& model, TVisit visit)
{
    for (CGraphics_Model::CGeometry* const geometry : model.Geometries)
        for (SGraphics_Face& face : geometry->Mesh.Faces)
            visit(face.Material);
}

std::size_t CountFaces(const CGraphics_Model& model)
{
    std::size_t count = 0;
    for (const CGraphics_Model::CGeometry* const geometry : model.Geometries)
        count += geometry->Mesh.Faces.NumItems;
    return count;
}

/// The distinct indices among those offered, in order. Only the smallest ones, when there is no memory for all.
class CDistinctIndices
{
  public:
    /// mostoffers: how often Add will be called at most.
    explicit CDistinctIndices(std::size_t mostoffers)
    {
        // One place more than is ever taken, so that the block never counts as full.
        block = static_cast<std::uint32_t*>(ObtainBlock((mostoffers + 1) * sizeof(std::uint32_t)));
        items = block != nullptr ? block : inside;
        capacity = block != nullptr ? mostoffers + 1 : std::size(inside);
    }

    CDistinctIndices(const CDistinctIndices&) = delete;
    CDistinctIndices& operator=(const CDistinctIndices&) = delete;

    ~CDistinctIndices()
    {
        ReleaseBlock(block);
    }

    void Add(std::uint32_t index)
    {
        const std::size_t place = FindPlace(index);
        if (!Accepts(index) || (place != sorted && items[place] == index))
            return;
        items[count++] = index;
        // Sorting again only when half is new keeps the cost of all sorting at n log n.
        if (count == capacity || count - sorted > std::max<std::size_t>(sorted, 32))
            Sort();
    }

    /// After the last Add.
    void Finish()
    {
        Sort();
    }

    /// False for an index that was too large to find a place; true for all that were offered else.
    bool Accepts(std::uint32_t index) const
    {
        return index <= largest;
    }

    bool IsComplete() const
    {
        return largest == std::numeric_limits<std::uint32_t>::max();
    }

    std::uint32_t GetCount() const
    {
        return static_cast<std::uint32_t>(count);
    }

    /// How many of the distinct indices are smaller, after Finish.
    std::uint32_t GetRank(std::uint32_t index) const
    {
        return static_cast<std::uint32_t>(FindPlace(index));
    }

  private:
    /// How many of the sorted items are smaller. No comparison becomes a branch: on indices in no order each
    /// branch would be mispredicted half of the time.
    std::size_t FindPlace(std::uint32_t index) const
    {
        if (sorted == 0)
            return 0;
        const std::uint32_t* first = items;
        for (std::size_t length = sorted; length > 1;)
        {
            const std::size_t half = length / 2;
            first += half * static_cast<std::size_t>(first[half - 1] < index);
            length -= half;
        }
        return static_cast<std::size_t>(first - items) + (*first < index ? 1 : 0);
    }

    void Sort()
    {
        const bool isfull = count == capacity;
        std::sort(items, items + count);
        count = static_cast<std::size_t>(std::unique(items, items + count) - items);
        if (isfull && count > capacity / 2)
        {
            count = capacity / 2;
            largest = items[count - 1];
        }
        sorted = count;
    }

    std::uint32_t inside[256];
    std::uint32_t* block;
    std::uint32_t* items;
    std::size_t capacity;
    std::size_t count = 0;
    std::size_t sorted = 0; ///< How many of the first items are in order and distinct.
    std::uint32_t largest = std::numeric_limits<std::uint32_t>::max();
};

/// What was found for some of the indices looked up so far, so that the few of most models are looked up once each.
class CRecentNumbers
{
  public:
    CRecentNumbers()
    {
        // An index that belongs elsewhere stands for none.
        for (std::uint32_t i = 0; i < std::size(places); ++i)
            places[i].index = i + 1;
    }

    /// The number of the index; find(index) when it is not known.
    template <class TFind> std::uint32_t Get(std::uint32_t index, TFind find)
    {
        SPlace& place = places[index % std::size(places)];
        if (place.index != index)
            place = {index, find(index)};
        return place.number;
    }

  private:
    struct SPlace
    {
        std::uint32_t index;
        std::uint32_t number;
    };
    SPlace places[64];
};
} // namespace

std::uint32_t RenumberMaterialIndices(CGraphics_Model& model)
{
    const std::size_t faces = CountFaces(model);
    std::uint32_t numbered = 0;
    for (bool iscomplete = false; !iscomplete;)
    {
        // Every new index is below `numbered` and every old one is not: at least that many are smaller.
        CDistinctIndices distinct(faces);
        const auto add = [&](std::uint32_t index)
        {
            distinct.Add(index);
            return index;
        };
        CRecentNumbers added;
        VisitIndices(model,
                     [&](std::uint32_t index)
                     {
                         if (index >= numbered)
                             added.Get(index, add);
                     });
        distinct.Finish();
        const auto number = [&](std::uint32_t index) { return numbered + distinct.GetRank(index); };
        CRecentNumbers numbers;
        VisitIndices(model,
                     [&](std::uint32_t& index)
                     {
                         if (index >= numbered && distinct.Accepts(index))
                             index = numbers.Get(index, number);
                     });
        numbered += distinct.GetCount();
        iscomplete = distinct.IsComplete();
    }
    return std::max<std::uint32_t>(numbered, 1);
}
