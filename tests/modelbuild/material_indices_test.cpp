#include "formats/modelbuild/model_from_ase.h"
#include "tests/support/documents.h"
#include "tests/support/material_indices.h"

#include <gtest/gtest.h>

#include <random>
#include <vector>

namespace
{
/// A build from an empty scene renumbers what the model has.
void ExpectRanks(const CMaterialIndices& first, const CMaterialIndices& second, bool hasmemory = true)
{
    CGraphics_Model model;
    AddFaces(model, first);
    AddFaces(model, {});
    AddFaces(model, second);
    CMaterialIndices ranks = GetIndices(model);
    const std::uint32_t count = Rank(ranks);
    CFileFormat_Ase document;
    FailAllocations(0, hasmemory ? 0 : ~0ULL);
    EXPECT_EQ(CreateModelFromASE(model, document, 1.0F), 1);
    FailAllocations(0, 0);
    EXPECT_EQ(GetIndices(model), ranks);
    EXPECT_TRUE(!hasmemory || model.MaterialLists[0]->Materials.NumItems == count);
}
} // namespace

TEST(MaterialIndices, BecomeRanksAmongAllFacesOfTheModel)
{
    std::mt19937 random(7);
    for (int round = 0; round < 300; ++round)
    {
        CMaterialIndices indices[2];
        for (CMaterialIndices& some : indices)
            for (auto count = random() % 12; count != 0; --count)
                some.push_back(static_cast<std::uint32_t>(random() % (1 + random() % 40)));
        ExpectRanks(indices[0], indices[1]);
    }
}

/// Many distinct values, in orders that are hard on sorting, and without memory to sort them in.
TEST(MaterialIndices, AreDenseWhateverTheirOrderAndTheMemory)
{
    std::mt19937 random(11);
    CMaterialIndices ascending(1500);
    for (std::size_t i = 0; i < ascending.size(); ++i)
        ascending[i] = static_cast<std::uint32_t>(i * 2863311 + 5);
    const CMaterialIndices descending(ascending.rbegin(), ascending.rend());
    CMaterialIndices shuffled;
    for (int i = 0; i < 4000; ++i)
        shuffled.push_back(ascending[random() % ascending.size()]);
    for (const CMaterialIndices& indices : {ascending, descending, shuffled})
        for (const bool hasmemory : {true, false})
            ExpectRanks(indices, {}, hasmemory);
}
