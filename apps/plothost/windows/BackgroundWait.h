#pragma once

#include <functional>
#include <optional>
#include <windows.h>

namespace plothost
{
// A window that shows nothing and only takes messages.
class MessageWindow
{
public:
    MessageWindow();
    ~MessageWindow();
    MessageWindow(const MessageWindow&) = delete;
    MessageWindow& operator=(const MessageWindow&) = delete;

    // Null when the system gives no window.
    HWND handle() const noexcept { return m_window; }

    // Runs the message loop until the message has come and returns its first parameter; nothing when it has not come
    // within that many milliseconds.
    std::optional<WPARAM> waitFor(UINT message, DWORD milliseconds);

private:
    static LRESULT CALLBACK procedure(HWND window, UINT message, WPARAM first, LPARAM second);

    HWND m_window = nullptr;
    UINT m_awaited = 0;
    std::optional<WPARAM> m_answer;
};
} // namespace plothost
