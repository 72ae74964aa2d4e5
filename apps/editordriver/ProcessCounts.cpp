#include "editordriver/ProcessCounts.h"

#include "win32/Win32.h"

#include <algorithm>
#include <cstdint>
#include <stdexcept>
#include <vector>
#include <winternl.h>

namespace editordriver
{
namespace
{
constexpr ULONG extendedHandleInformation = 64;

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

struct HandleTable
{
    ULONG_PTR count;
    ULONG_PTR reserved;
    HandleEntry entries[1];
};

// The table of GDI handles that the system maps into every process.
struct GdiEntry
{
    std::uint64_t object;
    std::uint16_t processId;
    std::uint16_t count;
    std::uint16_t unique;
    std::uint8_t type; // 0 for a free entry
    std::uint8_t flags;
    std::uint64_t userPointer;
};
static_assert(sizeof(GdiEntry) == 24);
constexpr std::size_t gdiTableSize = 0x4000;
constexpr std::size_t gdiTableInEnvironmentBlock = 0xF8; // GdiSharedHandleTable, 64 bits

const GdiEntry* gdiTable()
{
    const auto* block = reinterpret_cast<const std::byte*>(NtCurrentTeb()->ProcessEnvironmentBlock);
    return *reinterpret_cast<const GdiEntry* const*>(block + gdiTableInEnvironmentBlock);
}

std::size_t usedGdiEntries()
{
    const GdiEntry* table = gdiTable();
    if (!table)
        throw std::runtime_error("the system has no table of GDI handles");
    return static_cast<std::size_t>(
        std::count_if(table, table + gdiTableSize, [](const GdiEntry& entry) { return entry.type != 0; }));
}
} // namespace

std::size_t systemHandles()
{
    using Query = NTSTATUS(NTAPI*)(ULONG, void*, ULONG, ULONG*);
    const auto query = reinterpret_cast<Query>(
        reinterpret_cast<void (*)()>(::GetProcAddress(::GetModuleHandleW(L"ntdll.dll"), "NtQuerySystemInformation")));
    std::vector<ULONG_PTR> buffer(1 << 14);
    ULONG needed = 0;
    while (query(extendedHandleInformation, buffer.data(), static_cast<ULONG>(buffer.size() * sizeof(ULONG_PTR)),
                 &needed) < 0)
    {
        if (buffer.size() > (std::size_t{1} << 24))
            throw std::runtime_error("the system does not tell its handles");
        buffer.resize(buffer.size() * 2);
    }
    const auto* table = reinterpret_cast<const HandleTable*>(buffer.data());
    const ULONG_PTR own = ::GetCurrentProcessId();
    return static_cast<std::size_t>(std::count_if(table->entries, table->entries + table->count,
                                                  [own](const HandleEntry& entry) { return entry.processId == own; }));
}

std::size_t gdiObjects()
{
    // A count that does not see a new object would never see a leak either.
    const std::size_t before = usedGdiEntries();
    const HPEN pen = ::CreatePen(PS_SOLID, 3, RGB(1, 2, 3));
    const std::size_t with = usedGdiEntries();
    ::DeleteObject(pen);
    if (with != before + 1)
        throw std::runtime_error("the table of GDI handles does not tell the objects");
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
} // namespace editordriver
