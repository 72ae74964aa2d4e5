#pragma once

#include "win32/Win32.h"

#include <cstddef>

namespace modulebench
{
// A window that background checks post their results to.
class CheckedWindow
{
public:
    explicit CheckedWindow(UINT message);
    ~CheckedWindow();
    CheckedWindow(const CheckedWindow&) = delete;
    CheckedWindow& operator=(const CheckedWindow&) = delete;

    HWND handle() const noexcept { return m_window; }

    // Dispatches messages until that many results have come since the last call. Throws std::runtime_error if a check
    // found no printer, or if the next result takes more than half a minute.
    void await(std::size_t answers);

private:
    HWND m_window;
    UINT m_message;
};
} // namespace modulebench
