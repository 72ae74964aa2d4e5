#pragma once

#include <cstddef>
#include <new>

// What a failed kernel allocation throws. Its text is fixed: the standard class leaves it to the library, and ours is
// read by people and tests.
class OdBadAlloc : public std::bad_alloc
{
public:
    ~OdBadAlloc() override;

    // "bad allocation"
    const char* what() const noexcept override;
};

// The kernel allocator. Host and module free each other's objects, so both take their memory from here.
// odrxAlloc never returns null: it throws OdBadAlloc. 0 bytes give a block of their own. odrxFree takes null.
void* odrxAlloc(std::size_t size);
void odrxFree(void* block) noexcept;

// Where odrxAlloc takes its memory from: a function that returns a block of std::malloc, or null when there is none.
using OdAllocSource = void* (*)(std::size_t size);

// Replaces the source of this process and returns the one before; null restores std::malloc. For tests that let the
// n-th allocation fail.
OdAllocSource odrxSetAllocSource(OdAllocSource source) noexcept;
