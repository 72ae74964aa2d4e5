#include "mfc/CDataExchange.h"

#include "mfc/AfxThreadState.h"
#include "mfc/CInvalidArgException.h"
#include "mfc/CUserException.h"

#include <utility>

HWND CDataExchange::PrepareCtrl(int id)
{
    m_hWndLastControl = ::GetDlgItem(m_pDlgWnd->m_hWnd, id);
    m_bEditLastControl = FALSE;
    if (!m_hWndLastControl)
        AfxThrowInvalidArgException();
    return m_hWndLastControl;
}

HWND CDataExchange::PrepareEditCtrl(int id)
{
    const HWND control = PrepareCtrl(id);
    m_bEditLastControl = TRUE;
    return control;
}

void CDataExchange::Fail()
{
    if (m_bSaveAndValidate && m_hWndLastControl)
    {
        ::SetFocus(m_hWndLastControl);
        if (m_bEditLastControl)
            ::SendMessageW(m_hWndLastControl, EM_SETSEL, 0, -1);
    }
    AfxThrowUserException();
}

namespace
{
class NotificationLock
{
public:
    explicit NotificationLock(HWND hWnd)
        : m_state(AfxGetThreadState()), m_outer(std::exchange(m_state.m_hLockoutNotifyWindow, hWnd))
    {
    }
    NotificationLock(const NotificationLock&) = delete;
    NotificationLock& operator=(const NotificationLock&) = delete;
    ~NotificationLock() { m_state.m_hLockoutNotifyWindow = m_outer; }

private:
    AFX_THREAD_STATE& m_state;
    HWND m_outer;
};
} // namespace

BOOL CWnd::UpdateData(BOOL saveAndValidate)
{
    if (!m_hWnd)
        return TRUE;
    const NotificationLock lock(m_hWnd);
    CDataExchange exchange(this, saveAndValidate);
    try
    {
        DoDataExchange(&exchange);
    }
    catch (CUserException* exception)
    {
        exception->Delete();
        return FALSE;
    }
    return TRUE;
}

void CWnd::DoDataExchange(CDataExchange* /*pDX*/) {}
