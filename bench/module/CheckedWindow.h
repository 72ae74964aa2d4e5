#pragma once

#include "win32/Win32.h"

#include <cstddef>

namespace modulebench
{
// A window that background checks post their answers to.
class CheckedWindow
{
public:
    explicit CheckedWindow(UINT message);
    ~CheckedWindow();
    CheckedWindow(const CheckedWindow&) = delete;
    CheckedWindow& operator=(const CheckedWindow&) = delete;

    HWND handle() const noexcept { return m_window; }

    // Hands messages on until that many answers have come since the last time. Throws std::runtime_error when one was
    // no, or when the next one takes more than half a minute.
    void await(std::size_t answers);

private:
    HWND m_window;
    UINT m_message;
};
} // namespace modulebench
