#pragma once

#include "win32/windows/MessageWindow.h"

#include <optional>

namespace plothost
{
// Waits for the message of a background check, with a window of its own that receives it.
class BackgroundWait
{
public:
    // Null when the system could not create the window.
    HWND window() const noexcept { return m_window.handle(); }

    // Runs the message loop until the message has come and returns its first parameter; nothing when it has not come
    // within that many milliseconds.
    std::optional<WPARAM> waitFor(UINT message, DWORD milliseconds);

private:
    std::optional<LRESULT> handle(UINT message, WPARAM first);

    UINT m_awaited = 0;
    std::optional<WPARAM> m_answer;
    MessageWindow m_window{[this](UINT message, WPARAM first, LPARAM) { return handle(message, first); }};
};
} // namespace plothost
