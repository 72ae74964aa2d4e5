#pragma once

#include "mfc/CWnd.h"

// One exchange between the members of a dialog and its controls, as UpdateData hands it to DoDataExchange.
class CDataExchange
{
public:
    CDataExchange(CWnd* pDlgWnd, BOOL bSaveAndValidate) noexcept
        : m_bSaveAndValidate(bSaveAndValidate), m_pDlgWnd(pDlgWnd)
    {
    }

    BOOL m_bSaveAndValidate; // TRUE saves the controls' values, FALSE loads them
    CWnd* m_pDlgWnd;

    // The control that the next value belongs to: where the focus goes when the value cannot be taken. A control that
    // the dialog does not have throws the invalid-argument exception.
    HWND PrepareCtrl(int id);
    HWND PrepareEditCtrl(int id);

    // Ends the exchange: focus on the control prepared last, its text selected, then the user exception. Tell the user
    // why before.
    [[noreturn]] void Fail();

    HWND m_hWndLastControl = nullptr;
    BOOL m_bEditLastControl = FALSE;
};
