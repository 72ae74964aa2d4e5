#pragma once

#include "tests/support/operator/WindowTools.h"
#include "tests/win/resources/LanguageLibrary.h"
#include "win32/windows/SystemHandles.h"

#include <vector>

// A dialog made from a template as the editor makes it, but without its object: the tabs and pages as children, the
// dialogs of their own with an owner. Hidden, since what is measured does not depend on being seen.
class OpenedDialog
{
public:
    OpenedDialog(HMODULE library, UINT id);

    HWND window() const { return m_window.get(); }
    HWND control(int id) const { return ::GetDlgItem(window(), id); }
    // Children in the order of the Tab key.
    std::vector<HWND> controls() const;
    // Dialog units to pixels.
    SIZE pixels(int width, int height) const;

private:
    WindowHandle m_parent;
    WindowHandle m_window;
};

LONG styleOf(HWND window);
// In the coordinates of the dialog's client area.
RECT placeOf(HWND control);
SIZE clientSize(HWND window);

// The size that the text takes in the control's own font, in one line or, with a width to keep to, wrapped at it.
SIZE textSize(HWND control, const std::wstring& text, UINT format, int width = 0);
