/// Skin envelopes: what each line does, what is printed, what broken and hostile texts do.
#include "formats/envelope/envelope.h"

#include "core/numbers.h"
#include "tests/hostile/fields.h"
#include "tests/support/odd_lines.h"
#include "tests/support/saved_lines.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

using testing::ElementsAre;
using testing::HasSubstr;

namespace
{
using CVertex = CFileFormat_Envelope::CEnvelopeVertexData;

/// Loads the text and keeps what it printed.
std::string LoadEnvelope(CFileFormat_Envelope& document, std::string_view text)
{
    testing::internal::CaptureStdout();
    EXPECT_EQ(LoadText(document, text), 1);
    std::fflush(stdout);
    return testing::internal::GetCapturedStdout();
}

/// "bone:weight" for each pair in use.
std::string ShowWeights(const CVertex& vertex)
{
    std::string text;
    for (const CVertex::SWeight& pair : vertex.GetWeights())
    {
        char digits[NumberCapacity];
        text += std::to_string(pair.bone) + ':';
        text.append(digits, WriteExact(digits, pair.weight)) += ' ';
    }
    return text;
}

std::vector<unsigned long> GetExclusions(const CFileFormat_Envelope& document, unsigned long index)
{
    const TArray<unsigned long>& list = document.exclusionLists[index]->excludedVerts;
    return {list.begin(), list.end()};
}

/// Bones whose ids are their positions, all of them named by a vertex, so that pruning changes nothing.
std::string NameBones(unsigned count)
{
    std::string text;
    for (unsigned i = 0; i < count; ++i)
        text += "[boneName] b\n[boneID] " + std::to_string(i) + "\n[vertex]\nvertexWeightCount 1\nvertexWeight " +
                std::to_string(i) + ",1\n";
    return text;
}
} // namespace

TEST(Envelope, PrintsAndLogsWhatItExcludes)
{
    CLogWatch log(1);
    CFileFormat_Envelope document;
    EXPECT_EQ(LoadEnvelope(document, ReadSample("tail.env")), "exclusion list added\nexcluded vertices = 0\n"
                                                              "exclusion list added\nexcluded vertices = 2\n"
                                                              "exclusion list added\nexcluded vertices = 1\n"
                                                              "num excluded vertices: 0 = 0\n"
                                                              "num excluded vertices: 1 = 2\n"
                                                              "excluding vertex 1 -> 0: 1\n"
                                                              "num excluded vertices: 2 = 1\n"
                                                              "excluding vertex 2 -> 1: 2\n");
    EXPECT_EQ(log.GetText(), "exclude list: 1 (2)\nexclude list: 2 (1)\n");
    EXPECT_EQ(ShowWeights(*document.vertices[1]), "1:9.99999975e-05 0:0.5 ") << "not sorted again";
}

struct SLines
{
    const char* name;
    const char* lines;
    std::string (*show)(const CFileFormat_Envelope&);
    const char* shown;
};

std::string ShowFields(const CFileFormat_Envelope& document)
{
    CFileFormat_Envelope copy(document);
    CDescriber describer;
    Visit(describer, copy);
    return describer.text;
}

std::string ShowLast(const CFileFormat_Envelope& document)
{
    return '(' + ShowWeights(*document.vertices[document.vertices.GetNumItems() - 1]) + ')';
}

std::string ShowDocument(const CFileFormat_Envelope& document)
{
    return std::to_string(document.ver) + ' ' + std::to_string(document.nodeCount) + ' ' +
           std::to_string(document.bones.GetNumItems()) + ' ' + std::to_string(document.vertices.GetNumItems()) + ' ' +
           std::to_string(document.exclusionLists.GetNumItems());
}

std::string Describe(std::string_view text)
{
    CFileFormat_Envelope document;
    LoadEnvelope(document, text);
    return ShowFields(document);
}

class EnvelopeLine : public testing::TestWithParam<SLines>
{
};

/// The lines stand behind a bone 0 that a vertex names, in that vertex.
TEST_P(EnvelopeLine, IsRead)
{
    CFileFormat_Envelope document;
    const std::string text = "[boneName] a\n[vertex0]\nvertexWeightCount 1\n" + std::string(GetParam().lines);
    LoadEnvelope(document, text);
    EXPECT_THAT(GetParam().show(document), HasSubstr(GetParam().shown));
    EXPECT_TRUE(IsReadInPlaceAsLineByLine(text, Describe));
}

static const SLines kLines[] = {
    {"FlagsTakeTheirOwnLinesOnly",
     "boneFlagLock 1\nboneFlagAbsolute 2\nboneFlagSpline 3\n\tboneFlagSplineClosed 4\nboneFlagDrawEnveloe 5\n"
     "boneFlagIsOldBone 6\nboneFlagDead 7\nboneFalloff 2.5\nboneFlagSplin 8\nboneFlagLocks 9\nboneCrossSectionCount "
     "2\n",
     ShowFields,
     "boneFlagLock 1\nboneFlagAbsolute 2\nboneFlagSpline 3\nboneFlagSplineClosed 4\nboneFlagDrawEnveloe 5\n"
     "boneFlagIsOldBone 6\nboneFlagDead 7\nboneFalloff 2\n"},
    {"NumbersThatDoNotParseStay", "boneFlagLock 5\nboneFlagLock x\nboneFlagLock\nboneFalloff\nboneFalloff ,5\n",
     ShowFields,
     "boneFlagLock 5\nboneFlagAbsolute 0\nboneFlagSpline 0\nboneFlagSplineClosed 0\nboneFlagDrawEnveloe 0\n"
     "boneFlagIsOldBone 0\nboneFlagDead 0\nboneFalloff 0\n"},
    {"PointsHaveDecimalCommas", "boneStartPoint 1,5 2 -3\nboneEndPoint 0,5 x 2\nboneCrossSectionInner0 0,5\n",
     ShowFields, "boneStartPoint 1.5 2 -3\nboneEndPoint 0.5 0 0\nboneCrossSectionInner0 0\n"},
    {"VertexFlagsTakeTheirOwnLinesOnly",
     "vertexIsModified 1\nvertexIsRigid 2\nvertexIsRigidHandle 3\nvertexIsUnNormalized 4\nvertexSplineData 5 6 7\n",
     ShowFields, "vertexIsModified 1\nvertexIsRigid 2\nvertexIsRigidHandle 3\nvertexIsUnNormalized 4\n"},
    {"WeightsAreSorted", "vertexWeightCount 4\nvertexWeight 0,0.1 0,0.4 0,0.3 0,0.2\n", ShowLast,
     "(0:0.400000006 0:0.300000012 0:0.200000003 0:0.100000001 )"},
    {"EqualWeightsKeepTheirOrder",
     "[boneName] b\n[boneID] 1\n[boneName] c\n[boneID] 2\nvertexWeightCount 3\nvertexWeight 2,0.25 1,0.5 0,0.25\n",
     ShowLast, "(1:0.5 2:0.25 0:0.25 )"},
    {"DecimalCommasInWeights", "[boneName] b\n[boneID] 1\nvertexWeightCount 2\nvertexWeight 1,0,25 0,0,75\n", ShowLast,
     "(0:0.75 1:0.25 )"},
    {"DecimalCommaBeyondTheFifthCharacter", "vertexWeightCount 3\nvertexWeight 123,0,5 12,0,5 0,1\n", ShowLast,
     "(0:1 12:0.5 123:0 )"},
    {"DecimalCommaOfTheNextPair", "vertexWeightCount 2\nvertexWeight 0,1 ,5 0,2\n", ShowLast, "(0:1 0:0 )"},
    {"MissingPairsKeepTheirs", "vertexWeightCount 3\nvertexWeight x 0,.5\n", ShowLast, "(0:1 0:0.5 0:0 )"},
    {"NoPairs", "vertexWeight\n", ShowLast, "(0:1 )"},
    {"WeightCountBelowZero", "vertexWeightCount -4\nvertexWeight 0,0.5\n", ShowLast, "()"},
    {"WeightCountBeyondTwenty",
     "vertexWeightCount 21\nvertexWeight 0,1 0,1 0,1 0,1 0,1 0,1 0,1 0,1 0,1 0,1 0,1 0,1 0,1 0,1 0,1 0,1 0,1 0,1 0,1 "
     "0,2 "
     "0,3\n",
     ShowLast, "(0:2 0:1 0:1 0:1 0:1 0:1 0:1 0:1 0:1 0:1 0:1 0:1 0:1 0:1 0:1 0:1 0:1 0:1 0:1 0:1 )"},
    {"LinesThatKeepNothing",
     "numberBones 7\nswitchbones:\nswitchbones: 1 2\n[Vertex Data]\nvertexCount 8\nnodeCount 4\nver 2\nversion 9\n"
     "numberOfExclusinList 3\n{\n}\nbones\n",
     ShowDocument, "2 4 1 1 0"},
    {"HeadingsOfAllForms",
     "[vertex\n[vertex9]\n[vertex 9]\n[Vertex]\n[exclusionListForBone\n[exclusionListForBone 9]\n"
     "[exclusionListForBone]\n",
     ShowDocument, "0 0 1 4 2"},
};

INSTANTIATE_TEST_SUITE_P(Envelope, EnvelopeLine, testing::ValuesIn(kLines), SRowName());

TEST(Envelope, ReadsVerticesInPlaceAsLineByLine)
{
    static constexpr const char* entries[] = {
        "vertexIsRigid @",
        "vertexLocalPosition 0.5 @ 2",
        "vertexLocalPosition 0.5 2 @",
        "vertexWeightCount @",
        "vertexWeightCount 3\nvertexWeight @,1 2,0.5 3,0.25",
        "vertexSplineData @ 0.5",
        "vertexWeightCount 3\nvertexWeight 1,@ 2,0.5 3,0.25",
        "[vertex@]",
        "vertexWeightCount 3\nvertexWeight 1,0.25 2,0.5 3,@",
        "\t[vertex1]\nver @",
        "[vertex1]\nvertexWeightCount 2\nvertexWeight 1,0.25 2,0.5 @",
        "vertexIsModified@ 2",
        "vertexIsUnNormalized 1\nvertexIsRigidHandle @",
    };
    for (const std::string entry : entries)
        for (const std::string& oddity : GetOddities())
            for (const char* const behind : {"", "vertexIsRigid 7\n[vertex8]\nvertexWeightCount 1\nvertexWeight 8,1\n"})
                EXPECT_TRUE(IsReadInPlaceAsLineByLine("[boneName] a\nvertexIsRigid 1\nvertexIsRigid 2\n[vertex0]\n" +
                                                          WriteOddLines(entry, oddity) + behind,
                                                      Describe));
}

TEST(Envelope, LinesWithoutTheirRecordAreSkipped)
{
    CFileFormat_Envelope document;
    LoadEnvelope(document, NameBones(1));
    const std::string before = ShowFields(document);
    LoadEnvelope(document, "boneFlagLock 1\n[boneID] 7\nboneStartPoint 1 2 3\nvertexIsRigid 1\nvertexWeightCount 2\n"
                           "vertexWeight 5,1\nexclusionVertexCount 1\nexcludedVerts 0\n");
    EXPECT_EQ(ShowFields(document), before);
}

TEST(Envelope, KeepsNamesAsTheyStand)
{
    CFileFormat_Envelope document;
    LoadEnvelope(document,
                 "[boneName] Bip01  \"L\" %s%n {\n[boneID] -1\n[vertex]\nvertexWeightCount 1\nvertexWeight -1,1\n"
                 "[baseNodeName]\t\xC4rm\n");
    EXPECT_STREQ(document.bones[0]->boneName.Get(), L"Bip01  \"L\" %s%n {");
    EXPECT_STREQ(document.baseNodeName.Get(), L"\u00C4rm");
}

TEST(Envelope, ExclusionListsAreRead)
{
    CLogWatch log(1);
    CFileFormat_Envelope document;
    LoadEnvelope(document, NameBones(3) + "[exclusionListForBone 9\n"
                                          "exclusionVertexCount 3\nexcludedVerts 1 2 9\n"
                                          "excludedVerts 5\n" // nothing is pending any more
                                          "[exclusionListForBone\n"
                                          "excludedVerts 7\n"
                                          "exclusionVertexCount 5\nexcludedVerts 2 x -1 1.5\n");
    EXPECT_THAT(GetExclusions(document, 0), ElementsAre()) << "the second line replaces the first";
    EXPECT_THAT(GetExclusions(document, 1), ElementsAre(2U, 0xFFFFFFFFU, 1U));
    EXPECT_EQ(log.GetText(), "exclude list: 0 (3)\nexclude list: 0 (0)\nexclude list: 1 (0)\nexclude list: 1 (5)\n"
                             "error!!!\nstring = []\n");
}

TEST(Envelope, TellsTheEntriesOfTheSixtySecondList)
{
    CLogWatch log(1);
    CFileFormat_Envelope document;
    LoadEnvelope(document, Repeat("[exclusionListForBone\n", 62) + "exclusionVertexCount 2\nexcludedVerts 4 8\n" +
                               "[exclusionListForBone\nexclusionVertexCount 1\nexcludedVerts 5\n");
    EXPECT_EQ(log.GetText(), "exclude list: 61 (2)\nexclude: 61 -> 4\nexclude: 61 -> 8\nexclude list: 62 (1)\n");
}

TEST(Envelope, LoadingTwiceAppendsAndDestroyEmpties)
{
    const CRegistryWatch watch;
    {
        CFileFormat_Envelope document;
        const std::string sample = ReadSample("arm.envASCII");
        LoadEnvelope(document, sample);
        const CFileFormat_Envelope copy(document);
        LoadEnvelope(document, "[boneName]\n[vertex\nvertexWeightCount 1\n");
        ASSERT_EQ(document.bones.GetNumItems(), 4U);
        EXPECT_EQ(document.bones[3]->boneEndPoint, CMath_Vector3()) << "a new bone knows nothing of a removed one";
        LoadEnvelope(document, sample);
        EXPECT_EQ(document.vertices.GetNumItems(), 13U);
        EXPECT_EQ(document.exclusionLists.GetNumItems(), 6U);
        EXPECT_EQ(SaveText(document), "{\n}\n");
        EXPECT_EQ(document.Destroy(), 1);
        EXPECT_EQ(ShowDocument(document), "0 0 0 0 0");
        EXPECT_TRUE(document.baseNodeName.IsEmpty());
        EXPECT_EQ(copy.vertices.GetNumItems(), 6U);
    }
    EXPECT_TRUE(watch.IsBalanced());
}

TEST(Envelope, ReadsLinesOfSixtyFiveThousandCharacters)
{
    CFileFormat_Envelope document;
    LoadEnvelope(document, "[exclusionListForBone 0]\nexclusionVertexCount 10000\nexcludedVerts" +
                               Repeat(" 123456", 9286) + "\n");
    EXPECT_EQ(document.exclusionLists[0]->excludedVerts.GetNumItems(), 9286U);
}

TEST(EnvelopeHostile, LyingCountsCostNothing)
{
    CLogWatch log(2);
    CRegistryWatch watch;
    CFileFormat_Envelope document;
    const std::string printed =
        LoadEnvelope(document, "[exclusionListForBone 0]\nexclusionVertexCount 4000000000\nexcludedVerts 3\n"
                               "vertexWeightCount 4000000000\nnumberBones 4000000000\n");
    EXPECT_THAT(printed, HasSubstr("excluded vertices = 2147483647\n"));
    EXPECT_THAT(GetExclusions(document, 0), ElementsAre(3U));
    EXPECT_EQ(log.GetText(), "text(3): 2147483647 excluded vertices cannot stand in this line, 1 are read\n");
    EXPECT_LT(watch.registry.GetAllocatedSize(), 5000U);
}

TEST(EnvelopeHostile, WithoutMemoryForARecordItsLinesAreSkipped)
{
    CFileFormat_Envelope document;
    FailAllocations(1, 1); // the line is had, the first bone is not
    LoadEnvelope(document, "[boneName]\n[boneID] 3\n[boneName]\nboneFalloff 2\n[vertex\nvertexWeightCount 1\n");
    FailAllocations(0, 0);
    ASSERT_EQ(document.bones.GetNumItems(), 1U);
    EXPECT_EQ(document.bones[0]->boneID, 0U);
    EXPECT_EQ(document.bones[0]->boneFalloff, 2);
}
