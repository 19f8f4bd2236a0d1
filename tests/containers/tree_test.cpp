#include "containers/tree.h"

#include "tests/support/documents.h"

#include <gtest/gtest.h>

namespace
{
using CTree = TTree<CSys_String>;
using CFolder = CTree::CTreeFolder;

template <class T> TTreeFolder<T>* AddFolder(TTreeFolder<T>& folder, const std::wstring& name)
{
    TTreeFolder<T>* const added = folder.folders.Add();
    added->parent = &folder;
    added->name = name.c_str();
    return added;
}

template <class T> TTreeKey<T>* AddKey(TTreeFolder<T>& folder, const std::wstring& name)
{
    TTreeKey<T>* const added = folder.keys.Add();
    added->name = name.c_str();
    return added;
}

std::string Nested(unsigned levels)
{
    return "{\n" + Repeat("addfolder: f\n{\n", levels) + Repeat("}\n", levels) + "addkey: last\n{\n}\n}\n";
}

unsigned CountLevels(const CFolder& root)
{
    unsigned levels = 0;
    for (const CFolder* folder = &root; folder->folders.GetNumItems() != 0; folder = folder->folders[0])
        ++levels;
    return levels;
}
} // namespace

TEST(Tree, SavesSubfoldersBeforeKeys)
{
    EXPECT_EQ(SaveText(LoadNew<CTree>(
                  "{\naddkey: A\n{\ntext: \"a\"\n}\naddfolder: two words\n{\naddkey: B\n{\n}\n}\nnonsense\n}\n")),
              "{\n\taddfolder: two words\n\t{\n\t\taddkey: B\n\t\t{\n\t\t}\n\t}\n\taddkey: "
              "A\n\t{\n\t\ttext: \"a\"\n\t}\n}\n");
}

TEST(Tree, LoadAppendsAndKeepsEqualNames)
{
    CTree tree;
    for (int i = 0; i < 2; ++i)
        LoadText(tree, "{\naddfolder: f\n{\n}\naddfolder: f\n{\n}\naddkey: k\n{\n}\n}");
    EXPECT_EQ(tree.root.folders.GetNumItems(), 4U);
    EXPECT_EQ(tree.root.keys.GetNumItems(), 2U);
    EXPECT_EQ(tree.Destroy(), 1);
    EXPECT_EQ(tree.root.folders.GetNumItems(), 4U);
}

TEST(Tree, KeyOfAnElementWithoutTextIsOneLine)
{
    const char text[] = "{\n\taddfolder: f {\n\t{\n\t\taddkey: a {\n\t\taddkey: b\n\t}\n\taddkey: c\n}\n";
    EXPECT_EQ(SaveText(LoadNew<TTree<CSys_ProfilerSystem::SProfileInfo>>(text)), text);
    TTree<TResourceHandle<CGraphics_Texture>> handles;
    LoadText(handles, text);
    EXPECT_EQ(SaveText(handles), text);
    EXPECT_EQ(handles.root.keys[0]->object, nullptr);
}

// Both keywords are tested on one line, the second on what the first has left of it.
TEST(Tree, FolderLineMayHoldAKeyToo)
{
    auto tree = LoadNew<TTree<CSys_ProfilerSystem::SProfileInfo>>("{\naddfolder: addkey: k\n{\n}\n}");
    ASSERT_EQ(tree.root.folders.GetNumItems(), 1U);
    ASSERT_EQ(tree.root.keys.GetNumItems(), 1U);
    EXPECT_EQ(tree.root.folders[0]->name, CSys_String(L"addkey: k"));
    EXPECT_EQ(tree.root.keys[0]->name, CSys_String(L"k"));
}

TEST(Tree, PassesOverUnknownBlocks)
{
    auto tree = LoadNew<CTree>("{\naddfolder: a {\n{\n}\nunknown:\n{\naddkey: inner\n{\n}\n}\naddkey: outer\n{\n}\n}");
    ASSERT_EQ(tree.root.keys.GetNumItems(), 1U);
    EXPECT_EQ(tree.root.keys[0]->name, CSys_String(L"outer"));
}

TEST(Tree, EscapesOfAnyNumberComeBack)
{
    auto tree = LoadNew<CTree>("addkey: a\n{\ntext: \"\\uFFFFFFFFFFFFFFFF;b\\u110000;\\uD800;\"\n}\n");
    EXPECT_EQ(tree.root.keys[0]->Get()[1], L'b');
    const std::string saved = SaveText(tree);
    auto again = LoadNew<CTree>(saved);
    EXPECT_EQ(SaveText(again), saved);
    EXPECT_EQ(CSys_String(*again.root.keys[0]), CSys_String(*tree.root.keys[0]));
}

TEST(Tree, AssignsAFolderFromBeneathItself)
{
    CRegistryWatch watch;
    {
        CTree tree;
        CFolder* const inner = AddFolder(*AddFolder(tree.root, L"outer"), L"inner");
        AddKey(*AddFolder(*inner, L"innermost"), L"key");
        const std::string expected = SaveText(*inner);
        for (CFolder* const source : {inner, &tree.root})
        {
            tree.root = *source;
            EXPECT_EQ(SaveText(tree), expected);
            EXPECT_EQ(tree.root.folders[0]->parent, &tree.root);
        }
    }
    EXPECT_TRUE(watch.IsBalanced());
}

TEST(Tree, DerivedTreesCopyTheirSystems)
{
    int system = 0;
    CG_Renderer::TTreeGui<CG_Renderer::CControlLayout> tree;
    tree.SetGraphicsSystem(reinterpret_cast<CGraphics_System*>(&system));
    tree.SetAudioSystem(reinterpret_cast<CAudio_System*>(&system));
    AddKey(tree.root, L"button")->width = 0.25F;
    const auto copy = tree;
    EXPECT_EQ(copy.GetGraphicsSystem(), tree.GetGraphicsSystem());
    EXPECT_EQ(copy.GetAudioSystem(), tree.GetAudioSystem());
    EXPECT_EQ(copy.root.keys[0]->width, 0.25F);
}

TEST(Tree, FoldersOfHandlesCannotBeCopied)
{
    using CHandleTree = TTree<TResourceHandle<CGraphics_Model>>;
    EXPECT_FALSE(std::is_copy_constructible_v<CHandleTree>);
    EXPECT_FALSE(std::is_copy_assignable_v<CHandleTree>);
    EXPECT_FALSE(std::is_copy_constructible_v<CHandleTree::CTreeFolder>);
    EXPECT_FALSE(std::is_copy_constructible_v<CHandleTree::CTreeKey>);
}

TEST(Tree, LoadsAThousandLevelsAndPassesOverTheRest)
{
    CLogWatch log(2);
    auto tree = LoadNew<CTree>(Nested(1000));
    EXPECT_EQ(CountLevels(tree.root), 1000U);
    auto again = LoadNew<CTree>(SaveText(tree));
    EXPECT_EQ(CountLevels(CTree(again).root), 1000U);
    EXPECT_EQ(log.GetText(), "");
    auto deeper = LoadNew<CTree>(Nested(100'000));
    EXPECT_EQ(CountLevels(deeper.root), 1000U);
    EXPECT_EQ(deeper.root.keys.GetNumItems(), 1U);
    EXPECT_EQ(log.GetText(), "text(2002): blocks nested deeper than 1000 levels are passed over\n");
}

namespace
{
/// Expects an element to take in the lines of its block and to write them again.
template <class T> void ExpectKept(std::initializer_list<const char*> lines)
{
    std::string text = "{\n";
    for (const char* const line : lines)
        text.append("\t").append(line).append("\n");
    text += "}\n";
    T element;
    EXPECT_EQ(LoadText(element, text), 1);
    EXPECT_EQ(SaveText(element), text);
}
} // namespace

// Every field, with numbers for which six decimals are too few.
TEST(TreeElements, KeepEveryField)
{
    ExpectKept<CSys_String>({"text: \"100% \\\"it\\\"\""});
    ExpectKept<CSys_Text>({"text: \"two words\"", "language: \"en\""});
    ExpectKept<SGui_TreeData>({"text: \"a {\"", "icon: 4294967295", "expanded: 1"});
    ExpectKept<CSys_DataNode>({"name: \"a\"", "kind: 4294967295", "value: \"// b\""});
    ExpectKept<CAudio_Sound>({"file: \"a\"", "volume: 0.100000001", "pitch: 1.17549449e-38", "range: -0", "looped: 1"});
    ExpectKept<CG_Renderer::CControlLayout>(
        {"look: \"a\"", "left: 0.100000001", "top: 1.40129846e-45", "width: 16777216", "height: 3.40282347e+38"});
    ExpectKept<CEffects_System::CEffects_Flare>({"texture: \"a\"", "color: 0.100000001 1.17549449e-38 -1.17549449e-38",
                                                 "alpha: 0.699999988", "size: 1.00000001e-07",
                                                 "position: -1.00000002e+30"});
    ExpectKept<CEffects_System::CEffects_LibraryEffect>(
        {"model: \"a\"", "sound: \"b\"", "lifetime: 1.17549449e-38", "count: 7"});
}
