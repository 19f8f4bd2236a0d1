#include "core/core_templates.h"

#include "tests/support/documents.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <memory>

namespace
{
/// Owns a heap value, so that a byte moved wrongly, a missed destruction or a double one shows.
class CCounted
{
  public:
    using BytesCanMove = CCounted;
    static inline int alive = 0;

    CCounted() : value(new int(0))
    {
        ++alive;
    }
    CCounted(const CCounted& other) : value(new int(*other.value))
    {
        ++alive;
    }
    CCounted& operator=(const CCounted& other)
    {
        *value = *other.value;
        return *this;
    }
    ~CCounted()
    {
        --alive;
        delete value;
    }

    int* value;
};

struct SLarge
{
    using BytesCanMove = SLarge;
    CCounted counted;
    std::byte rest[100] = {};
};

/// Writes down every call of the arrays, in order.
class CRecordingManager : public CSys_MemoryManager
{
  public:
    Result AddAllocation(void*, const wchar_t* source, std::size_t size, unsigned long line, int isarray,
                         const wchar_t* note) override
    {
        EXPECT_STREQ(source, L"core_templates");
        EXPECT_STREQ(note, L"");
        calls += "+" + std::to_string(size) + "@" + std::to_string(line) + (isarray != 0 ? "[] " : " ");
        return 1;
    }

    Result RemoveAllocation(void*) override
    {
        calls += "- ";
        return 1;
    }

    std::string Take()
    {
        return std::exchange(calls, {});
    }

  private:
    std::string calls;
};

class CArrays : public testing::Test
{
  protected:
    CArrays()
    {
        MM = &manager;
    }
    ~CArrays() override
    {
        FailAllocations(0, 0);
        MM = nullptr;
        EXPECT_EQ(CCounted::alive, 0);
    }

    CRecordingManager manager;
};
} // namespace

TEST_F(CArrays, GrowByStepsAndHoldOneSlotBack)
{
    TArray<int> array;
    EXPECT_EQ(array.GetLast(), nullptr);
    for (int i = 0; i < 128; ++i)
    {
        EXPECT_EQ(array.Capacity, i == 0 ? 0U : 128U);
        *array.Add() = i;
    }
    EXPECT_EQ(array.Capacity, 256U) << "the 128th element is the one that grows the block";
    EXPECT_EQ(array.GetNumItems(), 128U);
    EXPECT_EQ(*array[127], 127);
    EXPECT_EQ(manager.Take(), "+512@354[] - +1024@354[] ");
    array.DeleteAll();
    EXPECT_EQ(manager.Take(), "- ");
    EXPECT_EQ(array.Step, 128U);
    EXPECT_EQ(array.Items, nullptr);
}

TEST_F(CArrays, CountEveryAttemptAndRelease)
{
    const std::int64_t before = GetMemoryCount();
    {
        TArray<int> array;
        array.CreateMultiple(3);
        array.Add();
        EXPECT_EQ(GetMemoryCount(), before + 1) << "a growth takes one up and one down";
        TPArray<int> pointers;
        pointers.Add();
        EXPECT_EQ(GetMemoryCount(), before + 3);
    }
    EXPECT_EQ(GetMemoryCount(), before);
}

TEST_F(CArrays, CreateExactlyWhatIsAskedFor)
{
    TArray<int> array;
    EXPECT_EQ(array.CreateMultiple(5), 1);
    EXPECT_EQ(array.GetNumItems(), 5U);
    EXPECT_EQ(array.Capacity, 5U);
    *array[4] = 44;
    const int* const added = array.Add();
    EXPECT_EQ(added, array[5]);
    EXPECT_EQ(array.Capacity, 133U);
    EXPECT_EQ(*array[4], 44);
    EXPECT_EQ(array.CreateMultiple(0), 1);
    EXPECT_EQ(array.Capacity, 0U);
    array.Add();
    EXPECT_EQ(array.Capacity, 128U);
    EXPECT_EQ(manager.Take(), "+20@490[] - +532@354[] - +0@490[] - +512@354[] ");
    if constexpr (sizeof(unsigned long) > 4)
    {
        EXPECT_EQ(array.CreateMultiple(static_cast<unsigned long>(0x1'0000'0000)), 0) << "counts have 32 bits";
        EXPECT_EQ(array.GetNumItems(), 0U);
    }
}

TEST_F(CArrays, CreateWhatIsMadeForEachIndex)
{
    TArray<CCounted> array;
    array.Add();
    manager.Take();
    const auto make = [](std::size_t index)
    {
        CCounted made;
        *made.value = static_cast<int>(index) * 10;
        return made;
    };
    EXPECT_EQ(array.CreateMultiple(3, make), 1);
    EXPECT_EQ(array.GetNumItems(), 3U);
    EXPECT_EQ(array.Capacity, 3U);
    EXPECT_EQ(*array[2]->value, 20);
    EXPECT_EQ(CCounted::alive, 3);
    EXPECT_EQ(manager.Take(), "- +" + std::to_string(3 * sizeof(CCounted)) + "@490[] ");
    *array.Add()->value = 30;
    EXPECT_EQ(*array[1]->value, 10);
    FailAllocations(0, ~0ULL);
    EXPECT_EQ(array.CreateMultiple(3, make), 0);
    FailAllocations(0, 0);
    EXPECT_EQ(array.Items, nullptr);
    EXPECT_EQ(CCounted::alive, 0);
}

TEST_F(CArrays, DeleteInOrder)
{
    TArray<CCounted> array;
    EXPECT_EQ(array.DeleteOrdered(0), 1);
    for (int i = 1; i <= 3; ++i)
        *array.Add()->value = i * 10;
    EXPECT_EQ(array.DeleteOrdered(3), 1) << "past the end nothing happens";
    EXPECT_EQ(array.GetNumItems(), 3U);
    array.DeleteOrdered(1);
    ASSERT_EQ(array.GetNumItems(), 2U);
    EXPECT_EQ(*array[0]->value, 10);
    EXPECT_EQ(*array[1]->value, 30);
    EXPECT_EQ(*array.Add()->value, 30) << "the slot keeps a copy of what was last";
    array.Reset();
    EXPECT_EQ(*array.Add()->value, 10) << "and so does one after a reset";
    EXPECT_EQ(array.Capacity, 128U);
}

TEST_F(CArrays, CarryWhatElementsOwn)
{
    TArray<CCounted> array;
    for (int i = 0; i < 1000; ++i)
        *array.Add()->value = i;
    EXPECT_EQ(CCounted::alive, static_cast<int>(array.Capacity)) << "every slot holds one element, once";
    for (unsigned long i = 0; i < 1000; ++i)
        EXPECT_EQ(*array[i]->value, static_cast<int>(i));
}

TEST_F(CArrays, CopyAndMove)
{
    TArray<CCounted> array;
    *array.Add()->value = 7;
    TArray<CCounted> copy(array);
    *copy[0]->value = 8;
    EXPECT_EQ(*array[0]->value, 7);
    array = copy;
    EXPECT_EQ(*array[0]->value, 8);
    EXPECT_LT(array.NumItems, array.Capacity);
    TArray<CCounted> moved(std::move(copy));
    EXPECT_EQ(copy.Items, nullptr); // NOLINT(bugprone-use-after-move): this is what is tested
    EXPECT_EQ(*moved[0]->value, 8);
    TArray<CCounted>& itself = moved;
    moved = itself;
    EXPECT_EQ(moved.GetNumItems(), 1U);

    TPArray<TPArray<int>> outer;
    *outer.Add()->Add() = 5;
    TPArray<int> inner;
    inner = *outer[0];
    EXPECT_EQ(*inner[0], 5);
    EXPECT_NE(inner[0], (*outer[0])[0]);
}

TEST_F(CArrays, OfPointersKeepElementsInPlace)
{
    TPArray<CCounted> array;
    EXPECT_EQ(array.GetLast(), nullptr);
    CCounted* const first = array.Add();
    const std::string one = std::to_string(sizeof(CCounted)) + "@168 ";
    EXPECT_EQ(manager.Take(), "+1024@146[] +" + one);
    for (int i = 1; i < 128; ++i)
        *array.Add()->value = i;
    EXPECT_EQ(array.Capacity, 256U);
    EXPECT_NE(manager.Take().find("- +2040@146[] "), std::string::npos) << "255 pointers: one less than the capacity";
    for (int i = 128; i < 1000; ++i)
        *array.Add()->value = i;
    EXPECT_EQ(array[0], first);
    EXPECT_EQ(*array[999]->value, 999);
    EXPECT_EQ(array.GetLast(), array[999]);
}

TEST_F(CArrays, StayWholeWithoutMemory)
{
    TArray<CCounted> array;
    for (int i = 0; i < 127; ++i)
        *array.Add()->value = i;
    manager.Take();
    FailAllocations(0, ~0ULL);
    EXPECT_EQ(array.Add(), nullptr);
    EXPECT_EQ(manager.Take(), "- +" + std::to_string(128 * sizeof(CCounted)) + "@354[] ")
        << "the old block is put back";
    EXPECT_EQ(array.GetNumItems(), 127U);
    EXPECT_EQ(*array[126]->value, 126);
    TArray<CCounted> copy(array);
    EXPECT_EQ(copy.GetNumItems(), 0U);
    EXPECT_EQ(array.CreateMultiple(1), 0);
    EXPECT_EQ(array.Items, nullptr);

    TPArray<CCounted> pointers;
    EXPECT_EQ(pointers.Add(), nullptr);
    FailAllocations(1, 1); // the pointer block comes, the element does not
    EXPECT_EQ(pointers.Add(), nullptr);
    EXPECT_EQ(pointers.GetNumItems(), 0U);
    EXPECT_NE(pointers.Add(), nullptr);
}

TEST(Arrays, TakeLittleForShortLists)
{
    {
        TArray<SLarge> array;
        *array.Add()->counted.value = 0;
        EXPECT_EQ(array.Capacity, 128U);
        EXPECT_LT(CCounted::alive, 30);
        const TArray<SLarge> copy(array);
        EXPECT_EQ(CCounted::alive, static_cast<int>(2 * array.Room));
        while (array.NumItems + 1 < array.Room)
            *array.Add()->counted.value = static_cast<int>(array.NumItems); // read before it grows
        FailAllocations(0, 1);
        EXPECT_EQ(array.Add(), nullptr);
        CSys_MemoryManager registry;
        registry.AddAllocation(array.Items, L"", 1, 1, 1, L"");
        MM = &registry; // from now on it is told where the block went
        while (array.NumItems < 300)
            *array.Add()->counted.value = static_cast<int>(array.NumItems); // read before it grows
        EXPECT_EQ(array.Room, 384U);
        EXPECT_EQ(*array[0]->counted.value + *array[299]->counted.value, 299);
        array.DeleteAll();
        EXPECT_EQ(registry.GetNumMistakes() + registry.GetNumAllocations(), 0U);
        MM = nullptr;
    }
    EXPECT_EQ(CCounted::alive, 0);

    TPArray<int> pointers;
    for (int i = 0; i < 300; ++i)
        *pointers.Add() = i;
    EXPECT_EQ(*pointers[14] + *pointers[299], 313);
    EXPECT_EQ(pointers.Capacity, 384U);
}

TEST(TUserData, HasOneSlot)
{
    int target = 0;
    TUserData data;
    EXPECT_EQ(data.GetUserData(0), nullptr);
    EXPECT_EQ(data.SetUserData(0, &target), 1);
    EXPECT_EQ(data.SetUserData(1, nullptr), 0);
    TUserData copy;
    copy = data;
    EXPECT_EQ(copy.GetUserData(0), &target);
    EXPECT_EQ(copy.GetUserData(1), nullptr);
}

TEST(MemoryManager, KeepsBlocksAndMistakes)
{
    CSys_MemoryManager manager;
    int block = 0;
    EXPECT_EQ(manager.AddAllocation(&block, L"a", 10, 1, 0, L""), 1);
    EXPECT_EQ(manager.AddAllocation(&block, L"a", 30, 1, 0, L""), 0);
    EXPECT_EQ(manager.GetAllocatedSize(), 30U);
    EXPECT_EQ(manager.RemoveAllocation(&block), 1);
    EXPECT_EQ(manager.RemoveAllocation(&block), 0);
    EXPECT_EQ(manager.GetNumAllocations(), 0U);
    EXPECT_EQ(manager.GetNumMistakes(), 2U);
}

TEST(MemoryManager, KeepsBytesFromSmallBlocksToLargeOnes)
{
    std::size_t size = 1'000;
    auto* block = static_cast<char*>(ObtainBlock(size));
    for (const std::size_t newsize : {5'000U, 300'000U, 900'000U, 9'000'000U, 90'000'000U})
    {
        block[0] = 'a';
        block[size - 1] = 'z';
        block = static_cast<char*>(ResizeBlock(block, size, newsize));
        ASSERT_NE(block, nullptr) << newsize;
        EXPECT_EQ(block[0], 'a') << newsize;
        EXPECT_EQ(block[size - 1], 'z') << newsize;
        size = newsize;
    }
    ReleaseBlock(block);
}

TEST(MemoryManager, ResizesInPlaceWithinAQuarter)
{
    void* block = ObtainBlock(100'000);
    EXPECT_EQ(ResizeBlock(block, 100'000, 104'000), block);
    block = ResizeBlock(block, 104'000, 1'000'000);
    ReleaseBlock(block);
    EXPECT_EQ(ObtainBlock(~std::size_t{0}), nullptr);
}
