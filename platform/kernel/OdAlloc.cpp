#include "kernel/OdAlloc.h"

#include <atomic>
#include <cstdlib>

namespace
{
std::atomic<OdAllocSource> currentSource{&std::malloc};
} // namespace

OdBadAlloc::~OdBadAlloc() = default;

const char* OdBadAlloc::what() const noexcept
{
    return "bad allocation";
}

void* odrxAlloc(std::size_t size)
{
    if (void* block = currentSource.load()(size ? size : 1))
        return block;
    throw OdBadAlloc();
}

void odrxFree(void* block) noexcept
{
    std::free(block);
}

OdAllocSource odrxSetAllocSource(OdAllocSource source) noexcept
{
    return currentSource.exchange(source ? source : &std::malloc);
}
