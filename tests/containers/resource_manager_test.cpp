#include "containers/resource_manager.h"

#include "tests/support/documents.h"
#include "tests/support/resources.h"

#include <gmock/gmock.h>

namespace
{
using testing::ElementsAre;

/// Stands for one of the engine's systems, of which only the address counts.
template <class TSystem> TSystem* Pretend()
{
    static int place = 0;
    return reinterpret_cast<TSystem*>(&place);
}

std::vector<std::string> calls;

void Record(const char* call, bool knowssystem, unsigned long one, unsigned long other = 0)
{
    calls.push_back(std::string(call) + (knowssystem ? " with system " : " ") + std::to_string(one) + " " +
                    std::to_string(other));
}

/// Resources that record whether they know their system, and what they are told; they answer 7.
template <class X> class TWatched : public X
{
  public:
    const std::uint32_t* initializedcount = nullptr;

    Result CreateFromParser(CFile_Parser*, unsigned long newflags) override
    {
        const void* system = nullptr;
        if constexpr (requires { this->GetGraphicsSystem(); })
            system = this->GetGraphicsSystem();
        else
            system = this->GetAnimationSystem();
        Record("create", system != nullptr, newflags, initializedcount != nullptr ? *initializedcount : 0);
        return 7;
    }
};

class CWatchedBitmap : public CGui_StreamableBitmap
{
  public:
    Result CreateFromParser(CFile_Parser*, unsigned long newwidth, unsigned long newheight) override
    {
        Record("create", GetGraphicsSystem() != nullptr, newwidth, newheight);
        return 0;
    }
};

class CWatchedScriptSystem : public CEngine_ScriptSystem
{
  public:
    Result CreateFromGraph(TGraph<CSys_DataNode>* graph, CEngine_Script* script, unsigned long flags) override
    {
        Record("build", script->GetScriptSystem() == this, graph->nodes.GetNumItems(), flags);
        for (TKNode<CSys_DataNode>* const node : graph->nodes)
            *script->steps.Add() = *node;
        return 5;
    }
};
} // namespace

template <class X> class GraphicsManager : public testing::Test
{
};
using CGraphicsKinds =
    testing::Types<CGraphics_Font, CGraphics_Material, CGraphics_Model, CGraphics_Texture, CGraphics_VertexDeclaration>;
TYPED_TEST_SUITE(GraphicsManager, CGraphicsKinds);

TYPED_TEST(GraphicsManager, SetsTheSystemThenCreatesThenCounts)
{
    calls.clear();
    TGraphicsResourceManager<TypeParam> manager;
    manager.SetGraphicsSystem(Pretend<CGraphics_System>());
    TWatched<TypeParam> resource;
    resource.initializedcount = &manager.initializedCount;
    CFile_Parser parser;
    TResourceManager<TypeParam>& base = manager;
    EXPECT_EQ(base.InitializeObject(&resource, &parser, 3), 7);
    EXPECT_EQ(base.InitializeObject(&resource, &parser, 4), 7);
    EXPECT_THAT(calls, ElementsAre("create with system 3 0", "create with system 4 1"));
    TypeParam withoutdata;
    EXPECT_EQ(manager.InitializeObject(&withoutdata, &parser, 0), 0);
    EXPECT_EQ(manager.initializedCount, 3U) << "failures count";
}

TEST(ResourceManager, BitmapsBeginWith256By256)
{
    calls.clear();
    TGraphicsResourceManager<CGui_StreamableBitmap> manager;
    manager.SetGraphicsSystem(Pretend<CGraphics_System>());
    CWatchedBitmap bitmap;
    CFile_Parser parser;
    EXPECT_EQ(manager.InitializeObject(&bitmap, &parser, 99), 1);
    EXPECT_THAT(calls, ElementsAre("create with system 256 256"));
    EXPECT_EQ(manager.initializedCount, 1U);
}

TEST(ResourceManager, AnimationSetsAnswerOneWhateverTheyMade)
{
    calls.clear();
    TAnimationResourceManager<CEngine_AnimationSet> manager;
    manager.SetAnimationSystem(Pretend<CEngine_AnimationSystem>());
    TWatched<CEngine_AnimationSet> set;
    CFile_Parser parser;
    EXPECT_EQ(manager.InitializeObject(&set, &parser, 12), 1);
    EXPECT_THAT(calls, ElementsAre("create with system 12 0"));
}

TEST(ResourceManager, FilesTakeTextAndName)
{
    CFile_Parser source;
    source.Open("one\ntwo\n", 8);
    source.SetFilename(L"two.txt");
    wchar_t line[16];
    source.GetLine(line, 16);
    CFile_Parser file;
    file.Open("old text", 8);
    file.GetLine(line, 16);
    TFileResourceManager<CFile_Parser> manager;
    EXPECT_EQ(manager.InitializeObject(&file, &source, 0), 1);
    EXPECT_EQ(file.GetLine(line, 16), 1);
    EXPECT_STREQ(line, L"two");
    EXPECT_STREQ(file.GetFilename(), L"two.txt");
    EXPECT_EQ(source.GetOffset(), 3U);
}

TEST(ResourceManager, ScriptsAreBuiltFromTheirGraph)
{
    calls.clear();
    const std::string text = "{\naddnode:\n{\naddnodedata:\n{\nname: \"start\"\n}\n}\naddnode:\n{\n}\n}\n";
    CFile_Parser parser;
    parser.Open(text.data(), text.size());
    CWatchedScriptSystem system;
    TScriptResourceManager<CEngine_Script> manager;
    CEngine_Script script;

    EXPECT_EQ(manager.InitializeObject(&script, &parser, 8), 0);
    EXPECT_EQ(parser.GetOffset(), 0U);
    EXPECT_EQ(script.GetScriptSystem(), nullptr);

    manager.SetScriptSystem(&system);
    EXPECT_EQ(manager.InitializeObject(&script, &parser, 8), 5);
    EXPECT_THAT(calls, ElementsAre("build with system 2 0"));
    ASSERT_EQ(script.steps.GetNumItems(), 2U);
    EXPECT_STREQ(script.steps[0]->name.Get(), L"start");
}

TEST(ResourceManager, ResourcesTakeInWhatTheyAreGiven)
{
    CFile_Parser parser;
    parser.Open("head\n\0\1\2", 8);
    wchar_t line[16];
    parser.GetLine(line, 16);
    TGraphicsResourceManager<CGraphics_Texture> manager;
    CGraphics_Texture texture;
    EXPECT_EQ(manager.InitializeObject(&texture, &parser, 6), 1);
    EXPECT_EQ(texture.flags, 6U);
    ASSERT_EQ(texture.data.GetSize(), 4U);
    EXPECT_EQ(std::string(reinterpret_cast<const char*>(texture.data.GetBytes()), 4), std::string("\n\0\1\2", 4));

    FailAllocations(0, 1);
    parser.Reset();
    EXPECT_EQ(manager.InitializeObject(&texture, &parser, 6), 0);
    FailAllocations(0, 0);
    EXPECT_EQ(texture.data.GetSize(), 0U);
}

TEST(ResourceManager, KeepsHandlesAndTakesThemWithIt)
{
    using CManager = TScriptResourceManager<CEngine_Script>;
    CRegistryWatch watch;
    const std::int64_t before = GetMemoryCount();
    {
        CManager manager;
        CManager::THandle<CEngine_Script>& handle = *manager.handles.root.keys.Add();
        Store(handle, new CCountedScript);
        {
            CManager::THandleR<CEngine_Script> first;
            Hold(first, handle);
            const auto second = first;
            EXPECT_EQ(handle.refCount, 2U);
        }
        EXPECT_EQ(CCountedScript::live, 0) << "the last holder destroys the resource, and the handle stays";
        EXPECT_EQ(SaveText(manager.handles), "{\n\taddkey: \n}\n");
        Store(handle, new CCountedScript);
        handle.AddRef();
        Store(*manager.handles.root.folders.Add()->keys.Add(), new CCountedScript);
        EXPECT_EQ(CCountedScript::live, 2);
    }
    EXPECT_EQ(CCountedScript::live, 0);
    EXPECT_EQ(GetMemoryCount(), before);
    EXPECT_TRUE(watch.IsBalanced());
}

TEST(Synchronizer, LetsOneInAtATime)
{
    CSys_Synchronizer synchronizer;
    EXPECT_EQ(synchronizer.Enter(), 1);
    EXPECT_EQ(synchronizer.TryEnter(), 0);
    EXPECT_EQ(synchronizer.Leave(), 1);
    EXPECT_EQ(synchronizer.TryEnter(), 1);
}
