#pragma once

#include "win32/windows/MessageWindow.h"

#include <deque>
#include <mutex>
#include <optional>

namespace editordriver
{
// The window that background checks report to. Make it on the thread of the windows; ask from any.
class CheckWindow
{
public:
    CheckWindow();

    HWND handle() const noexcept { return m_window.handle(); }

    // What the next check said, each once: whether a printer was found. None when there is nothing new.
    std::optional<bool> next();

private:
    std::optional<LRESULT> handle(UINT message, WPARAM first);

    std::mutex m_mutex;
    std::deque<bool> m_reports;
    MessageWindow m_window{[this](UINT message, WPARAM first, LPARAM) { return handle(message, first); }};
};
} // namespace editordriver
