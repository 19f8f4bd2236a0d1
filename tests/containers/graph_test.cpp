#include "containers/graph.h"

#include "tests/support/documents.h"

#include <gtest/gtest.h>

namespace
{
using CGraph = TGraph<CSys_DataNode>;
using CNode = TKNode<CSys_DataNode>;
constexpr unsigned long NoNumber = 0xFFFFFFFF;

/// The owner's functions, which note their calls; loading takes one line.
struct SExtraData
{
    std::vector<std::string> calls;

    static Result Load(CFile_Parser* parser, std::uint32_t index, void* context)
    {
        wchar_t line[CFile_Parser::BlockLineCapacity];
        parser->GetBlockLine(line);
        static_cast<SExtraData*>(context)->calls.push_back("load " + std::to_string(index) + " " +
                                                           testing::PrintToString(CSys_String(line)));
        return 0;
    }

    static Result Save(CFile_Saver* saver, std::uint32_t index, void* context)
    {
        static_cast<SExtraData*>(context)->calls.push_back("save " + std::to_string(index));
        saver->Write(0, L"extra%u", index);
        return 0;
    }
};

std::string NodeText(const std::string& lines)
{
    return "addnode:\n{\n" + lines + "}\n";
}
} // namespace

TEST(Graph, SavesLinksThenDataThenExtraData)
{
    SExtraData extra;
    CGraph graph;
    graph.saveExtraData = SExtraData::Save;
    graph.saveExtraDataContext = &extra;
    CNode* const node = graph.nodes.Add();
    node->AddLink(1, 2, 0);
    node->links.Add();
    node->name = L"first";
    graph.nodes.Add();
    EXPECT_EQ(
        SaveText(graph),
        "{\n\taddnode:\n\t{\n\t\taddlink: 1 2\n\t\taddlink: -1 -1\n\t\taddnodedata:\n\t\t{\n\t\t\tname: \"first\"\n"
        "\t\t\tkind: 0\n\t\t}\n\t\taddextradata:\n\t\textra0\n\t}\n"
        "\taddnode:\n\t{\n\t\taddnodedata:\n\t\t{\n\t\t\tkind: 0\n\t\t}\n\t\taddextradata:\n\t\textra1\n\t}\n}\n");
    EXPECT_EQ(extra.calls, (std::vector<std::string>{"save 0", "save 1"}));
}

TEST(Graph, LoadReplacesNodesAndKeepsTheOwnersFunctions)
{
    SExtraData extra;
    CGraph graph;
    graph.nodes.Add();
    graph.loadExtraData = SExtraData::Load;
    graph.loadExtraDataContext = &extra;
    LoadText(graph, "{\n" + NodeText("addlink: 7 -1\naddlink: 7 -1\naddextradata:\nword\naddlink: 1\naddlink: x 2\n") +
                        "stray\nstray:\n{\naddnode:\n}\n" + NodeText("addextradata:\nagain\n") + "}\n");
    ASSERT_EQ(graph.nodes.GetNumItems(), 2U);
    EXPECT_EQ(extra.calls, (std::vector<std::string>{"load 0 word", "load 1 again"}));
    ASSERT_EQ(graph.nodes[0]->GetNumItems(), 2U);
    EXPECT_EQ(graph.nodes[0]->links[1]->second, 0xFFFFFFFFU);
    EXPECT_EQ(graph.Destroy(), 1);
    EXPECT_EQ(graph.nodes.GetNumItems(), 0U);
    EXPECT_EQ(graph.loadExtraDataContext, &extra);
}

TEST(Graph, PassesOverExtraDataThatNobodyReads)
{
    auto graph =
        LoadNew<CGraph>("{\n" + NodeText("addextradata:\n{\naddlink: 1 2\n}\naddlink: 3 4\n") + NodeText("") + "}\n");
    ASSERT_EQ(graph.nodes.GetNumItems(), 2U);
    ASSERT_EQ(graph.nodes[0]->GetNumItems(), 1U);
    EXPECT_EQ(graph.nodes[0]->links[0]->first, 3U);
}

TEST(GraphNode, HasRoomForTenLinksAtFirst)
{
    CNode node;
    EXPECT_EQ(node.links.Capacity, 10U);
    EXPECT_EQ(node.GetNumItems(), 0U);
    for (unsigned long i = 0; i < 9; ++i)
        EXPECT_EQ(node.AddLink(i, i, 0), 1);
    EXPECT_EQ(node.links.Capacity, 10U);
    EXPECT_EQ(node.AddLink(9, 9, 0), 1);
    EXPECT_EQ(node.links.Capacity, 138U);
    EXPECT_EQ(node.links[8]->first, 8U);
    const SNodeLink& spare = node.links.Items[137];
    EXPECT_EQ(spare.first, 0xFFFFFFFFU);
    EXPECT_EQ(spare.second, 0xFFFFFFFFU);
    EXPECT_EQ(spare.linkData, 0U);
}

TEST(GraphNode, UniqueLinksAreAddedOnce)
{
    CNode node;
    EXPECT_EQ(node.AddLink(1, 2, 1), 1);
    EXPECT_EQ(node.AddLink(1, 2, 1), 1);
    EXPECT_EQ(node.AddLink(2, 1, 1), 1);
    EXPECT_EQ(node.GetNumItems(), 2U);
    EXPECT_EQ(node.AddLink(1, 2, 2), 1);
    EXPECT_EQ(node.GetNumItems(), 3U);
}

TEST(GraphNode, GetLinkFillsWhatItIsGiven)
{
    CNode node;
    node.AddLink(5, 6, 0);
    unsigned long first = 0;
    unsigned long second = 0;
    EXPECT_EQ(node.GetLink(0, &first, nullptr), 1);
    EXPECT_EQ(node.GetLink(0, nullptr, &second), 1);
    EXPECT_EQ(first, 5U);
    EXPECT_EQ(second, 6U);
    EXPECT_EQ(node.GetLink(1, nullptr, nullptr), 0);
    EXPECT_EQ(node.GetLink(1, &first, &second), 0);
    EXPECT_EQ(first, NoNumber);
    EXPECT_EQ(second, NoNumber);
}

TEST(GraphNode, LinkWithoutMemoryLeavesTheNode)
{
    CNode node;
    for (unsigned long i = 0; i < 9; ++i)
        node.AddLink(i, i, 0);
    FailAllocations(0, 1);
    EXPECT_EQ(node.AddLink(9, 9, 0), 0);
    FailAllocations(0, 0);
    EXPECT_EQ(node.GetNumItems(), 9U);
    EXPECT_EQ(node.links[8]->second, 8U);
}
