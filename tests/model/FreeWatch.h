#pragma once

#include <cstdlib>
#include <new>

/// Replaces the program's allocation functions in order to see one block being freed: a group token
/// has no virtual destructor that could tell. Include it in the one source of a test program.

namespace FreeWatch {
inline const void* watchedBlock = nullptr;
inline int freedCount = 0;

/// Counts from now on how often the block at @p block is freed.
inline void Watch(const void* block)
{
    watchedBlock = block;
    freedCount = 0;
}

inline void Release(void* block)
{
    if (block && block == watchedBlock)
        ++freedCount;
    std::free(block);
}
} // namespace FreeWatch

void* operator new(std::size_t size)
{
    if (void* const block = std::malloc(size))
        return block;
    throw std::bad_alloc();
}

void operator delete(void* block) noexcept
{
    FreeWatch::Release(block);
}

void operator delete(void* block, std::size_t) noexcept
{
    FreeWatch::Release(block);
}
