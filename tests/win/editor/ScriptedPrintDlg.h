#pragma once

#include "GarmPC3Editor/Dialogs/CPDFPrintDlg.h"

#include <functional>
#include <string>
#include <vector>

// The virtual printers' dialog with a script in the user's place: it runs from the dialog's own loop once the dialog is
// shown, and the dialog is cancelled when it is through and nothing else closed it.
class ScriptedPrintDlg : public CPDFPrintDlg
{
public:
    using CPDFPrintDlg::CPDFPrintDlg;

    std::function<void(ScriptedPrintDlg&)> m_beforeInit;
    std::function<void(ScriptedPrintDlg&)> m_script;
    std::function<void(ScriptedPrintDlg&)> m_whileDestroyed; // at WM_DESTROY, the controls being there still
    std::function<void(CDataExchange&)> m_beforeExchange;

    HWND control(int id) const { return ::GetDlgItem(m_hWnd, id); }
    std::wstring title() const;
    std::wstring textOf(int id) const;
    std::vector<std::wstring> entriesOf(int id) const;
    int selectionOf(int id) const;
    bool isEnabled(int id) const { return ::IsWindowEnabled(control(id)) != FALSE; }
    bool isChecked(int id) const { return IsDlgButtonChecked(id) == BST_CHECKED; }

    // As a user does it; only for controls that a user could use.
    void click(int id) const;
    void select(int id, int index) const;
    void type(int id, const std::wstring& text) const;

    BOOL OnInitDialog() override;

protected:
    void DoDataExchange(CDataExchange* pDX) override;
    LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override;
};
