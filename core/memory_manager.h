/// Where memory comes from and who keeps count of it.
///
/// Every block and element that an array obtains is announced to the registry `MM`, when there is
/// one, and counted. All memory of the library comes through ObtainBlock and its two companions, so
/// one switch (FailAllocations) rehearses the lack of it anywhere.
#pragma once

#include "core/core_base.h"

/// The registry of live allocations. The arrays call it; a tool derives from it to watch them.
class ENGINE_CORE_API CSys_MemoryManager
{
  public:
    CSys_MemoryManager();
    CSys_MemoryManager(const CSys_MemoryManager&) = delete;
    CSys_MemoryManager& operator=(const CSys_MemoryManager&) = delete;
    virtual ~CSys_MemoryManager();

    /// Announces a block.
    /// pointer: its address. source: name of the code that obtained it. size: in bytes.
    /// line: a number that tells the places of one source apart. isarray: 1 for a block of elements
    /// or pointers, 0 for a single element. note: free text.
    /// Returns 1; 0 when the pointer is announced already (the later announcement then holds).
    virtual Result AddAllocation(void* pointer, const wchar_t* source, std::size_t size, unsigned long line,
                                 int isarray, const wchar_t* note);

    /// Takes a block back, before it is released. Returns 0 when it was never announced.
    virtual Result RemoveAllocation(void* pointer);

    /// Number and bytes of the blocks announced and not taken back.
    std::size_t GetNumAllocations() const;
    std::size_t GetAllocatedSize() const;

    /// How many calls did not fit: announced twice, or taken back without having been announced.
    std::size_t GetNumMistakes() const;

  private:
    struct SRegistry;
    SRegistry* registry;
};

/// The registry in use; null (its initial value) keeps none. Not owned.
extern ENGINE_CORE_API CSys_MemoryManager* MM;

/// Counts an attempt to obtain memory, and a release. Called with and without a registry.
ENGINE_CORE_API void IncreaseMemoryCount();
ENGINE_CORE_API void DecreaseMemoryCount();

/// Attempts minus releases since the program began.
ENGINE_CORE_API std::int64_t GetMemoryCount();

/// Obtains a block of at least `size` bytes, aligned for every ordinary type. Null when there is none.
/// The real block is rounded up to a size class, by a quarter at the most.
ENGINE_CORE_API void* ObtainBlock(std::size_t size);

/// Makes a block of `oldsize` bytes one of `newsize`, its bytes kept, the address perhaps another.
/// Within one size class nothing moves, so growth in small steps costs time linear in the end size.
/// Returns null, the old block untouched, when there is no memory. A null block is obtained.
ENGINE_CORE_API void* ResizeBlock(void* block, std::size_t oldsize, std::size_t newsize);

/// Releases a block from either function above; null does nothing.
ENGINE_CORE_API void ReleaseBlock(void* block);

/// For tests: of the attempts from now on, lets `successes` through, then makes `failures` fail.
/// Both 0 ends it. Growth inside a size class is an attempt too.
ENGINE_CORE_API void FailAllocations(std::uint64_t successes, std::uint64_t failures);

/// For tests: attempts since the last FailAllocations.
ENGINE_CORE_API std::uint64_t GetNumAllocationAttempts();
