#include "containers/tree.h"

#include "tests/support/documents.h"
#include "tests/support/random_texts.h"

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
    std::string text = "{\n";
    for (unsigned i = 0; i < levels; ++i)
        text += "addfolder: f\n{\n";
    for (unsigned i = 0; i < levels; ++i)
        text += "}\n";
    return text + "addkey: last\n{\n}\n}\n";
}

unsigned CountLevels(const CFolder& root)
{
    unsigned levels = 0;
    for (const CFolder* folder = &root; folder->folders.GetNumItems() != 0; folder = folder->folders[0])
        ++levels;
    return levels;
}
} // namespace

TEST(Tree, EmptyTreeIsAnEmptyBlock)
{
    CTree tree;
    EXPECT_EQ(SaveText(tree), "{\n}\n");
    EXPECT_EQ(LoadText(tree, "{\n}\n"), 1);
    EXPECT_EQ(LoadText(tree, ""), 1);
    EXPECT_EQ(tree.root.folders.GetNumItems() + tree.root.keys.GetNumItems(), 0U);
}

TEST(Tree, SavesSubfoldersBeforeKeys)
{
    CTree tree;
    LoadText(tree, "{\naddkey: A\n{\ntext: \"a\"\n}\naddfolder: two words\n{\naddkey: B\n{\n}\n}\nnonsense\n}\n");
    EXPECT_EQ(SaveText(tree), "{\n\taddfolder: two words\n\t{\n\t\taddkey: B\n\t\t{\n\t\t}\n\t}\n\taddkey: "
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
    TTree<CSys_ProfilerSystem::SProfileInfo> measurements;
    LoadText(measurements, text);
    EXPECT_EQ(SaveText(measurements), text);
    TTree<TResourceHandle<CGraphics_Texture>> handles;
    LoadText(handles, text);
    EXPECT_EQ(SaveText(handles), text);
    EXPECT_EQ(handles.root.keys[0]->object, nullptr);
}

// Both keywords are tested on one line, the second on what the first has left of it.
TEST(Tree, FolderLineMayHoldAKeyToo)
{
    TTree<CSys_ProfilerSystem::SProfileInfo> tree;
    LoadText(tree, "{\naddfolder: addkey: k\n{\n}\n}");
    ASSERT_EQ(tree.root.folders.GetNumItems(), 1U);
    ASSERT_EQ(tree.root.keys.GetNumItems(), 1U);
    EXPECT_EQ(tree.root.folders[0]->name, CSys_String(L"addkey: k"));
    EXPECT_EQ(tree.root.keys[0]->name, CSys_String(L"k"));
}

TEST(Tree, PassesOverUnknownBlocks)
{
    CTree tree;
    LoadText(tree, "{\naddfolder: a {\n{\n}\nunknown:\n{\naddkey: inner\n{\n}\n}\naddkey: outer\n{\n}\n}");
    ASSERT_EQ(tree.root.keys.GetNumItems(), 1U);
    EXPECT_EQ(tree.root.keys[0]->name, CSys_String(L"outer"));
}

TEST(Tree, EscapesOfAnyNumberComeBack)
{
    CTree tree;
    LoadText(tree, "addkey: a\n{\ntext: \"\\uFFFFFFFFFFFFFFFF;b\\u110000;\\uD800;\"\n}\n");
    EXPECT_EQ(tree.root.keys[0]->Get()[1], L'b');
    const std::string saved = SaveText(tree);
    CTree again;
    LoadText(again, saved);
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

TEST(TreeDepth, ThousandLevelsLoadWhole)
{
    CLogWatch log;
    CTree tree;
    LoadText(tree, Nested(1000));
    EXPECT_EQ(CountLevels(tree.root), 1000U);
    EXPECT_EQ(log.GetText(), "");
    CTree again;
    LoadText(again, SaveText(tree));
    EXPECT_EQ(CountLevels(again.root), 1000U);
    EXPECT_EQ(CountLevels(CTree(again).root), 1000U);
}

TEST(TreeDepth, DeeperLevelsArePassedOver)
{
    CLogWatch log(2);
    CTree tree;
    LoadText(tree, Nested(100'000));
    EXPECT_EQ(CountLevels(tree.root), 1000U);
    ASSERT_EQ(tree.root.keys.GetNumItems(), 1U);
    EXPECT_EQ(log.GetText(), "text(2002): blocks nested deeper than 1000 levels are passed over\n");
}

namespace
{
constexpr float Awkward = 0.1F; // six decimals are too few for these
constexpr float Tiny = 1.17549449e-38F;

void SetFields(CSys_String& element, const wchar_t* text)
{
    element = text;
}
void SetFields(CSys_Text& element, const wchar_t* text)
{
    element.text = text;
    element.language = text;
}
void SetFields(SGui_TreeData& element, const wchar_t* text)
{
    element.text = text;
    element.icon = 0xFFFFFFFF;
    element.expanded = 1;
}
void SetFields(CSys_DataNode& element, const wchar_t* text)
{
    element.name = text;
    element.kind = 0xFFFFFFFF;
    element.value = text;
}
void SetFields(CAudio_Sound& element, const wchar_t* text)
{
    element.file = text;
    element.volume = Awkward;
    element.pitch = Tiny;
    element.range = -0.0F;
    element.looped = 1;
}
void SetFields(CG_Renderer::CControlLayout& element, const wchar_t* text)
{
    element.look = text;
    element.left = Awkward;
    element.top = Tiny;
    element.width = 16777217.0F;
    element.height = 3.40282347e38F;
}
void SetFields(CEffects_System::CEffects_Flare& element, const wchar_t* text)
{
    element.texture = text;
    element.color = {Awkward, Tiny, -Tiny, 0.7F};
    element.size = 1e-7F;
    element.position = -1e30F;
}
void SetFields(CEffects_System::CEffects_LibraryEffect& element, const wchar_t* text)
{
    element.model = text;
    element.sound = text;
    element.lifetime = Tiny;
    element.count = 7;
}
} // namespace

template <class T> class TreeElement : public testing::Test
{
};
using CElements =
    testing::Types<CSys_String, CSys_Text, SGui_TreeData, CSys_DataNode, CAudio_Sound, CG_Renderer::CControlLayout,
                   CEffects_System::CEffects_Flare, CEffects_System::CEffects_LibraryEffect>;
TYPED_TEST_SUITE(TreeElement, CElements);

// Saving again shows every field, since all are written with as many digits as they need.
TYPED_TEST(TreeElement, ReadsBackWhatItWrote)
{
    CRandomTexts random(3);
    for (int i = 0; i < 100; ++i)
    {
        TypeParam element;
        SetFields(element, (random.Text() + L'.').c_str());
        const std::string text = SaveText(element);
        TypeParam loaded;
        EXPECT_NE(SaveText(loaded), text);
        EXPECT_EQ(LoadText(loaded, text), 1);
        EXPECT_EQ(SaveText(loaded), text);
    }
}

TEST(TreeElements, FloatsKeepEveryBit)
{
    CEffects_System::CEffects_Flare flare;
    SetFields(flare, L"");
    CEffects_System::CEffects_Flare loaded;
    LoadText(loaded, SaveText(flare));
    EXPECT_EQ(loaded.color.r, Awkward);
    EXPECT_EQ(loaded.color.g, Tiny);
    EXPECT_EQ(loaded.color.b, -Tiny);
    EXPECT_EQ(loaded.color.a, 0.7F);
    EXPECT_EQ(loaded.size, 1e-7F);
    EXPECT_EQ(loaded.position, -1e30F);
}
