#include "tests/support/room/RoomState.h"

#include <algorithm>
#include <string_view>

// The few system functions that portable code uses and that have nothing to do with printers.

namespace
{
thread_local DWORD lastError = ERROR_SUCCESS;

std::u16string_view textOf(const WCHAR* text, int length)
{
    return length < 0 ? std::u16string_view(text) : std::u16string_view(text, static_cast<std::size_t>(length));
}
} // namespace

extern "C" DWORD WINAPI GetLastError()
{
    return lastError;
}

extern "C" void WINAPI SetLastError(DWORD error)
{
    lastError = error;
}

// Compares code units and can ignore the case of ASCII letters, which is enough for file name extensions. Does not
// reproduce the linguistic order of the system.
extern "C" int WINAPI CompareStringW(LCID, DWORD flags, LPCWSTR a, int lengthA, LPCWSTR b, int lengthB)
{
    if (!a || !b)
    {
        lastError = ERROR_INVALID_PARAMETER;
        return 0;
    }
    const auto key = [flags](WCHAR c) { return (flags & NORM_IGNORECASE) != 0 ? room::folded(c) : c; };
    const std::u16string_view left = textOf(a, lengthA);
    const std::u16string_view right = textOf(b, lengthB);
    const auto order = std::lexicographical_compare_three_way(left.begin(), left.end(), right.begin(), right.end(),
                                                              [key](WCHAR x, WCHAR y) { return key(x) <=> key(y); });
    return order < 0 ? CSTR_LESS_THAN : order > 0 ? CSTR_GREATER_THAN : CSTR_EQUAL;
}
