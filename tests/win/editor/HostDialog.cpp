#include "tests/win/editor/HostDialog.h"

#include <stdexcept>

namespace
{
HWND create(const WCHAR* className, DWORD style, HWND parent, int id = 0)
{
    const auto menu = reinterpret_cast<HMENU>(static_cast<std::intptr_t>(id));
    const HWND window =
        ::CreateWindowExW(0, className, L"", style | WS_VISIBLE, 0, 0, 300, 200, parent, menu, nullptr, nullptr);
    if (!window)
        throw std::runtime_error("no window");
    return window;
}
} // namespace

HostDialog::HostDialog(Controls controls)
    : m_window(create(L"STATIC", WS_POPUP | WS_CAPTION, nullptr)),
      m_sheet(create(L"STATIC", WS_POPUP, controls == noDialog ? nullptr : m_window))
{
    if (controls == all || controls == noOrientation)
        create(L"COMBOBOX", WS_CHILD | CBS_DROPDOWNLIST, m_window, IDC_HOST_PAPER);
    if (controls == all || controls == noPapers)
    {
        create(L"BUTTON", WS_CHILD | BS_AUTORADIOBUTTON | WS_GROUP, m_window, IDC_HOST_PORTRAIT);
        create(L"BUTTON", WS_CHILD | BS_AUTORADIOBUTTON, m_window, IDC_HOST_LANDSCAPE);
        checkLandscape(false);
    }
    const HWND tab = create(L"STATIC", WS_CHILD, m_sheet);
    m_page.Attach(create(L"STATIC", WS_CHILD, tab));
}

HostDialog::~HostDialog()
{
    m_page.Detach();
    ::DestroyWindow(m_sheet);
    ::DestroyWindow(m_window);
}

void HostDialog::addPaper(const std::wstring& name) const
{
    ::SendMessageW(papers(), CB_ADDSTRING, 0, reinterpret_cast<LPARAM>(name.c_str()));
}

void HostDialog::checkLandscape(bool landscape) const
{
    ::CheckRadioButton(m_window, IDC_HOST_PORTRAIT, IDC_HOST_LANDSCAPE,
                       landscape ? IDC_HOST_LANDSCAPE : IDC_HOST_PORTRAIT);
}
