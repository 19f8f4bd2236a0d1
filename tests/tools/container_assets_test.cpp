/// asset_tool on containers: what it converts and shows.
#include "tests/support/tool.h"

namespace
{
using testing::EndsWith;
using testing::HasSubstr;

class ContainerAssets : public CToolTest
{
};
} // namespace

TEST_F(ContainerAssets, ConvertTidiesSamples)
{
    for (const char* name : {"dialogue.tree", "door.graph", "sway.channels3"}) // tidy already
        EXPECT_EQ(Run("convert " + Sample(name)), ReadSample(name));
    EXPECT_EQ(Run("convert " + Sample("glow.channels4")),
              "{\n"
              "\taddnode: 0.000000 1.000000 0.000000 0.000000 0.500000\n"
              "\taddnode: 0.250000 0.750000 0.250000 0.000000 1.000000\n"
              "\taddnode: 0.500000 0.000000 1.000000 -0.125000 0.000000\n"
              "\taddnode: 1.000000 0.000000 0.000000 1.000000 0.500000\n}\n");
}

TEST_F(ContainerAssets, FirstLineTellsTheKind)
{
    static constexpr const char* cases[][2] = {
        {"dialogue.tree", "a tree of texts, 250 bytes\n2 folders, 3 keys"},
        {"door.graph", "3 nodes, 3 links"},
        {"sway.channels3", "3 nodes of 3 channels, keys 0 to 1"},
        {"glow.channels4", "channel 2: -0.125 to 1"},
    };
    for (const auto& [name, shown] : cases)
        EXPECT_THAT(RunOn("inspect", ReadSample(name)), HasSubstr(shown));
}

TEST_F(ContainerAssets, EmptyContainerIsOneThatIsNamed)
{
    for (const std::string format : {"tree", "graph", "channels3", "channels4"})
        EXPECT_EQ(RunOn("convert --format " + format, "{\n}\n"), "{\n}\n");
    EXPECT_THAT(RunOn("convert", "{\n}\n"), EndsWith("(1)"));
    EXPECT_THAT(Run("convert --format graph " + Sample("dialogue.tree")), EndsWith("(1)"));
}

TEST_F(ContainerAssets, JsonHoldsEverything)
{
    EXPECT_EQ(Run("inspect --json " + Sample("door.graph")),
              "{\"format\":\"graph\",\"document\":{\"nodes\":[{\"links\":[[0,1],[1,2]]},{\"links\":[[0,2]]},"
              "{\"links\":[]}]}}\n");
    EXPECT_EQ(RunOn("inspect --json", "{\naddkey: a b\n{\ntext: \"x\\ny\"\n}\naddfolder:\n{\n}\n}\n"),
              "{\"format\":\"tree\",\"document\":{\"root\":{\"name\":\"\",\"folders\":[{\"name\":\"\",\"folders\":[],"
              "\"keys\":[]}],\"keys\":[{\"name\":\"a b\",\"text\":\"x\\ny\"}]}}}\n");
    EXPECT_EQ(
        RunOn("inspect --json", "{\naddnode: 0.1 nan 2 -inf\n}\n"),
        "{\"format\":\"channels3\",\"document\":{\"channelNodes\":[{\"key\":0.1,\"value\":[\"nan\",2,\"-inf\"]}]}}\n");
}

TEST_F(ContainerAssets, PointOutWhatIsSuspicious)
{
    EXPECT_THAT(RunOn("inspect", "{\naddkey: a\n{\n}\naddkey: a\n{\n}\n}\n"),
                HasSubstr("suspicious:\n  a: several keys in one folder have this name\n"));
    EXPECT_THAT(
        RunOn("inspect", "{\naddnode: 1 0 0 inf\naddnode: 1 0 0 0\n}\n"),
        HasSubstr("suspicious:\n  channel 2: a value is not finite\n  keys: one is not above the one before it\n"));
    EXPECT_THAT(RunOn("inspect", "{\naddnode:\n{\naddlink: 0 -1\n}\n}\n"),
                HasSubstr("suspicious:\n  (unnamed): a link has a number that was never set\n"));
}
