#include "tests/support/processcounts/ProcessCounts.h"
#include "win32/windows/SystemHandles.h"

#include <stdexcept>

namespace
{
// The lower half of a window's, menu's or icon's handle is its place in the desktop's table, of which every second
// number is used; a call is content with that half.
constexpr std::size_t firstHandle = 0x20;
constexpr std::size_t lastHandle = 0xFFEF;

BOOL CALLBACK countWindow(HWND window, LPARAM counter) noexcept
{
    DWORD process = 0;
    ::GetWindowThreadProcessId(window, &process);
    if (process == ::GetCurrentProcessId())
        ++*reinterpret_cast<std::size_t*>(counter);
    return TRUE;
}

BOOL CALLBACK countWithChildren(HWND window, LPARAM counter) noexcept
{
    countWindow(window, counter);
    ::EnumChildWindows(window, &countWindow, counter);
    return TRUE;
}

std::size_t windows()
{
    std::size_t count = 0;
    ::EnumWindows(&countWithChildren, reinterpret_cast<LPARAM>(&count));
    HWND window = nullptr;
    while ((window = ::FindWindowExW(HWND_MESSAGE, window, nullptr, nullptr)) != nullptr)
        countWithChildren(window, reinterpret_cast<LPARAM>(&count));
    return count;
}

bool isIcon(HICON handle)
{
    ICONINFO info = {};
    if (!::GetIconInfo(handle, &info))
        return false;
    const BitmapHandle color(info.hbmColor);
    const BitmapHandle mask(info.hbmMask);
    return true;
}

std::size_t menusAndIcons()
{
    std::size_t count = 0;
    for (std::size_t number = firstHandle; number <= lastHandle; number += 2)
        if (::IsMenu(reinterpret_cast<HMENU>(number)) || isIcon(reinterpret_cast<HICON>(number)))
            ++count;
    return count;
}

std::size_t menusAndIconsSeen()
{
    const std::size_t before = menusAndIcons();
    const MenuHandle menu(::CreateMenu());
    const BYTE bits[2] = {};
    const IconHandle icon(::CreateIcon(nullptr, 1, 1, 1, 1, bits, bits));
    const std::size_t with = menusAndIcons();
    if (with != before + 2)
        throw std::runtime_error("the table of windows, menus and icons does not tell the objects");
    return before;
}
} // namespace

std::size_t userObjects()
{
    return windows() + menusAndIconsSeen();
}
