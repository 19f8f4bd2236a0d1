#include "engine_core/system_memory.h"

#include <cstdint>
#include <cstdlib>
#include <cstring>

#if defined(_WIN32)
#define WIN32_LEAN_AND_MEAN
#include <windows.h>

namespace
{
// Windows cannot move the pages of a block as Linux does, so its realloc copies a large block at every step.
// A large block is given addresses for four times its size instead; growth adds memory behind it until they are
// used up. Addresses without memory cost nothing.
constexpr std::size_t LargeSize = std::size_t{256} * 1024;
constexpr std::size_t Headroom = 4;

void* CommitMemory(void* block, std::size_t size)
{
    return VirtualAlloc(block, size, MEM_COMMIT, PAGE_READWRITE);
}

void* ObtainLarge(std::size_t size)
{
    void* const block = VirtualAlloc(nullptr, size * Headroom, MEM_RESERVE, PAGE_READWRITE);
    if (block != nullptr && CommitMemory(block, size) == nullptr)
    {
        VirtualFree(block, 0, MEM_RELEASE);
        return nullptr;
    }
    return block;
}

/// Whether ObtainLarge gave the block. Those begin what the system has allocated in one go, at multiples of
/// 64 KB; a block of the heap stands behind the heap's own data.
bool IsLarge(void* block)
{
    MEMORY_BASIC_INFORMATION information;
    return reinterpret_cast<std::uintptr_t>(block) % 65536 == 0 &&
           VirtualQuery(block, &information, sizeof(information)) != 0 && information.AllocationBase == block;
}
} // namespace

void* ObtainMemory(std::size_t size)
{
    return size < LargeSize ? std::malloc(size) : ObtainLarge(size);
}

void* ResizeMemory(void* block, std::size_t oldsize, std::size_t newsize)
{
    if (block == nullptr)
        return ObtainMemory(newsize);
    const bool islarge = IsLarge(block);
    if (!islarge && newsize < LargeSize)
        return std::realloc(block, newsize);
    if (islarge && CommitMemory(block, newsize) != nullptr)
        return block;
    void* const moved = ObtainMemory(newsize);
    if (moved != nullptr)
    {
        std::memcpy(moved, block, oldsize < newsize ? oldsize : newsize);
        ReleaseMemory(block);
    }
    return moved;
}

void ReleaseMemory(void* block)
{
    if (block != nullptr && IsLarge(block))
        VirtualFree(block, 0, MEM_RELEASE);
    else
        std::free(block);
}

#else

#include <malloc.h>
#include <sys/mman.h>

namespace
{
/// A large block is filled faster through large pages, where the system has them to give on request.
void* AdviseLargePages(void* block, std::size_t size)
{
#if defined(MADV_HUGEPAGE)
    constexpr std::size_t largesize = std::size_t{4} * 1024 * 1024;
    constexpr std::size_t pagesize = 4096;
    if (block != nullptr && size >= largesize)
    {
        const std::size_t skipped = (pagesize - reinterpret_cast<std::uintptr_t>(block) % pagesize) % pagesize;
        const std::size_t pages = (size - skipped) / pagesize;
        madvise(static_cast<char*>(block) + skipped, pages * pagesize, MADV_HUGEPAGE); // advice: it may be declined
    }
#else
    (void)size;
#endif
    return block;
}
} // namespace

void* ObtainMemory(std::size_t size)
{
    return AdviseLargePages(std::malloc(size), size);
}

// A block that has grown large gets twice what was asked for, so that growing on by small steps neither goes to
// the system nor copies each time; memory that nobody writes to costs nothing.
void* ResizeMemory(void* block, std::size_t, std::size_t newsize)
{
    constexpr std::size_t largesize = std::size_t{64} * 1024;
    if (newsize < largesize)
        return std::realloc(block, newsize);
    if (block != nullptr && malloc_usable_size(block) >= newsize)
        return block;
    const std::size_t roomysize = newsize * 2;
    if (void* const grown = std::realloc(block, roomysize))
        return AdviseLargePages(grown, roomysize);
    return std::realloc(block, newsize);
}

void ReleaseMemory(void* block)
{
    std::free(block);
}

#endif
