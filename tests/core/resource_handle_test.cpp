#include "core/graphics_material.h"
#include "tests/support/documents.h"

#include <gtest/gtest.h>

#include <type_traits>

namespace
{
class CCountedResource
{
  public:
    CCountedResource()
    {
        ++live;
    }
    virtual ~CCountedResource()
    {
        --live;
    }

    static inline int live = 0;
};

using CHandle = TResourceHandle<CCountedResource>;
using CReference = TResourceHandleR<CCountedResource>;

template <class X> X* Store(TResourceHandle<X>& handle, X* object)
{
    handle.object = object;
    MM->AddAllocation(object, L"test", sizeof(X), 0, 0, L"");
    IncreaseMemoryCount();
    return object;
}

class ResourceHandle : public testing::Test
{
  protected:
    void TearDown() override
    {
        EXPECT_EQ(CCountedResource::live, 0);
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
    Store(handle, new CCountedResource);
    EXPECT_EQ(handle.Release(), 0) << "nobody holds it";
    EXPECT_EQ(handle.AddRef(), 1);
    EXPECT_EQ(handle.AddRef(), 1);
    EXPECT_EQ(handle.Release(), 1);
    EXPECT_EQ(CCountedResource::live, 1);
    EXPECT_EQ(handle.Release(), 1);
    EXPECT_EQ(CCountedResource::live, 0);
    EXPECT_EQ(handle.object, nullptr);
    EXPECT_EQ(handle.refCount, 0U);
    EXPECT_EQ(handle.Release(), 0);
}

TEST_F(ResourceHandle, DestroyDoesNotAskTheCount)
{
    CHandle handle;
    EXPECT_EQ(handle.Destroy(), 1);
    Store(handle, new CCountedResource);
    handle.AddRef();
    handle.handleData = 3;
    handle.handleExtra = 4;
    EXPECT_EQ(handle.Destroy(), 1);
    EXPECT_EQ(CCountedResource::live, 0);
    EXPECT_EQ(handle.refCount, 0U);
    EXPECT_EQ(handle.handleData, 3U);
    EXPECT_EQ(handle.handleExtra, 4U);
    Store(handle, new CCountedResource); // for the destructor
}

TEST_F(ResourceHandle, WorksWithoutARegistry)
{
    CSys_MemoryManager* const registry = std::exchange(MM, nullptr);
    CHandle handle;
    handle.object = new CCountedResource;
    IncreaseMemoryCount();
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
    Store(handle, new CCountedResource);
    CReference first;
    first.handle = &handle;
    handle.AddRef();
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
    EXPECT_EQ(CCountedResource::live, 1);
    EXPECT_EQ(first.Destroy(), 1);
    EXPECT_EQ(CCountedResource::live, 0);
}

TEST_F(ResourceHandle, ReferenceToAHandleWithoutHoldersOnlyLetsGo)
{
    CHandle handle;
    Store(handle, new CCountedResource);
    CReference reference;
    reference.handle = &handle;
    EXPECT_EQ(reference.Destroy(), 1);
    EXPECT_EQ(reference.handle, nullptr);
    EXPECT_EQ(reference.previousHandle, &handle);
    EXPECT_NE(handle.object, nullptr);
}

TEST_F(ResourceHandle, AssignedReferenceChangesHandles)
{
    CHandle one;
    CHandle other;
    Store(one, new CCountedResource);
    Store(other, new CCountedResource);
    CReference first;
    first.handle = &one;
    one.AddRef();
    CReference second;
    second.handle = &other;
    other.AddRef();

    const CReference& same = first;
    first = same;
    EXPECT_EQ(one.refCount, 1U);
    first = second;
    EXPECT_EQ(one.object, nullptr);
    EXPECT_EQ(other.refCount, 2U);
    EXPECT_EQ(first.previousHandle, &one);
}

/// A resource that holds its own handle, as a script may, is still destroyed once.
TEST_F(ResourceHandle, ResourceMayHoldItsOwnHandle)
{
    struct SCircular : CCountedResource
    {
        TResourceHandleR<SCircular> self;
    };
    TResourceHandle<SCircular> handle;
    SCircular* const object = Store(handle, new SCircular);
    object->self.handle = &handle;
    handle.AddRef();
    EXPECT_EQ(object->self.Destroy(), 1);
    EXPECT_EQ(CCountedResource::live, 0);

    Store(handle, new SCircular)->self.handle = &handle;
    handle.AddRef();
    EXPECT_EQ(handle.Destroy(), 1);
    EXPECT_EQ(handle.refCount, 0U);
}

TEST_F(ResourceHandle, MaterialInstancesAreExported)
{
    TResourceHandle<CGraphics_Material> handle;
    Store(handle, new CGraphics_Material);
    TResourceHandleR<CGraphics_Material> reference;
    EXPECT_EQ(reference.Destroy(), 1);
    EXPECT_EQ(reference.handle, nullptr);
    EXPECT_EQ(reference.previousHandle, nullptr);
}
