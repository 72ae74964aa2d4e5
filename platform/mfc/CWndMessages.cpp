// How a message travels through a window object.

#include "mfc/AfxExceptionScope.h"
#include "mfc/CScrollBar.h"
#include "mfc/CWnd.h"

#include <utility>

namespace
{
// Makes a message the current one, and on every way out restores the enclosing one.
class CurrentMessage
{
public:
    CurrentMessage(AFX_THREAD_STATE& state, const MSG& message) noexcept
        : m_state(state), m_outer(std::exchange(state.m_lastSentMsg, message))
    {
    }
    CurrentMessage(const CurrentMessage&) = delete;
    CurrentMessage& operator=(const CurrentMessage&) = delete;
    ~CurrentMessage() { m_state.m_lastSentMsg = m_outer; }

private:
    AFX_THREAD_STATE& m_state;
    MSG m_outer;
};

WNDPROC classProcedure(HWND hWnd)
{
    const auto procedure = reinterpret_cast<WNDPROC>(::GetClassLongPtrW(hWnd, GCLP_WNDPROC));
    return procedure && procedure != &AfxWndProc ? procedure : &::DefWindowProcW;
}

// What is returned to the system if a handler threw.
LRESULT answerAfterException(HWND hWnd, UINT message)
{
    if (message == WM_CREATE)
        return -1;
    // Otherwise the system would ask for the same painting again and again.
    if (message == WM_PAINT)
        ::ValidateRect(hWnd, nullptr);
    return 0;
}
} // namespace

LRESULT CALLBACK AfxWndProc(HWND hWnd, UINT message, WPARAM wParam, LPARAM lParam)
{
    AFX_THREAD_STATE* state = AfxFindThreadState();
    CWnd* window = CWnd::FromHandlePermanent(hWnd);
    if (!state || !window)
        return ::CallWindowProcW(classProcedure(hWnd), hWnd, message, wParam, lParam);

    const AfxThreadLevel level(*state);
    LRESULT result = 0;
    try
    {
        MSG current = {};
        current.hwnd = hWnd;
        current.message = message;
        current.wParam = wParam;
        current.lParam = lParam;
        const CurrentMessage scope(*state, current);
        result = window->WindowProc(message, wParam, lParam);
    }
    catch (...)
    {
        AfxKeepException();
        result = answerAfterException(hWnd, message);
    }
    // An override that threw or did not call its base must not leave a destroyed window in the map.
    if (message == WM_NCDESTROY)
        if (CWnd* left = CWnd::FromHandlePermanent(hWnd))
            left->UnsubclassWindow();
    return result;
}

LRESULT CWnd::WindowProc(UINT message, WPARAM wParam, LPARAM lParam)
{
    LRESULT result = 0;
    return OnWndMsg(message, wParam, lParam, &result) ? result : DefWindowProc(message, wParam, lParam);
}

BOOL CWnd::OnWndMsg(UINT message, WPARAM wParam, LPARAM lParam, LRESULT* pResult)
{
    if (message == WM_COMMAND)
    {
        *pResult = 1;
        return OnCommand(wParam, lParam);
    }
    if (message == WM_NOTIFY)
        return OnNotify(wParam, lParam, pResult);
    if (message == WM_NCDESTROY)
    {
        onNcDestroy();
        return TRUE;
    }
    const AFX_MSGMAP_ENTRY* entry = AfxFindMessageEntry(message, 0, 0);
    if (!entry)
        return FALSE;
    entry->pfn(*this, wParam, lParam, *pResult);
    return TRUE;
}

BOOL CWnd::OnCommand(WPARAM wParam, LPARAM lParam)
{
    // Without a control it is a command, even if the high word says that it came from a shortcut key.
    const UINT code = lParam ? HIWORD(wParam) : CN_COMMAND;
    if (lParam && AfxGetThreadState().m_hLockoutNotifyWindow == m_hWnd)
        return TRUE;
    const AFX_MSGMAP_ENTRY* entry = AfxFindMessageEntry(WM_COMMAND, code, LOWORD(wParam));
    if (!entry)
        return FALSE;
    LRESULT ignored = 0;
    entry->pfn(*this, wParam, lParam, ignored);
    return TRUE;
}

BOOL CWnd::OnNotify(WPARAM wParam, LPARAM lParam, LRESULT* pResult)
{
    const auto* header = reinterpret_cast<const NMHDR*>(lParam);
    if (!header || !header->hwndFrom)
        return FALSE;
    if (AfxGetThreadState().m_hLockoutNotifyWindow == m_hWnd)
        return TRUE;
    const auto id = static_cast<UINT>(::GetDlgCtrlID(header->hwndFrom));
    const AFX_MSGMAP_ENTRY* entry = AfxFindMessageEntry(WM_NOTIFY, header->code, id);
    if (!entry)
        return FALSE;
    entry->pfn(*this, wParam, lParam, *pResult);
    return TRUE;
}

LRESULT CWnd::DefWindowProc(UINT message, WPARAM wParam, LPARAM lParam)
{
    const WNDPROC procedure = m_pfnSuper ? m_pfnSuper : classProcedure(m_hWnd);
    return ::CallWindowProcW(procedure, m_hWnd, message, wParam, lParam);
}

LRESULT CWnd::Default()
{
    const MSG current = AfxGetThreadState().m_lastSentMsg;
    return DefWindowProc(current.message, current.wParam, current.lParam);
}

const MSG* CWnd::GetCurrentMessage()
{
    return &AfxGetThreadState().m_lastSentMsg;
}

void CWnd::onNcDestroy()
{
    // The system's procedure frees what it holds for the window, and ours must be removed before later messages.
    Default();
    UnsubclassWindow();
    PostNcDestroy();
}

BOOL CWnd::PreTranslateMessage(MSG* /*pMsg*/)
{
    return FALSE;
}

bool CWnd::WalkPreTranslateTree(HWND hWndStop, MSG* pMsg)
{
    for (HWND hWnd = pMsg->hwnd; hWnd; hWnd = ::GetParent(hWnd))
    {
        if (CWnd* window = FromHandlePermanent(hWnd); window && window->PreTranslateMessage(pMsg))
            return true;
        if (hWnd == hWndStop)
            break;
    }
    return false;
}

void CWnd::OnDestroy()
{
    Default();
}

void CWnd::OnPaint()
{
    Default();
}

void CWnd::OnHScroll(UINT /*code*/, UINT /*position*/, CScrollBar* /*pScrollBar*/)
{
    Default();
}

HCURSOR CWnd::OnQueryDragIcon()
{
    return reinterpret_cast<HCURSOR>(Default());
}

CScrollBar* AfxScrollBarFromHandle(HWND hWnd)
{
    return dynamic_cast<CScrollBar*>(CWnd::FromHandlePermanent(hWnd));
}

BEGIN_MESSAGE_MAP(CWnd, CCmdTarget)
END_MESSAGE_MAP()
