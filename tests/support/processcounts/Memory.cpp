#include "tests/support/processcounts/ProcessCounts.h"
#include "win32/Win32.h"

#include <array>
#include <memory>
#include <stdexcept>

#include <psapi.h>

namespace
{
std::size_t usedBytesOf(HANDLE heap)
{
    PROCESS_HEAP_ENTRY entry = {};
    std::size_t bytes = 0;
    ::HeapLock(heap);
    while (::HeapWalk(heap, &entry))
        if (entry.wFlags & PROCESS_HEAP_ENTRY_BUSY)
            bytes += entry.cbData;
    ::HeapUnlock(heap);
    return bytes;
}

std::size_t usedBytesOfAll()
{
    std::array<HANDLE, 256> heaps = {};
    const DWORD count = ::GetProcessHeaps(static_cast<DWORD>(heaps.size()), heaps.data());
    if (count == 0 || count > heaps.size())
        throw std::runtime_error("the system does not tell its heaps");
    std::size_t bytes = 0;
    for (DWORD i = 0; i < count; ++i)
        bytes += usedBytesOf(heaps[i]);
    return bytes;
}

PROCESS_MEMORY_COUNTERS memoryCounters()
{
    PROCESS_MEMORY_COUNTERS counters = {};
    if (!::K32GetProcessMemoryInfo(::GetCurrentProcess(), &counters, sizeof counters) || counters.PagefileUsage == 0 ||
        counters.WorkingSetSize == 0)
        throw std::runtime_error("the system does not tell the memory of this process");
    return counters;
}
} // namespace

std::size_t heapBytes()
{
    constexpr std::size_t visible = 10'000;
    const std::size_t before = usedBytesOfAll();
    const std::unique_ptr<char[]> block = std::make_unique<char[]>(visible);
    if (usedBytesOfAll() < before + visible)
        throw std::runtime_error("a walk through the heaps does not show what is in use");
    return before;
}

std::size_t privateBytes()
{
    // What the newer structure calls private usage, which Wine leaves empty.
    return memoryCounters().PagefileUsage;
}

std::size_t workingSet()
{
    return memoryCounters().WorkingSetSize;
}
