#include "formats/modelbuild/model_from_ase.h"
#include "tests/support/documents.h"
#include "tests/support/material_indices.h"

#include <gtest/gtest.h>

#include <random>
#include <vector>

namespace
{
using CIndices = CMaterialIndices;

/// A build from an empty scene renumbers what the model has. Returns the number of materials.
std::uint32_t Renumber(CGraphics_Model& model)
{
    CFileFormat_Ase document;
    EXPECT_EQ(CreateModelFromASE(model, document, 1.0F), 1);
    return model.MaterialLists[0]->Materials.NumItems;
}
} // namespace

TEST(MaterialIndices, BecomeRanksAmongAllFacesOfTheModel)
{
    CGraphics_Model model;
    AddFaces(model, {7, 3});
    AddFaces(model, {});
    AddFaces(model, {12, 7});
    EXPECT_EQ(Renumber(model), 3U);
    EXPECT_EQ(GetIndices(model), (CIndices{1, 0, 2, 1}));
}

TEST(MaterialIndices, AgreeWithTheSlowSteps)
{
    std::mt19937 random(7);
    for (int round = 0; round < 300; ++round)
    {
        CIndices indices(random() % 12);
        for (std::uint32_t& index : indices)
            index = static_cast<std::uint32_t>(random() % (1 + random() % 40));
        CGraphics_Model model;
        AddFaces(model, indices);
        const std::uint32_t materials = Renumber(model);
        EXPECT_EQ(materials, RenumberStepByStep(indices));
        EXPECT_EQ(GetIndices(model), indices);
    }
}

/// Many distinct values, in orders that are hard on sorting, and without memory to sort them in.
TEST(MaterialIndices, AreDenseWhateverTheirOrderAndTheMemory)
{
    std::mt19937 random(11);
    CIndices ascending(1500);
    for (std::size_t i = 0; i < ascending.size(); ++i)
        ascending[i] = static_cast<std::uint32_t>(i * 2863311 + 5);
    CIndices descending(ascending.rbegin(), ascending.rend());
    CIndices shuffled;
    for (int i = 0; i < 4000; ++i)
        shuffled.push_back(ascending[random() % ascending.size()]);
    for (const CIndices& indices : {ascending, descending, shuffled})
        for (const bool hasmemory : {true, false})
        {
            CGraphics_Model model;
            AddFaces(model, indices);
            CFileFormat_Ase document;
            FailAllocations(0, hasmemory ? 0 : ~0ULL);
            EXPECT_EQ(CreateModelFromASE(model, document, 1.0F), 1);
            FailAllocations(0, 0);
            EXPECT_EQ(GetIndices(model), Rank(indices));
        }
}
