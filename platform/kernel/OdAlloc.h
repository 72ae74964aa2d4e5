#pragma once

#include <cstddef>
#include <new>

// What a failed kernel allocation throws. Its text is fixed because people and tests read it; the standard class leaves
// it to the library.
class OdBadAlloc : public std::bad_alloc
{
public:
    ~OdBadAlloc() override;

    // "bad allocation"
    const char* what() const noexcept override;
};

// The kernel allocator. Host and module free each other's objects, so both allocate here. odrxAlloc never returns null:
// it throws OdBadAlloc. Allocating 0 bytes returns a block of its own. odrxFree accepts null.
void* odrxAlloc(std::size_t size);
void odrxFree(void* block) noexcept;

// Where odrxAlloc gets its memory: a function that returns a block from std::malloc, or null when there is none.
using OdAllocSource = void* (*)(std::size_t size);

// Replaces this process's source and returns the previous one; null restores std::malloc. For tests that make the n-th
// allocation fail.
OdAllocSource odrxSetAllocSource(OdAllocSource source) noexcept;
