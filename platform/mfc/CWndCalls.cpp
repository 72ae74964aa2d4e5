// The members of CWnd that only call the system.

#include "mfc/CWnd.h"

#include <algorithm>

LRESULT CWnd::SendMessage(UINT message, WPARAM wParam, LPARAM lParam) const
{
    return ::SendMessageW(m_hWnd, message, wParam, lParam);
}

BOOL CWnd::PostMessage(UINT message, WPARAM wParam, LPARAM lParam) const
{
    return ::PostMessageW(m_hWnd, message, wParam, lParam);
}

void CWnd::SetWindowText(LPCWSTR text) const
{
    ::SetWindowTextW(m_hWnd, text);
}

int CWnd::GetWindowText(LPWSTR buffer, int size) const
{
    return ::GetWindowTextW(m_hWnd, buffer, size);
}

void CWnd::GetWindowText(CString& text) const
{
    // The length may be an upper bound, and the text may be shorter by the time it is read.
    const int length = GetWindowTextLength();
    const int copied = ::GetWindowTextW(m_hWnd, text.GetBuffer(length + 1), length + 1);
    text.ReleaseBuffer(copied);
}

int CWnd::GetWindowTextLength() const
{
    return ::GetWindowTextLengthW(m_hWnd);
}

BOOL CWnd::EnableWindow(BOOL enable) const
{
    return ::EnableWindow(m_hWnd, enable);
}

BOOL CWnd::IsWindowEnabled() const
{
    return ::IsWindowEnabled(m_hWnd);
}

BOOL CWnd::ShowWindow(int how) const
{
    return ::ShowWindow(m_hWnd, how);
}

BOOL CWnd::IsWindowVisible() const
{
    return ::IsWindowVisible(m_hWnd);
}

BOOL CWnd::IsIconic() const
{
    return ::IsIconic(m_hWnd);
}

DWORD CWnd::GetStyle() const
{
    return static_cast<DWORD>(::GetWindowLongW(m_hWnd, GWL_STYLE));
}

DWORD CWnd::GetExStyle() const
{
    return static_cast<DWORD>(::GetWindowLongW(m_hWnd, GWL_EXSTYLE));
}

namespace
{
BOOL modify(HWND hWnd, int which, DWORD remove, DWORD add, UINT positionFlags)
{
    const auto before = static_cast<DWORD>(::GetWindowLongW(hWnd, which));
    const DWORD after = (before & ~remove) | add;
    if (before == after)
        return FALSE;
    ::SetWindowLongW(hWnd, which, static_cast<LONG>(after));
    if (positionFlags)
        ::SetWindowPos(hWnd, nullptr, 0, 0, 0, 0,
                       SWP_NOSIZE | SWP_NOMOVE | SWP_NOZORDER | SWP_NOACTIVATE | positionFlags);
    return TRUE;
}
} // namespace

BOOL CWnd::ModifyStyle(DWORD remove, DWORD add, UINT positionFlags) const
{
    return modify(m_hWnd, GWL_STYLE, remove, add, positionFlags);
}

BOOL CWnd::ModifyStyleEx(DWORD remove, DWORD add, UINT positionFlags) const
{
    return modify(m_hWnd, GWL_EXSTYLE, remove, add, positionFlags);
}

HICON CWnd::SetIcon(HICON icon, BOOL big) const
{
    return reinterpret_cast<HICON>(
        SendMessage(WM_SETICON, big ? ICON_BIG : ICON_SMALL, reinterpret_cast<LPARAM>(icon)));
}

HICON CWnd::GetIcon(BOOL big) const
{
    return reinterpret_cast<HICON>(SendMessage(WM_GETICON, big ? ICON_BIG : ICON_SMALL));
}

CWnd* CWnd::SetFocus() const
{
    return FromHandle(::SetFocus(m_hWnd));
}

CWnd* CWnd::GetFocus()
{
    return FromHandle(::GetFocus());
}

CWnd* CWnd::SetActiveWindow() const
{
    return FromHandle(::SetActiveWindow(m_hWnd));
}

BOOL CWnd::SetForegroundWindow() const
{
    return ::SetForegroundWindow(m_hWnd);
}

void CWnd::GetClientRect(RECT* rect) const
{
    ::GetClientRect(m_hWnd, rect);
}

void CWnd::GetWindowRect(RECT* rect) const
{
    ::GetWindowRect(m_hWnd, rect);
}

// Both corners in one call, which keeps left and right in order in a mirrored window.
void CWnd::ScreenToClient(RECT* rect) const
{
    ::MapWindowPoints(nullptr, m_hWnd, reinterpret_cast<POINT*>(rect), 2);
}

void CWnd::ClientToScreen(RECT* rect) const
{
    ::MapWindowPoints(m_hWnd, nullptr, reinterpret_cast<POINT*>(rect), 2);
}

void CWnd::ScreenToClient(POINT* point) const
{
    ::ScreenToClient(m_hWnd, point);
}

void CWnd::ClientToScreen(POINT* point) const
{
    ::ClientToScreen(m_hWnd, point);
}

void CWnd::MoveWindow(int x, int y, int width, int height, BOOL repaint) const
{
    ::MoveWindow(m_hWnd, x, y, width, height, repaint);
}

void CWnd::MoveWindow(const RECT& rect, BOOL repaint) const
{
    MoveWindow(rect.left, rect.top, rect.right - rect.left, rect.bottom - rect.top, repaint);
}

BOOL CWnd::SetWindowPos(HWND insertAfter, int x, int y, int width, int height, UINT flags) const
{
    return ::SetWindowPos(m_hWnd, insertAfter, x, y, width, height, flags);
}

void CWnd::Invalidate(BOOL erase) const
{
    ::InvalidateRect(m_hWnd, nullptr, erase);
}

void CWnd::InvalidateRect(const RECT* rect, BOOL erase) const
{
    ::InvalidateRect(m_hWnd, rect, erase);
}

void CWnd::UpdateWindow() const
{
    ::UpdateWindow(m_hWnd);
}

BOOL CWnd::RedrawWindow(const RECT* rect, HRGN region, UINT flags) const
{
    return ::RedrawWindow(m_hWnd, rect, region, flags);
}

void CWnd::CenterWindow(const CWnd* pAlternateOwner) const
{
    const bool isChild = (GetStyle() & WS_CHILD) != 0;
    HWND around = pAlternateOwner ? pAlternateOwner->m_hWnd : ::GetParent(m_hWnd);
    // Centred in an invisible window it could end up anywhere.
    if (!isChild && around && (!::IsWindowVisible(around) || ::IsIconic(around)))
        around = nullptr;

    RECT own = {};
    GetWindowRect(&own);
    RECT area = {};
    RECT limit = {};
    if (isChild)
    {
        const HWND parent = ::GetParent(m_hWnd);
        ::GetClientRect(parent, &limit);
        ::GetClientRect(around, &area);
        ::MapWindowPoints(around, parent, reinterpret_cast<POINT*>(&area), 2);
    }
    else
    {
        MONITORINFO monitor = {};
        monitor.cbSize = sizeof(monitor);
        ::GetMonitorInfoW(::MonitorFromWindow(around ? around : m_hWnd, MONITOR_DEFAULTTONEAREST), &monitor);
        limit = monitor.rcWork;
        area = limit;
        if (around)
            ::GetWindowRect(around, &area);
    }
    const LONG width = own.right - own.left;
    const LONG height = own.bottom - own.top;
    // If there is not enough room, the left and upper edges win, so that the title bar stays within reach.
    const LONG left = std::max(limit.left, std::min((area.left + area.right - width) / 2, limit.right - width));
    const LONG top = std::max(limit.top, std::min((area.top + area.bottom - height) / 2, limit.bottom - height));
    SetWindowPos(nullptr, left, top, 0, 0, SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE);
}

int CWnd::MessageBox(LPCWSTR text, LPCWSTR caption, UINT type) const
{
    return ::MessageBoxW(m_hWnd, text, caption, type);
}

CWnd* CWnd::GetParent() const
{
    return FromHandlePermanent(::GetParent(m_hWnd));
}

CWnd* CWnd::GetDlgItem(int id) const
{
    return FromHandle(::GetDlgItem(m_hWnd, id));
}

void CWnd::GetDlgItem(int id, HWND* hWnd) const
{
    *hWnd = ::GetDlgItem(m_hWnd, id);
}

CWnd* CWnd::GetTopLevelParent() const
{
    return FromHandle(::GetAncestor(m_hWnd, GA_ROOT));
}

int CWnd::GetDlgCtrlID() const
{
    return ::GetDlgCtrlID(m_hWnd);
}

BOOL CWnd::IsChild(const CWnd* pWnd) const
{
    return pWnd ? ::IsChild(m_hWnd, pWnd->m_hWnd) : FALSE;
}

LRESULT CWnd::SendDlgItemMessage(int id, UINT message, WPARAM wParam, LPARAM lParam) const
{
    return ::SendDlgItemMessageW(m_hWnd, id, message, wParam, lParam);
}

void CWnd::SetDlgItemText(int id, LPCWSTR text) const
{
    ::SetDlgItemTextW(m_hWnd, id, text);
}

int CWnd::GetDlgItemText(int id, LPWSTR buffer, int size) const
{
    return static_cast<int>(::GetDlgItemTextW(m_hWnd, id, buffer, size));
}

int CWnd::GetDlgItemText(int id, CString& text) const
{
    text.Empty();
    if (const CWnd* control = GetDlgItem(id))
        control->GetWindowText(text);
    return text.GetLength();
}

void CWnd::CheckDlgButton(int id, UINT check) const
{
    ::CheckDlgButton(m_hWnd, id, check);
}

void CWnd::CheckRadioButton(int first, int last, int checked) const
{
    ::CheckRadioButton(m_hWnd, first, last, checked);
}

UINT CWnd::IsDlgButtonChecked(int id) const
{
    return ::IsDlgButtonChecked(m_hWnd, id);
}

int CWnd::GetCheckedRadioButton(int first, int last) const
{
    for (int id = first; id <= last; ++id)
        if (IsDlgButtonChecked(id) == BST_CHECKED)
            return id;
    return 0;
}
