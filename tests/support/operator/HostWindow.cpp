#include "tests/support/operator/HostWindow.h"

#include "resources/HostControls.h"

#include <stdexcept>

namespace editordriver
{
namespace
{
const wchar_t* const className = L"EditorDriverHost";
// The last one is the name by which the editor knows a size that the user types; it is the same in every language.
const wchar_t* const papers[] = {L"ISO A4", L"ISO A3", L"Custom"};

HWND addControl(HWND parent, const wchar_t* kind, const wchar_t* text, DWORD style, int id, int y)
{
    return ::CreateWindowExW(0, kind, text, WS_CHILD | WS_VISIBLE | WS_TABSTOP | style, 10, y, 200, 120, parent,
                             reinterpret_cast<HMENU>(static_cast<INT_PTR>(id)), ::GetModuleHandleW(nullptr), nullptr);
}
} // namespace

HostWindow::HostWindow()
{
    WNDCLASSW windowClass = {};
    windowClass.lpfnWndProc = &::DefWindowProcW;
    windowClass.hInstance = ::GetModuleHandleW(nullptr);
    windowClass.hbrBackground = reinterpret_cast<HBRUSH>(static_cast<INT_PTR>(COLOR_BTNFACE + 1));
    windowClass.lpszClassName = className;
    ::RegisterClassW(&windowClass);
    m_window = WindowHandle(::CreateWindowExW(0, className, L"Plot", WS_POPUP | WS_CAPTION | WS_SYSMENU | WS_VISIBLE,
                                              20, 20, 240, 180, nullptr, nullptr, windowClass.hInstance, nullptr));
    if (!m_window)
        throw std::runtime_error("cannot create a window");
    const HWND list = addControl(handle(), L"COMBOBOX", L"", CBS_DROPDOWNLIST, IDC_HOST_PAPER, 10);
    for (const wchar_t* paper : papers)
        ::SendMessageW(list, CB_ADDSTRING, 0, reinterpret_cast<LPARAM>(paper));
    ::SendMessageW(list, CB_SETCURSEL, 0, 0);
    for (const int id : {IDC_HOST_PORTRAIT, IDC_HOST_LANDSCAPE})
    {
        const HWND button = addControl(handle(), L"BUTTON", id == IDC_HOST_PORTRAIT ? L"Portrait" : L"Landscape",
                                       BS_AUTORADIOBUTTON, id, id == IDC_HOST_PORTRAIT ? 50 : 80);
        ::SetWindowPos(button, nullptr, 0, 0, 200, 24, SWP_NOMOVE | SWP_NOZORDER | SWP_NOACTIVATE);
    }
    ::SendMessageW(control(IDC_HOST_PORTRAIT), BM_SETCHECK, BST_CHECKED, 0);
}
} // namespace editordriver
