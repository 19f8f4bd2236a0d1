/// The code pieces of the README: compiled here, run, and held against the README's text line by line.
#include "containers/channel_list.h"
#include "containers/graph.h"
#include "containers/resource_manager.h"
#include "containers/tree.h"
#include "core/file_parser.h"
#include "core/file_saver.h"
#include "formats/ase/ase.h"
#include "tests/support/documents.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>

namespace
{
int RenameAnObject()
{
    CFile_Parser parser;
    if (parser.OpenFile("samples/scene.ase") != 1)
        return parser.GetError(); // an errno value
    CFileFormat_Ase scene;
    scene.Load(&parser, nullptr);
    scene.GeomObjects[0]->name = L"\"Chest\"";
    CFile_Saver saver;
    saver.OpenFile("build/chest.txt");
    scene.Save(&saver);
    return saver.Close() == 1 ? 0 : saver.GetError();
}

class Readme : public testing::Test
{
  protected:
    Readme()
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
} // namespace

TEST_F(Readme, Scene)
{
    namespace fs = std::filesystem;
    const fs::path former = fs::current_path();
    const fs::path folder = fs::path(testing::TempDir()) / "readme";
    fs::create_directories(folder / "samples");
    fs::create_directories(folder / "build");
    fs::copy_file(fs::path(SAMPLES_FOLDER) / "scene.ase", folder / "samples/scene.ase",
                  fs::copy_options::overwrite_existing);
    fs::current_path(folder);
    EXPECT_EQ(RenameAnObject(), 0);
    EXPECT_NE(ReadFile("build/chest.txt").find("\tname: \"Chest\"\n"), std::string::npos);
    fs::current_path(former);
    EXPECT_GT(fs::remove_all(folder), 0U);
}

TEST_F(Readme, Tree)
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

TEST_F(Readme, Graph)
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

TEST_F(Readme, ChannelList)
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

TEST_F(Readme, ResourceManager)
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

TEST_F(Readme, ShowsTheCodeTestedHere)
{
    const auto flatten = [](const std::string& name)
    {
        std::string text;
        for (const std::string& line : Split(ReadFile(name), '\n'))
            text += line.substr(std::min(line.find_first_not_of(' '), line.size())) + "\n";
        return text;
    };
    const std::string tested = flatten(__FILE__);
    const std::string readme = flatten(README_FILE);
    const std::string begin = "```cpp\n";
    unsigned pieces = 0;
    for (std::size_t at = 0; (at = readme.find(begin, at)) != std::string::npos; ++pieces)
    {
        at += begin.size();
        std::string piece = readme.substr(at, readme.find("```", at) - at);
        if (piece.starts_with("#include"))
            piece.erase(0, piece.find("\n\n") + 2);
        EXPECT_NE(tested.find(piece), std::string::npos) << piece;
    }
    EXPECT_EQ(pieces, 5U);
}
