#include "GarmPC3Editor/Dialogs/DialogParts.h"

#include "GarmPC3Editor/Dialogs/LanguageResources.h"
#include "resources/Resource.h"

namespace
{
// Longer texts are wrapped. In pixels at 96 dpi.
constexpr int widestTip = 400;

HWND createTips(const CWnd& dialog)
{
    const HWND tips = ::CreateWindowExW(WS_EX_TOPMOST, TOOLTIPS_CLASSW, nullptr,
                                        WS_POPUP | TTS_NOPREFIX | TTS_ALWAYSTIP, CW_USEDEFAULT, CW_USEDEFAULT,
                                        CW_USEDEFAULT, CW_USEDEFAULT, dialog, nullptr, AfxGetInstanceHandle(), nullptr);
    ::SendMessageW(tips, TTM_SETMAXTIPWIDTH, 0, widestTip * ::GetSystemMetrics(SM_CXSMICON) / 16);
    return tips;
}
} // namespace

void FullTextTips::setTexts(const CWnd& dialog, std::initializer_list<int> labels)
{
    if (m_dialog != dialog.m_hWnd || !::IsWindow(m_tips))
    {
        m_tips = createTips(dialog);
        m_dialog = dialog;
    }
    for (const int id : labels)
    {
        CString text;
        dialog.GetDlgItemText(id, text);
        TOOLINFOW tool = {};
        // Without the fields of version 6: tooltips of the older library reject them.
        tool.cbSize = TTTOOLINFOW_V2_SIZE;
        tool.uFlags = TTF_IDISHWND | TTF_SUBCLASS;
        tool.hwnd = dialog;
        tool.uId = reinterpret_cast<UINT_PTR>(::GetDlgItem(dialog, id));
        tool.lpszText = const_cast<LPWSTR>(text.GetString());
        // Adding a tool again would create a second one.
        ::SendMessageW(m_tips, TTM_DELTOOLW, 0, reinterpret_cast<LPARAM>(&tool));
        ::SendMessageW(m_tips, TTM_ADDTOOLW, 0, reinterpret_cast<LPARAM>(&tool));
    }
}

void HelpButton::setPicture(const CWnd& dialog)
{
    const HWND button = ::GetDlgItem(dialog, IDHELP);
    if (!button)
        return;
    IconHandle icon = loadIcon(IDI_HELP, ::GetSystemMetrics(SM_CXSMICON));
    ::SendMessageW(button, BM_SETIMAGE, IMAGE_ICON, reinterpret_cast<LPARAM>(icon.get()));
    // Only now: until here the button showed the old one.
    m_icon = std::move(icon);
}
