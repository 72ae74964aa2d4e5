#pragma once

#include "win32/Win32.h"

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
    ~CheckWindow();
    CheckWindow(const CheckWindow&) = delete;
    CheckWindow& operator=(const CheckWindow&) = delete;

    HWND handle() const noexcept { return m_window; }

    // What the next check said, each once: whether a printer was found. None when there is nothing new.
    std::optional<bool> next();

private:
    static LRESULT CALLBACK procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam);

    HWND m_window;
    std::mutex m_mutex;
    std::deque<bool> m_reports;
};
} // namespace editordriver
