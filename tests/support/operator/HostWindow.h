#pragma once

#include "win32/windows/SystemHandles.h"

namespace editordriver
{
// Stands for the host's plot dialog from which the editor is opened: a paper list with "Custom" as its last entry, and
// the choice of portrait or landscape, under the numbers by which the editor finds them.
class HostWindow
{
public:
    HostWindow();

    HWND handle() const noexcept { return m_window.get(); }
    HWND control(int id) const { return ::GetDlgItem(handle(), id); }

private:
    WindowHandle m_window;
};
} // namespace editordriver
