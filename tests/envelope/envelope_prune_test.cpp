/// Pruning of bones that no weight names: compared with the rule it follows, carried out step by step.
#include "tests/support/envelope_skin.h"

#include <gtest/gtest.h>

#include <random>

TEST(EnvelopePrune, AgreesWithTheRuleOnRandomSkins)
{
    std::mt19937 random(20240229);
    const auto below = [&random](std::uint32_t limit) { return static_cast<std::uint32_t>(random() % limit); };
    for (int round = 0; round < 5000; ++round)
    {
        SSkin skin;
        const std::uint32_t ids = 1 + below(14);
        for (std::uint32_t i = below(12); i > 0; --i)
            skin.bones.push_back({i, below(ids)});
        for (std::uint32_t i = below(5); i > 0; --i)
        {
            skin.vertices.emplace_back();
            for (std::uint32_t j = below(4); j > 0; --j)
                skin.vertices.back().push_back(below(ids + 3));
        }
        const SSkin pruned = PruneDocument(skin);
        SSkin expected = skin;
        PruneSlowly(expected);
        ASSERT_EQ(pruned, expected) << "from " << skin;
    }
}

TEST(EnvelopePrune, HugeIdsCostNothing)
{
    // Three bones far apart: the last one's id is the flag list's end, the vertices name two of them and one id
    // that no bone has.
    const SSkin skin = {{{1, 2'000'000'000}, {2, 0xFFFFFFFF}, {3, 7}, {4, 1'999'999'999}},
                        {{2'000'000'000, 7}, {2'000'000'001}, {0xFFFFFFFF}}};
    const SSkin expected = {{{1, 1}, {2, 3}, {3, 0}}, {{1, 0}, {2}, {3}}};
    EXPECT_EQ(PruneDocument(skin), expected);

    // Ten bones share a far id that nothing names. Taking it out takes the first of them, each of the four ids
    // behind it another one, and the last id the bone that stands first in the file; five stay, with the number
    // behind the one id in use.
    SSkin shared = {{{99, 2'000'000'005}}, {{3, 0x80000000}}};
    for (std::uint32_t i = 0; i < 10; ++i)
        shared.bones.push_back({i, 2'000'000'000});
    const SSkin left = {{{5, 1}, {6, 1}, {7, 1}, {8, 1}, {9, 1}}, {{0, 0x80000000 - 2'000'000'005}}};
    EXPECT_EQ(PruneDocument(shared), left);
}

TEST(EnvelopePrune, WithoutMemoryNothingIsRemoved)
{
    const std::string text = "[boneName]\n[boneID] 4\n[boneName]\n[boneID] 9\n[vertex\nvertexWeightCount 1\n";
    FailAllocations(3, 1); // the line, the bones and the vertices are had
    auto document = LoadNew<CFileFormat_Envelope>(text);
    FailAllocations(0, 0);
    ASSERT_EQ(document.bones.GetNumItems(), 2U);
    EXPECT_EQ(document.bones[1]->boneID, 9U);
}
