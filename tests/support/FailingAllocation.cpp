#include "tests/support/FailingAllocation.h"

#include <cstdlib>
#include <new>

namespace
{
// 0: off.
thread_local unsigned failAt = 0;
thread_local unsigned made = 0;

void* allocate(std::size_t size) noexcept
{
    if (failAt != 0 && ++made == failAt)
        return nullptr;
    return std::malloc(size ? size : 1);
}

void* allocateOrThrow(std::size_t size)
{
    if (void* memory = allocate(size))
        return memory;
    throw std::bad_alloc();
}
} // namespace

FailingAllocation::FailingAllocation(unsigned n) noexcept
{
    made = 0;
    failAt = n;
}

FailingAllocation::~FailingAllocation()
{
    failAt = 0;
}

bool FailingAllocation::reached() const noexcept
{
    return made >= failAt;
}

void* failingMalloc(std::size_t size) noexcept
{
    return allocate(size);
}

void* operator new(std::size_t size)
{
    return allocateOrThrow(size);
}

void* operator new[](std::size_t size)
{
    return allocateOrThrow(size);
}

void* operator new(std::size_t size, const std::nothrow_t&) noexcept
{
    return allocate(size);
}

void* operator new[](std::size_t size, const std::nothrow_t&) noexcept
{
    return allocate(size);
}

void operator delete(void* memory) noexcept
{
    std::free(memory);
}

void operator delete[](void* memory) noexcept
{
    std::free(memory);
}

void operator delete(void* memory, std::size_t) noexcept
{
    std::free(memory);
}

void operator delete[](void* memory, std::size_t) noexcept
{
    std::free(memory);
}

void operator delete(void* memory, const std::nothrow_t&) noexcept
{
    std::free(memory);
}

void operator delete[](void* memory, const std::nothrow_t&) noexcept
{
    std::free(memory);
}
