/// The growable arrays that every record uses, and the one-slot user data.
///
/// TArray keeps its elements by value in one block; TPArray keeps a block of pointers to elements
/// that it creates and owns one by one, so they never move. Both announce every block and element to
/// the registry MM and count it. Allocation never throws: what cannot be had is null or 0.
#pragma once

#include "core/core_base.h"
#include "core/memory_manager.h"

#include <algorithm>
#include <cstring>
#include <limits>
#include <memory>
#include <new>
#include <type_traits>
#include <utility>

/// Whether a T may be carried to another address by moving its bytes, which is how TArray grows.
/// True for plain data. A class that never points into itself says so by naming itself:
///     using BytesCanMove = CSomeRecord;
/// A derived class has to say it again.
template <class T>
inline constexpr bool CanMoveBytes = []
{
    if constexpr (requires { typename T::BytesCanMove; })
        return std::is_same_v<typename T::BytesCanMove, T>;
    else
        return std::is_trivially_copyable_v<T>;
}();

/// What both arrays do with raw blocks: obtain, resize and release them, telling the registry and
/// the counters. The line numbers tell the places apart in the registry's listing.
class CArrayStorage
{
  public:
    static constexpr unsigned long PointerBlockLine = 146;
    static constexpr unsigned long ElementLine = 168;
    static constexpr unsigned long GrownBlockLine = 354;
    static constexpr unsigned long CreatedBlockLine = 490;

    /// After an attempt to obtain a block, which is null when it failed.
    static void Register(void* block, std::size_t size, unsigned long line, int isarray)
    {
        if (block != nullptr && MM != nullptr)
            MM->AddAllocation(block, L"core_templates", size, line, isarray, L"");
        IncreaseMemoryCount();
    }

    /// Before what the block holds is destroyed.
    static void Unregister(void* block)
    {
        if (MM != nullptr)
            MM->RemoveAllocation(block);
    }

    static void Release(void* block)
    {
        ReleaseBlock(block);
        DecreaseMemoryCount();
    }

    /// How much of a new block of `size` bytes is obtained at first, so that many short lists do not take much
    /// more than they hold. A registry is told what is there: with one, all of it.
    static std::size_t GetFirstSize(std::size_t size, std::size_t enough)
    {
        return MM == nullptr && enough < size ? enough : size;
    }

    /// Obtains the rest of such a block. Null, the old block untouched, when there is no memory.
    static void* Complete(void* block, std::size_t oldsize, std::size_t size, unsigned long line)
    {
        void* whole = ResizeBlock(block, oldsize, size);
        if (whole != nullptr && whole != block && MM != nullptr)
        {
            MM->RemoveAllocation(block);
            MM->AddAllocation(whole, L"core_templates", size, line, 1, L"");
        }
        return whole;
    }

    /// The address may stay the same, so the old block leaves the registry before the new one enters
    /// it, and returns there when the new one cannot be had.
    static void* Grow(void* block, std::size_t oldsize, std::size_t newsize, unsigned long line)
    {
        if (block == nullptr)
        {
            void* first = ObtainBlock(newsize);
            Register(first, newsize, line, 1);
            return first;
        }
        Unregister(block);
        void* grown = ResizeBlock(block, oldsize, newsize);
        Register(grown != nullptr ? grown : block, grown != nullptr ? newsize : oldsize, line, 1);
        if (grown != nullptr)
            DecreaseMemoryCount();
        return grown;
    }
};

/// A growable array of T by value.
///
/// Grows by Step slots, and one slot is always held back: after any Add, NumItems < Capacity. Growing
/// costs time linear in the number of elements, however small the step, since the block resizes in
/// place mostly (ResizeBlock). Every slot of Room is constructed; a slot past NumItems keeps what it last
/// held. Growth moves the elements: addresses from Add, operator[] and GetLast hold until then.
/// Copying copies every element (nothing, when there is no memory); moving hands the block over.
/// T: default-constructible, CanMoveBytes, no stricter alignment than std::max_align_t.
template <class T> class TArray
{
  public:
    T* Items = nullptr;         ///< The block; null when there is none.
    std::uint32_t NumItems = 0; ///< Elements in use, at 0 to NumItems - 1.
    std::uint32_t Capacity = 0; ///< Slots in the block once Room is all of it.
    std::uint32_t Step = 128;   ///< Slots added at each growth.
    std::uint32_t Room = 0;     ///< Slots obtained so far: Capacity, or of a short list the first few.

    TArray();

    TArray(const TArray& other) : Step(other.Step)
    {
        CopyItems(other);
    }

    TArray(TArray&& other) noexcept
    {
        Swap(other);
    }

    // The source may belong to an element of this array, so the old contents go last.
    TArray& operator=(const TArray& other)
    {
        TArray copy(other);
        Swap(copy);
        return *this;
    }

    TArray& operator=(TArray&& other) noexcept
    {
        TArray taken(std::move(other));
        Swap(taken);
        return *this;
    }

    ~TArray()
    {
        DeleteAll();
    }

    /// Appends a slot, as it stands, and returns its address; null, the array unchanged, when the
    /// block cannot grow.
    T* Add()
    {
        if (NumItems + 1 >= Room && !Grow())
            return nullptr;
        return &Items[NumItems++];
    }

    /// Replaces the contents by `count` default-constructed elements, all in use. Returns 0, the
    /// array left empty, when there is no memory for them.
    Result CreateMultiple(unsigned long count)
    {
        return Create(count, count, count);
    }

    /// Replaces the contents by `count` elements, all in use: make(index) for each index in order, called when
    /// the old contents are gone. Returns 0, the array left empty, when there is no memory for them.
    template <class TMake> Result CreateMultiple(unsigned long count, TMake make)
    {
        auto* const block = static_cast<T*>(ObtainNew(count, count));
        if (block == nullptr)
            return 0;
        for (std::size_t i = 0; i < count; ++i)
            new (block + i) T(make(i));
        Items = block;
        NumItems = static_cast<std::uint32_t>(count);
        Capacity = NumItems;
        Room = NumItems;
        return 1;
    }

    /// Destroys every element and releases the block; Step stays. Returns 1.
    Result DeleteAll()
    {
        if (Items != nullptr)
        {
            CArrayStorage::Unregister(Items);
            std::destroy_n(Items, Room);
            CArrayStorage::Release(Items);
        }
        Items = nullptr;
        NumItems = 0;
        Capacity = 0;
        Room = 0;
        return 1;
    }

    /// Takes the element at `index` out, those behind it move up by assignment; linear. The last slot
    /// keeps a copy of the last element. An index past the end changes nothing. Returns 1.
    Result DeleteOrdered(unsigned long index)
    {
        if (index >= NumItems)
            return 1;
        for (std::size_t i = index + 1; i < NumItems; ++i)
            Items[i - 1] = std::as_const(Items[i]);
        --NumItems;
        return 1;
    }

    /// Address of the element at `index`, which is not checked.
    T* operator[](unsigned long index)
    {
        return &Items[index];
    }

    const T* operator[](unsigned long index) const
    {
        return &Items[index];
    }

    /// Address of the last element; null when there is none.
    T* GetLast()
    {
        return NumItems == 0 ? nullptr : &Items[NumItems - 1];
    }

    unsigned long GetNumItems() const
    {
        return NumItems;
    }

    /// The elements as one plain array; null when there is no block.
    T* GetArray()
    {
        return Items;
    }

    /// Forgets the elements but keeps the block and what its slots hold. Returns 1.
    Result Reset()
    {
        NumItems = 0;
        return 1;
    }

    T* begin()
    {
        return Items;
    }

    T* end()
    {
        return Items + NumItems;
    }

    const T* begin() const
    {
        return Items;
    }

    const T* end() const
    {
        return Items + NumItems;
    }

  private:
    /// Makes at least one more slot usable.
    bool Grow()
    {
        static_assert(CanMoveBytes<T>, "A growing array moves the bytes of its elements: see CanMoveBytes.");
        static_assert(alignof(T) <= alignof(std::max_align_t), "Blocks are aligned for ordinary types only.");
        if (Room < Capacity)
            return SetRoom(
                CArrayStorage::Complete(Items, Room * sizeof(T), Capacity * sizeof(T), CArrayStorage::GrownBlockLine),
                Capacity);
        if (Capacity > std::numeric_limits<std::uint32_t>::max() - Step)
            return false;
        const std::uint32_t grown = Capacity + Step;
        constexpr std::size_t firstroom = 2048 / sizeof(T) + 2; // all of a step of small elements
        const std::size_t size =
            Capacity == 0 ? CArrayStorage::GetFirstSize(grown * sizeof(T), firstroom * sizeof(T)) : grown * sizeof(T);
        if (!SetRoom(CArrayStorage::Grow(Items, Capacity * sizeof(T), size, CArrayStorage::GrownBlockLine),
                     static_cast<std::uint32_t>(size / sizeof(T))))
            return false;
        Capacity = grown;
        return true;
    }

    bool SetRoom(void* block, std::uint32_t slots)
    {
        if (block == nullptr)
            return false;
        Items = static_cast<T*>(block);
        std::uninitialized_value_construct_n(Items + Room, slots - Room);
        Room = slots;
        return true;
    }

    Result Create(std::size_t slots, std::size_t real, std::size_t count)
    {
        void* const block = ObtainNew(slots, real);
        if (!SetRoom(block, static_cast<std::uint32_t>(real)))
            return 0;
        Capacity = static_cast<std::uint32_t>(slots);
        NumItems = static_cast<std::uint32_t>(count);
        return 1;
    }

    /// Lets go of the contents and obtains a block of `real` slots, which the registry is told are `slots`. Null, when
    /// there is no memory.
    void* ObtainNew(std::size_t slots, std::size_t real)
    {
        DeleteAll();
        if (slots > std::numeric_limits<std::uint32_t>::max())
            return nullptr;
        void* const block = ObtainBlock(real * sizeof(T));
        CArrayStorage::Register(block, slots * sizeof(T), CArrayStorage::CreatedBlockLine, 1);
        return block;
    }

    void CopyItems(const TArray& other)
    {
        if (other.Items != nullptr && Create(other.Capacity, other.Room, other.NumItems) == 1)
            for (std::size_t i = 0; i < NumItems; ++i)
                Items[i] = other.Items[i];
    }

    void Swap(TArray& other) noexcept
    {
        std::swap(Items, other.Items);
        std::swap(NumItems, other.NumItems);
        std::swap(Capacity, other.Capacity);
        std::swap(Step, other.Step);
        std::swap(Room, other.Room);
    }
};

// Not in the class, where an instance would not export it.
template <class T> TArray<T>::TArray() = default;

/// A growable array of owned pointers to T, Block more at each growth.
///
/// Elements are created by Add and destroyed by DeleteAll, through T's destructor; they keep their
/// addresses until then. Pointer slots past NumItems are never read. Growing costs time linear in the
/// number of pointers, as with TArray. Copying copies every element (up to the first that cannot be
/// had); moving hands everything over.
template <class T, unsigned Block = 128> class TPArray
{
  public:
    T** Items = nullptr;        ///< The pointers; null when there is no block.
    std::uint32_t NumItems = 0; ///< Elements in use.
    std::uint32_t Capacity = 0; ///< Pointer slots counted as available.

    TPArray();

    TPArray(const TPArray& other)
    {
        CopyItems(other);
    }

    TPArray(TPArray&& other) noexcept
    {
        Swap(other);
    }

    // The source may belong to an element of this array, so the old contents go last.
    TPArray& operator=(const TPArray& other)
    {
        TPArray copy(other);
        Swap(copy);
        return *this;
    }

    TPArray& operator=(TPArray&& other) noexcept
    {
        TPArray taken(std::move(other));
        Swap(taken);
        return *this;
    }

    ~TPArray()
    {
        DeleteAll();
    }

    /// Creates an element, appends its pointer and returns it; null, the array unchanged, when there
    /// is no memory for the pointer block or the element.
    T* Add()
    {
        if ((NumItems + 1 >= Capacity || (NumItems + 1 == FirstRoom && Capacity == Block)) && !Grow())
            return nullptr;
        void* memory = ObtainBlock(sizeof(T));
        T* element = memory == nullptr ? nullptr : new (memory) T();
        if (element != nullptr)
            Items[NumItems++] = element;
        CArrayStorage::Register(element, sizeof(T), CArrayStorage::ElementLine, 0);
        return element;
    }

    /// Destroys every element and releases the pointer block. Returns 1.
    Result DeleteAll()
    {
        for (std::size_t i = 0; i < NumItems; ++i)
        {
            T* element = std::exchange(Items[i], nullptr);
            if (element != nullptr)
            {
                CArrayStorage::Unregister(element);
                std::destroy_at(element);
                CArrayStorage::Release(element);
            }
        }
        if (Items != nullptr)
        {
            CArrayStorage::Unregister(Items);
            CArrayStorage::Release(Items);
        }
        Items = nullptr;
        NumItems = 0;
        Capacity = 0;
        return 1;
    }

    /// The element at `index`, which is not checked.
    T* operator[](unsigned long index)
    {
        return Items[index];
    }

    const T* operator[](unsigned long index) const
    {
        return Items[index];
    }

    /// The last element; null when there is none.
    T* GetLast()
    {
        return NumItems == 0 ? nullptr : Items[NumItems - 1];
    }

    unsigned long GetNumItems() const
    {
        return NumItems;
    }

    T* const* begin() const
    {
        return Items;
    }

    T* const* end() const
    {
        return Items + NumItems;
    }

  private:
    static constexpr std::uint32_t FirstRoom = std::min(Block, 16U); ///< Slots obtained at first.

    // The new block is counted from NumItems, not from Capacity: since growth comes while one slot is
    // still free, that is one slot less than Capacity says, and just the one that Add holds back.
    bool Grow()
    {
        if (NumItems + 1 < Capacity)
            return SetBlock(CArrayStorage::Complete(Items, FirstRoom * sizeof(T*), Block * sizeof(T*),
                                                    CArrayStorage::PointerBlockLine));
        if (Capacity > std::numeric_limits<std::uint32_t>::max() - Block)
            return false;
        const std::size_t oldsize = (Capacity > Block ? Capacity - 1 : Capacity) * sizeof(T*);
        const std::size_t wanted = (std::size_t{NumItems} + Block) * sizeof(T*);
        const std::size_t newsize =
            Capacity == 0 ? CArrayStorage::GetFirstSize(wanted, FirstRoom * sizeof(T*)) : wanted;
        if (!SetBlock(CArrayStorage::Grow(Items, oldsize, newsize, CArrayStorage::PointerBlockLine)))
            return false;
        Capacity += Block;
        return true;
    }

    bool SetBlock(void* block)
    {
        if (block == nullptr)
            return false;
        Items = static_cast<T**>(block);
        return true;
    }

    void CopyItems(const TPArray& other)
    {
        // An array of elements that forbid copies is never copied, but its members still get instantiated.
        if constexpr (std::is_copy_constructible_v<T>)
            for (const T* element : other)
            {
                T* copy = element == nullptr ? nullptr : Add();
                if (copy == nullptr)
                    return;
                *copy = *element;
            }
    }

    void Swap(TPArray& other) noexcept
    {
        std::swap(Items, other.Items);
        std::swap(NumItems, other.NumItems);
        std::swap(Capacity, other.Capacity);
    }
};

template <class T, unsigned Block> TPArray<T, Block>::TPArray() = default;

/// One untyped pointer, at index 0, null at first; what it points to is not owned.
class ENGINE_CORE_API TUserData
{
  public:
    TUserData();
    TUserData(const TUserData& other);
    TUserData& operator=(const TUserData& other);
    ~TUserData(); // NOLINT(performance-trivially-destructible): exported, as the others are

    /// The pointer for index 0, null for any other.
    void* GetUserData(unsigned long index) const;

    /// Stores `newdata` at index 0 and returns 1; returns 0 for any other index.
    Result SetUserData(unsigned long index, void* newdata);

  private:
    void* data = nullptr;
};
