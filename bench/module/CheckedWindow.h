#pragma once

#include "win32/windows/MessageWindow.h"

#include <cstddef>

namespace modulebench
{
// A window that background checks post their results to.
class CheckedWindow
{
public:
    explicit CheckedWindow(UINT message);

    HWND handle() const noexcept { return m_window.handle(); }

    // Dispatches messages until that many results have come since the last call. Throws std::runtime_error if a check
    // found no printer, or if the next result takes more than half a minute.
    void await(std::size_t answers);

private:
    UINT m_message;
    MessageWindow m_window;
};
} // namespace modulebench
