#include "formats/modelbuild/model_from_ase.h"
#include "tests/support/documents.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <random>
#include <set>
#include <vector>

namespace
{
using CIndices = std::vector<std::uint32_t>;

/// Appends a geometry whose faces have these material indices.
void AddFaces(CGraphics_Model& model, const CIndices& indices)
{
    CGraphics_Mesh& mesh = model.Geometries.Add()->Mesh;
    for (const std::uint32_t index : indices)
        *mesh.Faces.Add() = {0, 0, 0, index};
}

CIndices GetIndices(const CGraphics_Model& model)
{
    CIndices indices;
    for (const CGraphics_Model::CGeometry* geometry : model.Geometries)
        for (const SGraphics_Face& face : geometry->Mesh.Faces)
            indices.push_back(face.Material);
    return indices;
}

/// A build from an empty scene renumbers what the model has. Returns the number of materials.
std::uint32_t Renumber(CGraphics_Model& model)
{
    CFileFormat_Ase document;
    EXPECT_EQ(CreateModelFromASE(model, document, 1.0F), 1);
    return model.MaterialLists[0]->Materials.NumItems;
}

/// The renumbering in its slow steps: shift down to 0, then close one gap after the other.
std::uint32_t RenumberStepByStep(CIndices& indices)
{
    if (indices.empty())
        return 1;
    while (*std::min_element(indices.begin(), indices.end()) != 0)
        for (std::uint32_t& index : indices)
            index -= index != 0 ? 1 : 0;
    for (std::uint32_t gap = 0; gap < *std::max_element(indices.begin(), indices.end());)
    {
        if (std::count(indices.begin(), indices.end(), gap) != 0)
        {
            ++gap;
            continue;
        }
        for (std::uint32_t& index : indices)
            index -= index > gap ? 1 : 0;
        gap = 0;
    }
    return *std::max_element(indices.begin(), indices.end()) + 1;
}

/// For values of any size: the rank of each.
CIndices Rank(const CIndices& indices)
{
    const std::set<std::uint32_t> distinct(indices.begin(), indices.end());
    CIndices ranks;
    for (const std::uint32_t index : indices)
        ranks.push_back(static_cast<std::uint32_t>(std::distance(distinct.begin(), distinct.find(index))));
    return ranks;
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

TEST(MaterialIndices, AreComparedUnsigned)
{
    CGraphics_Model model;
    AddFaces(model, {0xFFFFFFFF, 0, 4000000000U});
    EXPECT_EQ(Renumber(model), 3U);
    EXPECT_EQ(GetIndices(model), (CIndices{2, 0, 1}));
}

TEST(MaterialIndices, WithoutFacesThereIsOneMaterial)
{
    CGraphics_Model model;
    AddFaces(model, {});
    EXPECT_EQ(Renumber(model), 1U);
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
