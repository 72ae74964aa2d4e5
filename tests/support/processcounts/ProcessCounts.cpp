#include "tests/support/processcounts/ProcessCounts.h"

#include "win32/windows/SystemHandles.h"

#include <algorithm>
#include <stdexcept>
#include <vector>
#include <winternl.h>

namespace
{
// SystemExtendedHandleInformation; GetProcessHandleCount returns 0 under Wine.
constexpr ULONG handleInformation = 64;

struct HandleEntry
{
    void* object;
    ULONG_PTR processId;
    ULONG_PTR handle;
    ULONG access;
    USHORT creatorBackTraceIndex;
    USHORT objectTypeIndex;
    ULONG attributes;
    ULONG reserved;
};

// One place of the shared table of graphics objects; type 0 is a free one.
struct GdiEntry
{
    ULONG_PTR object;
    USHORT processId;
    USHORT count;
    USHORT unique;
    UCHAR type;
    UCHAR flags;
    ULONG_PTR userPointer;
};
constexpr std::size_t gdiEntries = 0x10000;
// In the process environment block, for 64 bits.
constexpr std::size_t gdiTableOffset = 0xF8;

struct HandleTable
{
    ULONG_PTR count;
    ULONG_PTR reserved;
    HandleEntry entries[1];
};

using Query = NTSTATUS(NTAPI*)(ULONG, void*, ULONG, ULONG*);

Query systemQuery()
{
    static const auto query = reinterpret_cast<Query>(
        reinterpret_cast<void (*)()>(::GetProcAddress(::GetModuleHandleW(L"ntdll.dll"), "NtQuerySystemInformation")));
    if (!query)
        throw std::runtime_error("no NtQuerySystemInformation");
    return query;
}

std::size_t usedGdiEntries()
{
    const auto* block = reinterpret_cast<const char*>(::NtCurrentTeb()->ProcessEnvironmentBlock);
    const GdiEntry* table = *reinterpret_cast<const GdiEntry* const*>(block + gdiTableOffset);
    if (!table)
        throw std::runtime_error("the process has no table of graphics objects");
    // Where each process has a table of its own, as under Wine, no entry names its process.
    const auto own = static_cast<USHORT>(::GetCurrentProcessId());
    const auto isOwn = [own](const GdiEntry& entry)
    { return entry.type && (entry.processId == own || entry.processId == 0); };
    return static_cast<std::size_t>(std::count_if(table, table + gdiEntries, isOwn));
}
} // namespace

std::size_t openSystemHandles()
{
    const Query query = systemQuery();
    std::vector<ULONG_PTR> buffer(1024);
    for (;;)
    {
        ULONG needed = 0;
        const NTSTATUS status =
            query(handleInformation, buffer.data(), static_cast<ULONG>(buffer.size() * sizeof(ULONG_PTR)), &needed);
        if (status >= 0)
            break;
        if (buffer.size() > (std::size_t{1} << 24))
            throw std::runtime_error("the system does not tell its handles");
        buffer.resize(buffer.size() * 2);
    }
    const auto* table = reinterpret_cast<const HandleTable*>(buffer.data());
    const ULONG_PTR own = ::GetCurrentProcessId();
    const auto count = std::count_if(table->entries, table->entries + table->count,
                                     [own](const HandleEntry& entry) { return entry.processId == own; });
    if (count == 0)
        throw std::runtime_error("a process without any handle");
    return static_cast<std::size_t>(count);
}

std::size_t mappedViews()
{
    std::size_t count = 0;
    MEMORY_BASIC_INFORMATION region = {};
    const void* counted = nullptr;
    for (const char* at = nullptr; ::VirtualQuery(at, &region, sizeof region) == sizeof region;
         at = static_cast<const char*>(region.BaseAddress) + region.RegionSize)
    {
        if (region.State == MEM_FREE || region.AllocationBase == counted)
            continue;
        counted = region.AllocationBase;
        if (region.Type == MEM_MAPPED || region.Type == MEM_IMAGE)
            ++count;
    }
    return count;
}

std::size_t gdiObjects()
{
    // A count that does not see a new object would never see a leak either.
    const std::size_t before = usedGdiEntries();
    const PenHandle pen(::CreatePen(PS_SOLID, 3, RGB(1, 2, 3)));
    const std::size_t with = usedGdiEntries();
    if (with != before + 1)
        throw std::runtime_error("the table of graphics objects does not tell the objects");
    return before;
}

std::size_t windowsOf(unsigned long thread)
{
    std::size_t count = 0;
    ::EnumThreadWindows(
        thread,
        [](HWND window, LPARAM parameter) -> BOOL
        {
            auto* counter = reinterpret_cast<std::size_t*>(parameter);
            ++*counter;
            ::EnumChildWindows(
                window,
                [](HWND, LPARAM inner) -> BOOL
                {
                    ++*reinterpret_cast<std::size_t*>(inner);
                    return TRUE;
                },
                parameter);
            return TRUE;
        },
        reinterpret_cast<LPARAM>(&count));
    return count;
}
