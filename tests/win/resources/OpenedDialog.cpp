#include "tests/win/resources/OpenedDialog.h"

#include <commctrl.h>

#include <string>

namespace
{
INT_PTR CALLBACK nothingToDo(HWND, UINT, WPARAM, LPARAM)
{
    return FALSE;
}
} // namespace

OpenedDialog::OpenedDialog(HMODULE library, UINT id)
{
    const INITCOMMONCONTROLSEX classes = {sizeof(classes), ICC_TREEVIEW_CLASSES | ICC_BAR_CLASSES};
    ::InitCommonControlsEx(&classes);
    m_parent = WindowHandle(
        ::CreateWindowExW(0, L"Static", L"", WS_POPUP, 0, 0, 100, 100, nullptr, nullptr, nullptr, nullptr));
    m_window = WindowHandle(::CreateDialogParamW(library, MAKEINTRESOURCEW(id), m_parent.get(), nothingToDo, 0));
}

std::vector<HWND> OpenedDialog::controls() const
{
    std::vector<HWND> found;
    for (HWND control = ::GetWindow(window(), GW_CHILD); control; control = ::GetWindow(control, GW_HWNDNEXT))
        found.push_back(control);
    return found;
}

SIZE OpenedDialog::pixels(int width, int height) const
{
    RECT units = {0, 0, width, height};
    ::MapDialogRect(window(), &units);
    return {units.right, units.bottom};
}

LONG styleOf(HWND window)
{
    return ::GetWindowLongW(window, GWL_STYLE);
}

RECT placeOf(HWND control)
{
    RECT place = {};
    ::GetWindowRect(control, &place);
    ::MapWindowPoints(nullptr, ::GetParent(control), reinterpret_cast<POINT*>(&place), 2);
    return place;
}

SIZE clientSize(HWND window)
{
    RECT client = {};
    ::GetClientRect(window, &client);
    return {client.right, client.bottom};
}

SIZE textSize(HWND control, const std::wstring& text, UINT format, int width)
{
    const HDC context = ::GetDC(control);
    const HGDIOBJ before =
        ::SelectObject(context, reinterpret_cast<HGDIOBJ>(::SendMessageW(control, WM_GETFONT, 0, 0)));
    RECT area = {0, 0, width, 0};
    ::DrawTextW(context, text.c_str(), static_cast<int>(text.size()), &area, format | DT_CALCRECT);
    ::SelectObject(context, before);
    ::ReleaseDC(control, context);
    return {area.right, area.bottom};
}
