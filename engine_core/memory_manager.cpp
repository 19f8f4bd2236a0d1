#include "core/memory_manager.h"

#include "engine_core/system_memory.h"

#include <bit>
#include <limits>
#include <new>
#include <unordered_map>

CSys_MemoryManager* MM = nullptr;

namespace
{
std::int64_t memorycount = 0;

struct SFailurePlan
{
    std::uint64_t attempts = 0;
    std::uint64_t successes = 0;
    std::uint64_t failures = 0;
};
SFailurePlan plan;

/// What no machine has need not be asked for.
constexpr std::size_t LargestSize = std::numeric_limits<std::size_t>::max() / 4;

bool MayAllocate(std::size_t size)
{
    const std::uint64_t attempt = plan.attempts++;
    const bool isplanned = attempt < plan.successes || attempt - plan.successes >= plan.failures;
    return isplanned && size <= LargestSize;
}

/// Four classes to each doubling: the smallest class that holds `size` bytes.
std::size_t RoundToClass(std::size_t size)
{
    constexpr std::size_t smallest = 64;
    if (size <= smallest)
        return size == 0 ? 1 : size;
    const std::size_t spacing = std::bit_floor(size - 1) >> 2; // a power of two
    return (size + spacing - 1) & ~(spacing - 1);
}
} // namespace

struct CSys_MemoryManager::SRegistry
{
    std::unordered_map<void*, std::size_t> sizes;
    std::size_t size = 0;
    std::size_t mistakes = 0;
};

CSys_MemoryManager::CSys_MemoryManager() : registry(new SRegistry)
{
}

CSys_MemoryManager::~CSys_MemoryManager()
{
    delete registry;
}

Result CSys_MemoryManager::AddAllocation(void* pointer, const wchar_t*, std::size_t size, unsigned long, int,
                                         const wchar_t*)
try
{
    const auto [entry, isnew] = registry->sizes.try_emplace(pointer, size);
    if (!isnew)
    {
        ++registry->mistakes;
        registry->size -= entry->second;
        entry->second = size;
    }
    registry->size += size;
    return isnew ? 1 : 0;
}
catch (const std::bad_alloc&)
{
    return 0;
}

Result CSys_MemoryManager::RemoveAllocation(void* pointer)
{
    const auto entry = registry->sizes.find(pointer);
    if (entry == registry->sizes.end())
    {
        ++registry->mistakes;
        return 0;
    }
    registry->size -= entry->second;
    registry->sizes.erase(entry);
    return 1;
}

std::size_t CSys_MemoryManager::GetNumAllocations() const
{
    return registry->sizes.size();
}

std::size_t CSys_MemoryManager::GetAllocatedSize() const
{
    return registry->size;
}

std::size_t CSys_MemoryManager::GetNumMistakes() const
{
    return registry->mistakes;
}

void IncreaseMemoryCount()
{
    ++memorycount;
}

void DecreaseMemoryCount()
{
    --memorycount;
}

std::int64_t GetMemoryCount()
{
    return memorycount;
}

void* ObtainBlock(std::size_t size)
{
    return MayAllocate(size) ? ObtainMemory(RoundToClass(size)) : nullptr;
}

void* ResizeBlock(void* block, std::size_t oldsize, std::size_t newsize)
{
    if (!MayAllocate(newsize))
        return nullptr;
    const std::size_t rounded = RoundToClass(newsize);
    if (block != nullptr && RoundToClass(oldsize) == rounded)
        return block;
    return ResizeMemory(block, oldsize, rounded);
}

void ReleaseBlock(void* block)
{
    ReleaseMemory(block);
}

void FailAllocations(std::uint64_t successes, std::uint64_t failures)
{
    plan = {0, successes, failures};
}

std::uint64_t GetNumAllocationAttempts()
{
    return plan.attempts;
}
