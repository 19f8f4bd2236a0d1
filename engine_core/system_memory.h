/// Memory from the operating system, alike in cost on every platform.
#pragma once

#include <cstddef>

/// As std::malloc, std::realloc and std::free, but that a large block grows without being copied each time.
void* ObtainMemory(std::size_t size);
void* ResizeMemory(void* block, std::size_t oldsize, std::size_t newsize);
void ReleaseMemory(void* block);
