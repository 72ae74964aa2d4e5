#pragma once

#include "mfc/CWnd.h"

// One exchange of values between a dialog's members and its controls, passed by UpdateData to DoDataExchange.
class CDataExchange
{
public:
    CDataExchange(CWnd* pDlgWnd, BOOL bSaveAndValidate) noexcept
        : m_bSaveAndValidate(bSaveAndValidate), m_pDlgWnd(pDlgWnd)
    {
    }

    BOOL m_bSaveAndValidate; // TRUE saves the controls' values, FALSE loads them
    CWnd* m_pDlgWnd;

    // Names the control of the next value, which gets the focus if the value cannot be accepted. Throws the
    // invalid-argument exception for a control that the dialog does not have.
    HWND PrepareCtrl(int id);
    HWND PrepareEditCtrl(int id);

    // Ends the exchange: gives the focus to the control prepared last, selects its text, and throws the user exception.
    // Tell the user the reason first.
    [[noreturn]] void Fail();

    HWND m_hWndLastControl = nullptr;
    BOOL m_bEditLastControl = FALSE;
};
