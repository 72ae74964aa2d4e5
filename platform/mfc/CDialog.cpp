#include "mfc/CDialog.h"

#include "mfc/AfxExceptionScope.h"
#include "mfc/AfxModalLoop.h"
#include "mfc/AfxModuleState.h"
#include "mfc/AfxWindowCreation.h"

#include <cstring>

namespace
{
// The beginning of both kinds of template.
struct TemplateHead
{
    DWORD style;
    short x;
    short y;
};

TemplateHead headOf(const DLGTEMPLATE* dialogTemplate)
{
    // The newer kind has 1 and 0xFFFF where the older one has its style, followed by help number, extended style,
    // style, number of controls and position. The fields may be misaligned.
    const auto* bytes = reinterpret_cast<const BYTE*>(dialogTemplate);
    WORD marks[2] = {};
    std::memcpy(marks, bytes, sizeof(marks));
    const bool isExtended = marks[0] == 1 && marks[1] == 0xFFFF;
    TemplateHead head = {};
    std::memcpy(&head.style, bytes + (isExtended ? 12 : 0), sizeof(head.style));
    std::memcpy(&head.x, bytes + (isExtended ? 18 : 10), sizeof(head.x));
    std::memcpy(&head.y, bytes + (isExtended ? 20 : 12), sizeof(head.y));
    return head;
}

bool isPlacedByTemplate(const TemplateHead& head)
{
    return (head.style & (DS_CENTER | DS_CENTERMOUSE | DS_ABSALIGN)) != 0 || head.x != 0 || head.y != 0;
}
} // namespace

INT_PTR CALLBACK AfxDlgProc(HWND /*hWnd*/, UINT /*message*/, WPARAM /*wParam*/, LPARAM /*lParam*/)
{
    return FALSE;
}

CDialog::CDialog(UINT templateId, CWnd* pParent) : CDialog(MAKEINTRESOURCEW(templateId), pParent) {}

CDialog::CDialog(LPCWSTR templateName, CWnd* pParent) : m_lpszTemplateName(templateName), m_pParentWnd(pParent) {}

CDialog::~CDialog()
{
    // Here rather than in the base, so that messages during the dialog's destruction still find a dialog.
    if (m_hWnd)
        CWnd::DestroyWindow();
}

HWND CDialog::createWindow(LPCWSTR templateName, HWND parent)
{
    const HINSTANCE library = AfxGetResourceHandle();
    const HRSRC found = ::FindResourceW(library, templateName, RT_DIALOG);
    const HGLOBAL loaded = found ? ::LoadResource(library, found) : nullptr;
    const auto* dialogTemplate = static_cast<const DLGTEMPLATE*>(loaded ? ::LockResource(loaded) : nullptr);
    if (!dialogTemplate)
        return nullptr;
    m_autoCenter = !isPlacedByTemplate(headOf(dialogTemplate));

    const AfxWindowCreation creation(this);
    return ::CreateDialogIndirectParamW(library, dialogTemplate, parent, &AfxDlgProc, 0);
}

BOOL CDialog::Create(UINT templateId, CWnd* pParent)
{
    return Create(MAKEINTRESOURCEW(templateId), pParent);
}

BOOL CDialog::Create(LPCWSTR templateName, CWnd* pParent)
{
    if (m_hWnd)
        return FALSE;
    m_lpszTemplateName = templateName;
    if (pParent)
        m_pParentWnd = pParent;
    AfxExceptionScope scope;
    const HWND created = createWindow(templateName, m_pParentWnd ? m_pParentWnd->m_hWnd : nullptr);
    // The handle may be that of a window already destroyed, and the dialog may have deleted itself with it, so the map
    // is asked before any member is touched.
    const bool exists = created && FromHandlePermanent(created) == this;
    if (exists && scope.hasException())
        AfxDestroyModalWindow(*this, scope);
    scope.rethrow();
    return exists ? TRUE : FALSE;
}

INT_PTR CDialog::DoModal()
{
    if (m_hWnd || m_isModal)
        return -1;
    AfxExceptionScope scope;
    m_isModal = true;
    m_ended = false;
    m_nModalResult = -1;
    const auto run = [&](HWND owner)
    {
        if (createWindow(m_lpszTemplateName, owner))
            runModalLoop(scope);
    };
    AfxRunModal(m_pParentWnd, scope, run, [&] { AfxDestroyModalWindow(*this, scope); });
    m_isModal = false;
    scope.rethrow();
    return m_nModalResult;
}

void CDialog::runModalLoop(const AfxExceptionScope& scope)
{
    const auto goesOn = [&] { return m_hWnd && !m_ended && !scope.hasException(); };
    if (goesOn() && !IsWindowVisible())
        ShowWindow(SW_SHOWNORMAL);
    AfxRunModalLoop(*this, goesOn);
}

void CDialog::EndDialog(int result)
{
    if (!m_isModal)
    {
        ShowWindow(SW_HIDE);
        return;
    }
    m_nModalResult = result;
    m_ended = true;
    AfxWakeMessageLoop();
}

BOOL CDialog::OnInitDialog()
{
    if (UpdateData(FALSE))
        return TRUE;
    EndDialog(-1);
    return FALSE;
}

void CDialog::OnOK()
{
    if (UpdateData(TRUE))
        EndDialog(IDOK);
}

void CDialog::OnCancel()
{
    EndDialog(IDCANCEL);
}

LRESULT CDialog::HandleInitDialog(WPARAM /*focus*/, LPARAM /*param*/)
{
    const HWND hWnd = m_hWnd;
    RECT before = {};
    GetWindowRect(&before);
    const bool wasVisible = IsWindowVisible() != FALSE;

    const BOOL result = OnInitDialog();

    // The window may have been destroyed, and the object with it.
    if (FromHandlePermanent(hWnd) != this)
        return FALSE;
    RECT after = {};
    GetWindowRect(&after);
    if (m_autoCenter && !wasVisible && !(GetStyle() & WS_CHILD) && ::EqualRect(&before, &after))
        CenterWindow();
    return result;
}

BOOL CDialog::PreTranslateMessage(MSG* pMsg)
{
    if (CWnd::PreTranslateMessage(pMsg))
        return TRUE;
    const bool isInput = (pMsg->message >= WM_KEYFIRST && pMsg->message <= WM_KEYLAST) ||
                         (pMsg->message >= WM_MOUSEFIRST && pMsg->message <= WM_MOUSELAST);
    if (!isInput || (GetStyle() & WS_CHILD))
        return FALSE;
    return ::IsDialogMessageW(m_hWnd, pMsg);
}

BEGIN_MESSAGE_MAP(CDialog, CWnd)
ON_COMMAND(IDOK, &CDialog::OnOK)
ON_COMMAND(IDCANCEL, &CDialog::OnCancel)
ON_MESSAGE(WM_INITDIALOG, &CDialog::HandleInitDialog)
END_MESSAGE_MAP()
