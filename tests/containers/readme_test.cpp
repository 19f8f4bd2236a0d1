// The code pieces of the README's section "Containers", line by line.
#include "containers/channel_list.h"
#include "containers/graph.h"
#include "containers/resource_manager.h"
#include "containers/tree.h"
#include "tests/support/documents.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <sstream>

namespace
{
class ReadmeContainers : public testing::Test
{
  protected:
    ReadmeContainers()
    {
        saver.OpenMemory();
    }

    void OpenSample(const char* name)
    {
        parser.OpenFile((std::string(SAMPLES_FOLDER) + "/" + name).c_str());
    }

    CFile_Parser parser;
    CFile_Saver saver;
};

/// A text file's lines without indentation.
std::string ReadFlat(const std::string& name)
{
    std::ifstream file(name);
    std::string text;
    for (std::string line; std::getline(file, line);)
        text += line.substr(std::min(line.find_first_not_of(' '), line.size())) + "\n";
    return text;
}
} // namespace

TEST_F(ReadmeContainers, Tree)
{
    TTree<CSys_String> tree;
    TTree<CSys_String>::CTreeFolder* const folder = tree.root.folders.Add();
    folder->parent = &tree.root;
    folder->name = L"harbour";
    *static_cast<CSys_String*>(folder->keys.Add()) = L"Fresh fish!";
    tree.Save(&saver);
    EXPECT_STREQ(saver.GetText(),
                 "{\n\taddfolder: harbour\n\t{\n\t\taddkey: \n\t\t{\n\t\t\ttext: \"Fresh fish!\"\n\t\t}\n\t}\n}\n");
}

TEST_F(ReadmeContainers, Graph)
{
    OpenSample("door.graph");
    TGraph<CSys_DataNode> graph;
    graph.Load(&parser, nullptr); // replaces the nodes
    TKNode<CSys_DataNode>* const node = graph.nodes.Add();
    node->name = L"close door";
    node->AddLink(0, 2, 1); // 1: only if there is no such link yet
    graph.Save(&saver);
    EXPECT_EQ(graph.nodes.GetNumItems(), 4U);
}

TEST_F(ReadmeContainers, ChannelList)
{
    OpenSample("glow.channels4");
    float brightest = 0.0F;
    TChannelList<float, 4> list;
    list.Load(&parser, nullptr); // lines, raw nodes, or both
    for (const TChannelList<float, 4>::SData& node : list.channelNodes)
        brightest = std::max(brightest, node.value[3]);
    list.Save(&saver); // always lines
    EXPECT_EQ(brightest, 1.0F);
}

TEST_F(ReadmeContainers, ResourceManager)
{
    CGraphics_System* const graphics = nullptr;
    CGraphics_Model model;
    model.Points.Add();
    const std::string text = SaveText(model);
    parser.Open(text.data(), text.size());
    {
        TGraphicsResourceManager<CGraphics_Model> manager;
        manager.SetGraphicsSystem(graphics);
        auto* const handle = manager.handles.root.keys.Add(); // a named place in the tree of handles
        handle->object = new CGraphics_Model;
        IncreaseMemoryCount(); // as for every block; with a registry, announce it to MM too
        manager.InitializeObject(handle->object, &parser, 0); // loads what `asset_tool model` wrote
        EXPECT_EQ(handle->object->Points.GetNumItems(), 1U);
    }
}

TEST(Readme, ContainersShowTheCodeTestedHere)
{
    const std::string tested = ReadFlat(__FILE__);
    std::istringstream readme(ReadFlat(README_FILE));
    std::string line;
    while (std::getline(readme, line) && line != "## Containers")
    {
    }
    unsigned pieces = 0;
    while (std::getline(readme, line) && line.rfind("## ", 0) != 0)
    {
        if (line != "```cpp")
            continue;
        std::string piece;
        while (std::getline(readme, line) && line != "```")
            piece += line + "\n";
        EXPECT_NE(tested.find(piece), std::string::npos) << piece;
        ++pieces;
    }
    EXPECT_EQ(pieces, 4U);
}
