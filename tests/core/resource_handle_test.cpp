#include "tests/support/documents.h"
#include "tests/support/resources.h"

#include <gtest/gtest.h>

#include <type_traits>

namespace
{
using CHandle = TResourceHandle<CCountedScript>;
using CReference = TResourceHandleR<CCountedScript>;

class ResourceHandle : public testing::Test
{
  protected:
    void TearDown() override
    {
        EXPECT_EQ(CCountedScript::live, 0);
        EXPECT_TRUE(watch.IsBalanced());
        EXPECT_EQ(GetMemoryCount(), memorycount);
    }

    CRegistryWatch watch;
    std::int64_t memorycount = GetMemoryCount();
};

static_assert(!std::is_copy_constructible_v<CHandle> && !std::is_copy_assignable_v<CHandle>);
} // namespace

TEST_F(ResourceHandle, LastReleaseDestroysTheResource)
{
    CHandle handle;
    EXPECT_EQ(handle.Release(), 0);
    Store(handle, new CCountedScript);
    EXPECT_EQ(handle.Release(), 0) << "nobody holds it";
    EXPECT_EQ(handle.AddRef(), 1);
    EXPECT_EQ(handle.AddRef(), 1);
    EXPECT_EQ(handle.Release(), 1);
    EXPECT_EQ(CCountedScript::live, 1);
    EXPECT_EQ(handle.Release(), 1);
    EXPECT_EQ(CCountedScript::live, 0);
    EXPECT_EQ(handle.object, nullptr);
    EXPECT_EQ(handle.refCount, 0U);
    EXPECT_EQ(handle.Release(), 0);
}

TEST_F(ResourceHandle, DestroyDoesNotAskTheCount)
{
    CHandle handle;
    EXPECT_EQ(handle.Destroy(), 1);
    Store(handle, new CCountedScript);
    handle.AddRef();
    handle.handleData = 3;
    handle.handleExtra = 4;
    EXPECT_EQ(handle.Destroy(), 1);
    EXPECT_EQ(CCountedScript::live, 0);
    EXPECT_EQ(handle.refCount, 0U);
    EXPECT_EQ(handle.handleData, 3U);
    EXPECT_EQ(handle.handleExtra, 4U);
    Store(handle, new CCountedScript); // for the destructor
}

TEST_F(ResourceHandle, WorksWithoutARegistry)
{
    CSys_MemoryManager* const registry = std::exchange(MM, nullptr);
    CHandle handle;
    Store(handle, new CCountedScript);
    EXPECT_EQ(handle.Destroy(), 1);
    MM = registry;
}

TEST_F(ResourceHandle, TakesAndWritesNoText)
{
    CHandle handle;
    EXPECT_EQ(LoadText(handle, "text"), 1);
    EXPECT_EQ(SaveText(handle), "");
    EXPECT_EQ(handle.Save(nullptr), 1);
}

TEST_F(ResourceHandle, CopiedReferenceIsAHolder)
{
    CHandle handle;
    Store(handle, new CCountedScript);
    CReference first;
    EXPECT_EQ(first.Destroy(), 1);
    EXPECT_EQ(first.previousHandle, nullptr) << "it held nothing";
    Hold(first, handle);
    {
        CReference copy(first);
        EXPECT_EQ(handle.refCount, 2U);
        EXPECT_EQ(copy.Destroy(), 1);
        EXPECT_EQ(handle.refCount, 1U);
        EXPECT_EQ(copy.handle, nullptr);
        EXPECT_EQ(copy.previousHandle, &handle);
        const CReference another(copy);
        EXPECT_EQ(another.previousHandle, &handle);
    }
    EXPECT_EQ(CCountedScript::live, 1);
    EXPECT_EQ(first.Destroy(), 1);
    EXPECT_EQ(CCountedScript::live, 0);
}

TEST_F(ResourceHandle, ReferenceToAHandleWithoutHoldersOnlyLetsGo)
{
    CHandle handle;
    Store(handle, new CCountedScript);
    CReference reference;
    reference.handle = &handle;
    EXPECT_EQ(reference.Destroy(), 1);
    EXPECT_EQ(reference.handle, nullptr);
    EXPECT_EQ(reference.previousHandle, &handle);
    EXPECT_NE(handle.object, nullptr);
}

TEST_F(ResourceHandle, AssignedReferenceChangesHandles)
{
    CHandle handles[2];
    CReference references[2];
    for (int i = 0; i < 2; ++i)
    {
        Store(handles[i], new CCountedScript);
        Hold(references[i], handles[i]);
    }
    const CReference& same = references[0];
    references[0] = same;
    EXPECT_EQ(handles[0].refCount, 1U);
    references[0] = references[1];
    EXPECT_EQ(handles[0].object, nullptr);
    EXPECT_EQ(handles[1].refCount, 2U);
    EXPECT_EQ(references[0].previousHandle, &handles[0]);
}

/// A resource that holds its own handle, as a script may, is still destroyed once.
TEST_F(ResourceHandle, ResourceMayHoldItsOwnHandle)
{
    struct SCircular : CCountedScript
    {
        TResourceHandleR<SCircular> self;
    };
    TResourceHandle<SCircular> handle;
    SCircular* const object = Store(handle, new SCircular);
    Hold(object->self, handle);
    EXPECT_EQ(object->self.Destroy(), 1);
    EXPECT_EQ(CCountedScript::live, 0);

    Hold(Store(handle, new SCircular)->self, handle);
    EXPECT_EQ(handle.Destroy(), 1);
    EXPECT_EQ(handle.refCount, 0U);
}
