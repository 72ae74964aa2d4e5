#pragma once

#include "win32/windows/MessageWindow.h"

#include <optional>

namespace plothost
{
// Waits for the message of a background check with its own window.
class BackgroundWait
{
public:
    // Null if the window could not be created.
    HWND window() const noexcept { return m_window.handle(); }

    // Runs the message loop until the message arrives and returns its first parameter; nothing if it does not arrive
    // within that many milliseconds.
    std::optional<WPARAM> waitFor(UINT message, DWORD milliseconds);

private:
    std::optional<LRESULT> handle(UINT message, WPARAM first);

    UINT m_awaited = 0;
    std::optional<WPARAM> m_answer;
    MessageWindow m_window{[this](UINT message, WPARAM first, LPARAM) { return handle(message, first); }};
};
} // namespace plothost
