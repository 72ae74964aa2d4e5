#include "GarmPC3Editor/Dialogs/HelpButton.h"

#include "resources/Resource.h"

void HelpButton::setPicture(const CWnd& dialog)
{
    const HWND button = ::GetDlgItem(dialog, IDHELP);
    if (!button)
        return;
    IconHandle icon = loadIcon(IDI_HELP, ::GetSystemMetrics(SM_CXSMICON));
    ::SendMessageW(button, BM_SETIMAGE, IMAGE_ICON, reinterpret_cast<LPARAM>(icon.get()));
    // Only now: the button showed the old one until here.
    m_icon = std::move(icon);
}
