#include "mfc/CPropertyPage.h"

#include "mfc/AfxExceptionScope.h"
#include "mfc/AfxModuleState.h"
#include "mfc/AfxWindowCreation.h"
#include "mfc/CPropertySheet.h"

#include <cstring>

namespace
{
// The system is about to create the page's window.
UINT CALLBACK pageCallback(HWND /*hWnd*/, UINT message, PROPSHEETPAGEW* page) noexcept
{
    if (message != PSPCB_CREATE)
        return 1;
    try
    {
        AfxHookWindowCreate(reinterpret_cast<CPropertyPage*>(page->lParam));
        return 1;
    }
    catch (...)
    {
        AfxKeepException();
        return 0;
    }
}

LRESULT refusal(UINT code)
{
    if (code == PSN_APPLY)
        return PSNRET_INVALID_NOCHANGEPAGE;
    // Showing another page instead would not help.
    return code == PSN_SETACTIVE ? 0 : TRUE;
}
} // namespace

CPropertyPage::CPropertyPage(UINT templateId, UINT captionId) : CPropertyPage(MAKEINTRESOURCEW(templateId), captionId)
{
}

CPropertyPage::CPropertyPage(LPCWSTR templateName, UINT captionId) : CDialog(templateName)
{
    m_psp.dwSize = sizeof(m_psp);
    if (captionId == 0)
        return;
    m_strCaption.LoadString(captionId);
    m_psp.dwFlags |= PSP_USETITLE;
}

bool CPropertyPage::prepare()
{
    // A copy, because the page may be created long after its library was replaced by another language's.
    const HINSTANCE library = AfxGetResourceHandle();
    const HRSRC found = ::FindResourceW(library, m_lpszTemplateName, RT_DIALOG);
    const HGLOBAL loaded = found ? ::LoadResource(library, found) : nullptr;
    const void* bytes = loaded ? ::LockResource(loaded) : nullptr;
    const DWORD size = found ? ::SizeofResource(library, found) : 0;
    if (!bytes || size < sizeof(DLGTEMPLATE))
        return false;
    m_template.assign((size + sizeof(DWORD) - 1) / sizeof(DWORD), 0);
    std::memcpy(m_template.data(), bytes, size);

    m_psp.dwFlags |= PSP_DLGINDIRECT | PSP_USECALLBACK;
    m_psp.hInstance = library;
    m_psp.pResource = reinterpret_cast<const DLGTEMPLATE*>(m_template.data());
    m_psp.pszTitle = m_strCaption;
    m_psp.pfnDlgProc = &AfxDlgProc;
    m_psp.pfnCallback = &pageCallback;
    m_psp.lParam = reinterpret_cast<LPARAM>(this);
    m_bFirstSetActive = true;
    return true;
}

BOOL CPropertyPage::OnSetActive()
{
    if (m_bFirstSetActive)
        m_bFirstSetActive = false;
    else
        UpdateData(FALSE);
    return TRUE;
}

BOOL CPropertyPage::OnKillActive()
{
    return UpdateData(TRUE);
}

BOOL CPropertyPage::OnApply()
{
    OnOK();
    return TRUE;
}

BOOL CPropertyPage::OnQueryCancel()
{
    return TRUE;
}

void CPropertyPage::OnReset()
{
    OnCancel();
}

void CPropertyPage::EndDialog(int result)
{
    if (m_pSheet)
        m_pSheet->EndDialog(result);
}

void CPropertyPage::OnOK() {}

void CPropertyPage::OnCancel() {}

BOOL CPropertyPage::OnNotify(WPARAM wParam, LPARAM lParam, LRESULT* pResult)
{
    if (CDialog::OnNotify(wParam, lParam, pResult))
        return TRUE;
    const auto* header = reinterpret_cast<const NMHDR*>(lParam);
    if (!header || header->hwndFrom != ::GetParent(m_hWnd))
        return FALSE;
    try
    {
        return answerSheet(header->code, *pResult) ? TRUE : FALSE;
    }
    catch (...)
    {
        // The sheet ends, but not as if this page had agreed: no other page may be told that all is well.
        AfxKeepException();
        *pResult = refusal(header->code);
        return TRUE;
    }
}

bool CPropertyPage::answerSheet(UINT code, LRESULT& result)
{
    switch (code)
    {
    case PSN_SETACTIVE:
        result = OnSetActive() ? 0 : -1;
        return true;
    case PSN_KILLACTIVE:
        result = OnKillActive() ? FALSE : TRUE;
        return true;
    case PSN_APPLY:
        result = OnApply() ? PSNRET_NOERROR : PSNRET_INVALID_NOCHANGEPAGE;
        return true;
    case PSN_QUERYCANCEL:
        result = OnQueryCancel() ? FALSE : TRUE;
        return true;
    case PSN_RESET:
        OnReset();
        return true;
    default:
        return false;
    }
}
