#include "mfc/CPropertySheet.h"

#include "mfc/AfxExceptionScope.h"
#include "mfc/AfxModalLoop.h"
#include "mfc/AfxModuleState.h"
#include "mfc/AfxWindowCreation.h"
#include "mfc/CInvalidArgException.h"

#include <algorithm>

CPropertySheet::CPropertySheet(LPCWSTR caption, CWnd* pParentWnd, UINT selectPage)
    : m_strCaption(caption), m_pParentWnd(pParentWnd)
{
    m_psh.dwSize = sizeof(m_psh);
    // There is no help for individual controls, so there is no question mark in the title bar either.
    m_psh.dwFlags = PSH_PROPSHEETPAGE | PSH_NOCONTEXTHELP;
    m_psh.nStartPage = selectPage;
}

CPropertySheet::CPropertySheet(UINT captionId, CWnd* pParentWnd, UINT selectPage)
    : CPropertySheet(static_cast<LPCWSTR>(nullptr), pParentWnd, selectPage)
{
    m_strCaption.LoadString(captionId);
}

CPropertySheet::~CPropertySheet()
{
    // Here rather than in the base, so that messages during the sheet's destruction still find a sheet.
    if (m_hWnd)
        CWnd::DestroyWindow();
}

void CPropertySheet::AddPage(CPropertyPage* pPage)
{
    if (!pPage || m_hWnd)
        AfxThrowInvalidArgException();
    m_pages.push_back(pPage);
    pPage->m_pSheet = this;
}

CPropertyPage* CPropertySheet::GetPage(int index) const
{
    if (index < 0 || index >= GetPageCount())
        AfxThrowInvalidArgException();
    return m_pages[static_cast<std::size_t>(index)];
}

int CPropertySheet::GetPageIndex(const CPropertyPage* pPage) const noexcept
{
    const auto found = std::ranges::find(m_pages, pPage);
    return found == m_pages.end() ? -1 : static_cast<int>(found - m_pages.begin());
}

int CPropertySheet::GetActiveIndex() const
{
    const CWnd* tab = GetTabControl();
    return tab ? static_cast<int>(tab->SendMessage(TCM_GETCURSEL)) : static_cast<int>(m_psh.nStartPage);
}

BOOL CPropertySheet::SetActivePage(int index)
{
    if (index < 0 || index >= GetPageCount())
        return FALSE;
    if (m_hWnd)
        return static_cast<BOOL>(SendMessage(PSM_SETCURSEL, static_cast<WPARAM>(index)));
    m_psh.nStartPage = static_cast<UINT>(index);
    return TRUE;
}

CWnd* CPropertySheet::GetTabControl() const
{
    return m_hWnd ? FromHandle(reinterpret_cast<HWND>(SendMessage(PSM_GETTABCONTROL))) : nullptr;
}

HWND CPropertySheet::currentPage() const
{
    return reinterpret_cast<HWND>(SendMessage(PSM_GETCURRENTPAGEHWND));
}

INT_PTR CPropertySheet::DoModal()
{
    std::vector<PROPSHEETPAGEW> pages;
    if (m_hWnd || m_scope || !preparePages(pages))
        return -1;
    AfxExceptionScope scope;
    m_scope = &scope;
    m_ended = false;
    m_nModalResult = -1;
    const auto run = [&](HWND owner)
    {
        createWindow(pages, owner);
        runModalLoop();
    };
    const auto destroy = [&]
    {
        AfxDestroyModalWindow(*this, scope);
        forgetPageWithoutWindow();
    };
    AfxRunModal(m_pParentWnd, scope, run, destroy);
    m_scope = nullptr;
    scope.rethrow();
    return m_nModalResult;
}

bool CPropertySheet::preparePages(std::vector<PROPSHEETPAGEW>& pages)
{
    for (CPropertyPage* page : m_pages)
    {
        if (page->m_hWnd || !page->prepare())
            return false;
        pages.push_back(page->m_psp);
    }
    return !pages.empty();
}

void CPropertySheet::createWindow(std::vector<PROPSHEETPAGEW>& pages, HWND owner)
{
    PROPSHEETHEADERW header = m_psh;
    // A sheet that the system runs modally uses the system's loop, in which no page can see a message first.
    header.dwFlags |= PSH_MODELESS | PSH_PROPSHEETPAGE;
    header.hwndParent = owner;
    header.hInstance = AfxGetInstanceHandle();
    header.pszCaption = m_strCaption;
    header.nPages = static_cast<UINT>(pages.size());
    header.nStartPage = std::min(m_psh.nStartPage, header.nPages - 1);
    header.ppsp = pages.data();

    m_keepHidden = true;
    const AfxWindowCreation creation(this);
    ::PropertySheetW(&header);
}

bool CPropertySheet::goesOn() const
{
    return m_hWnd && !m_ended && !m_scope->hasException() && currentPage();
}

void CPropertySheet::runModalLoop()
{
    m_keepHidden = false;
    if (!goesOn())
        return;
    ShowWindow(SW_SHOWNORMAL);
    AfxRunModalLoop(*this, [this] { return goesOn(); });
    // The system has no current page any more after OK and Cancel.
    if (m_hWnd && !m_ended && !m_scope->hasException() && !currentPage())
        m_nModalResult = SendMessage(PSM_GETRESULT) > 0 ? IDOK : IDCANCEL;
}

void CPropertySheet::EndDialog(int result)
{
    if (!m_scope)
        return;
    m_nModalResult = result;
    m_ended = true;
    AfxWakeMessageLoop();
}

BOOL CPropertySheet::PressButton(int button)
{
    return static_cast<BOOL>(SendMessage(PSM_PRESSBUTTON, static_cast<WPARAM>(button)));
}

BOOL CPropertySheet::OnInitDialog()
{
    return TRUE;
}

LRESULT CPropertySheet::HandleInitDialog(WPARAM /*focus*/, LPARAM /*param*/)
{
    // Creates the tab control and the first page.
    const LRESULT systemSetsFocus = Default();
    if (!m_scope || m_scope->hasException() || !currentPage())
        return systemSetsFocus;
    m_tabControl.SubclassWindow(reinterpret_cast<HWND>(SendMessage(PSM_GETTABCONTROL)));
    CenterWindow();
    return OnInitDialog() ? systemSetsFocus : FALSE;
}

// The system shows the window as soon as it is created, but a sheet that ends or fails during its initialisation must
// not be seen at all.
LRESULT CPropertySheet::HandleWindowPosChanging(WPARAM /*wParam*/, LPARAM lParam)
{
    const LRESULT result = Default();
    if (m_keepHidden)
        reinterpret_cast<WINDOWPOS*>(lParam)->flags &= ~static_cast<UINT>(SWP_SHOWWINDOW);
    return result;
}

BOOL CPropertySheet::PreTranslateMessage(MSG* pMsg)
{
    if (CWnd::PreTranslateMessage(pMsg))
        return TRUE;
    const bool isInput = (pMsg->message >= WM_KEYFIRST && pMsg->message <= WM_KEYLAST) ||
                         (pMsg->message >= WM_MOUSEFIRST && pMsg->message <= WM_MOUSELAST);
    if (!isInput || (pMsg->hwnd != m_hWnd && !::IsChild(m_hWnd, pMsg->hwnd)))
        return FALSE;
    if (pMsg->message == WM_KEYDOWN && ::GetKeyState(VK_CONTROL) < 0)
    {
        const bool isTab = pMsg->wParam == VK_TAB;
        if (isTab || pMsg->wParam == VK_NEXT || pMsg->wParam == VK_PRIOR)
        {
            const bool back = isTab ? ::GetKeyState(VK_SHIFT) < 0 : pMsg->wParam == VK_PRIOR;
            switchTab(back ? -1 : 1);
            return TRUE;
        }
    }
    return SendMessage(PSM_ISDIALOGMESSAGE, 0, reinterpret_cast<LPARAM>(pMsg)) != 0;
}

// Just as a click on the tab does, with both notifications, so that code which follows the tab is informed.
void CPropertySheet::switchTab(int step)
{
    const int count = GetPageCount();
    const auto shown = static_cast<int>(SendMessage(PSM_HWNDTOINDEX, reinterpret_cast<WPARAM>(currentPage())));
    if (shown < 0 || count < 2)
        return;
    m_tabControl.SendMessage(TCM_SETCURFOCUS, static_cast<WPARAM>((shown + count + step) % count));
}

void CPropertySheet::afterSwitching()
{
    const HWND page = m_hWnd ? currentPage() : nullptr;
    if (!page)
        return;
    // A refused switch may leave the wrong tab highlighted.
    const LRESULT shown = SendMessage(PSM_HWNDTOINDEX, reinterpret_cast<WPARAM>(page));
    if (shown >= 0 && shown != m_tabControl.SendMessage(TCM_GETCURSEL))
        m_tabControl.SendMessage(TCM_SETCURSEL, static_cast<WPARAM>(shown));
    // The focus must not stay in a hidden page, where the user's input would go unseen.
    const HWND focus = ::GetFocus();
    if (!focus || focus == m_hWnd || (::IsChild(m_hWnd, focus) && !::IsWindowVisible(focus)))
    {
        const HWND first = ::GetNextDlgTabItem(page, nullptr, FALSE);
        SendMessage(WM_NEXTDLGCTL, reinterpret_cast<WPARAM>(first ? first : m_tabControl.m_hWnd), TRUE);
    }
}

void CPropertySheet::forgetPageWithoutWindow() noexcept
{
    // A page whose window could not be created is still waiting for it and would be attached to any other window.
    const AFX_THREAD_STATE* state = AfxFindThreadState();
    if (state && state->m_pWndInit && std::ranges::find(m_pages, state->m_pWndInit) != m_pages.end())
        AfxUnhookWindowCreate();
}

LRESULT CPropertySheet::WindowProc(UINT message, WPARAM wParam, LPARAM lParam)
{
    const LRESULT result = CWnd::WindowProc(message, wParam, lParam);
    forgetPageWithoutWindow();
    const bool isCommand = message == WM_COMMAND && (LOWORD(wParam) == IDOK || LOWORD(wParam) == IDCANCEL);
    if (isCommand || message == WM_CLOSE || message == PSM_PRESSBUTTON || message == WM_NCDESTROY)
        AfxWakeMessageLoop();
    if (message == PSM_SETCURSEL || message == PSM_SETCURSELID)
        afterSwitching();
    return result;
}

BOOL CPropertySheet::OnNotify(WPARAM wParam, LPARAM lParam, LRESULT* pResult)
{
    try
    {
        return CWnd::OnNotify(wParam, lParam, pResult);
    }
    catch (...)
    {
        // The sheet ends here: TRUE keeps the tab control from switching to another page.
        AfxKeepException();
        *pResult = TRUE;
        return TRUE;
    }
}

LRESULT CPropertySheet::TabControl::WindowProc(UINT message, WPARAM wParam, LPARAM lParam)
{
    const LRESULT result = CWnd::WindowProc(message, wParam, lParam);
    if (message == TCM_SETCURFOCUS || message == WM_KEYDOWN || message == WM_KEYUP || message == WM_LBUTTONDOWN)
        m_sheet.afterSwitching();
    return result;
}

BEGIN_MESSAGE_MAP(CPropertySheet, CWnd)
ON_MESSAGE(WM_INITDIALOG, &CPropertySheet::HandleInitDialog)
ON_MESSAGE(WM_WINDOWPOSCHANGING, &CPropertySheet::HandleWindowPosChanging)
END_MESSAGE_MAP()
