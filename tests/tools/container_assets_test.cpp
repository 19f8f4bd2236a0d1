/// asset_tool on containers: what it converts and shows.
#include "tests/support/tool.h"

namespace
{
std::string Sample(const std::string& name)
{
    return std::string(SAMPLES_FOLDER) + "/" + name;
}

class ContainerAssets : public CToolTest
{
  protected:
    /// The tool's standard output, behind its messages and before its exit status when that is not 0.
    std::string RunTool(const std::string& arguments) const
    {
        const SRun run = Run(arguments);
        return run.err + run.out + (run.status == 0 ? "" : "failed");
    }

    std::string RunOn(const std::string& arguments, const std::string& text) const
    {
        return RunTool(arguments + " " + Make("input.txt", text).string());
    }
};
} // namespace

TEST_F(ContainerAssets, ConvertTidiesSamples)
{
    for (const char* name : {"dialogue.tree", "door.graph", "sway.channels3"}) // tidy already
        EXPECT_EQ(RunTool("convert " + Sample(name)), ReadFile(Sample(name)));
    EXPECT_EQ(RunTool("convert " + Sample("glow.channels4")),
              "{\n"
              "\taddnode: 0.000000 1.000000 0.000000 0.000000 0.500000\n"
              "\taddnode: 0.250000 0.750000 0.250000 0.000000 1.000000\n"
              "\taddnode: 0.500000 0.000000 1.000000 -0.125000 0.000000\n"
              "\taddnode: 1.000000 0.000000 0.000000 1.000000 0.500000\n}\n");
}

TEST_F(ContainerAssets, FirstLineTellsTheKind)
{
    EXPECT_NE(RunOn("inspect", ReadFile(Sample("dialogue.tree"))).find("a tree of texts, 250 bytes\n2 folders, 3 keys"),
              std::string::npos);
    EXPECT_NE(RunOn("inspect", ReadFile(Sample("door.graph"))).find("3 nodes, 3 links"), std::string::npos);
    EXPECT_NE(RunOn("inspect", ReadFile(Sample("sway.channels3"))).find("3 nodes of 3 channels, keys 0 to 1"),
              std::string::npos);
    EXPECT_NE(RunOn("inspect", ReadFile(Sample("glow.channels4"))).find("channel 2: -0.125 to 1"), std::string::npos);
}

TEST_F(ContainerAssets, EmptyContainerIsOneThatIsNamed)
{
    for (const char* format : {"tree", "graph", "channels3", "channels4"})
        EXPECT_EQ(RunOn(std::string("convert --format ") + format, "{\n}\n"), "{\n}\n");
    EXPECT_NE(RunOn("convert", "{\n}\n").find("failed"), std::string::npos);
    EXPECT_NE(RunTool("convert --format graph " + Sample("dialogue.tree")).find("failed"), std::string::npos);
}

TEST_F(ContainerAssets, JsonHoldsEverything)
{
    EXPECT_EQ(RunTool("inspect --json " + Sample("door.graph")),
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
    EXPECT_NE(RunOn("inspect", "{\naddkey: a\n{\n}\naddkey: a\n{\n}\n}\n")
                  .find("suspicious:\n  a: several keys in one folder have this name\n"),
              std::string::npos);
    EXPECT_NE(
        RunOn("inspect", "{\naddnode: 1 0 0 inf\naddnode: 1 0 0 0\n}\n")
            .find("suspicious:\n  channel 2: a value is not finite\n  keys: one is not above the one before it\n"),
        std::string::npos);
    EXPECT_NE(RunOn("inspect", "{\naddnode:\n{\naddlink: 0 -1\n}\n}\n")
                  .find("suspicious:\n  (unnamed): a link has a number that was never set\n"),
              std::string::npos);
}
