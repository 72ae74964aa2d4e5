#pragma once

#include "win32/Win32.h"

namespace editordriver
{
// Stands for the host's plot dialog from which the editor is opened: a paper list with "Custom" as its last entry, and
// the choice of portrait or landscape, under the numbers by which the editor finds them.
class HostWindow
{
public:
    static constexpr int paperList = 6455;
    static constexpr int portrait = 6461;
    static constexpr int landscape = 6462;

    HostWindow();
    ~HostWindow();
    HostWindow(const HostWindow&) = delete;
    HostWindow& operator=(const HostWindow&) = delete;

    HWND handle() const noexcept { return m_window; }
    HWND control(int id) const { return ::GetDlgItem(m_window, id); }

private:
    HWND m_window;
};
} // namespace editordriver
