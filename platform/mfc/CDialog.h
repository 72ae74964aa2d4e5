#pragma once

#include "mfc/CDataExchange.h"
#include "mfc/CWnd.h"

class AfxExceptionScope;

// A dialog from a template in the current resource library: DoModal shows it modally, Create modelessly, for example as
// a page inside another window.
class CDialog : public CWnd
{
public:
    CDialog() = default;
    explicit CDialog(UINT templateId, CWnd* pParent = nullptr);
    explicit CDialog(LPCWSTR templateName, CWnd* pParent = nullptr);
    ~CDialog() override;

    // Creates a modeless dialog. FALSE if it cannot be created; rethrows what its initialisation threw. A dialog that
    // was constructed without a template names it here.
    BOOL Create(UINT templateId, CWnd* pParent = nullptr);
    BOOL Create(LPCWSTR templateName, CWnd* pParent = nullptr);

    // Shows the dialog and runs a message loop until EndDialog, whose argument it returns. -1 if the dialog cannot be
    // created, if its window is destroyed in another way, or if the program is to quit. An exception from any window's
    // handler ends the loop and is rethrown, after the owner is enabled again and the window destroyed.
    virtual INT_PTR DoModal();

    // Ends DoModal with this result. Called from OnInitDialog, it prevents the dialog from being shown at all. A
    // modeless dialog is hidden.
    void EndDialog(int result);

    // Moves the focus within the dialog.
    void NextDlgCtrl() const;
    void PrevDlgCtrl() const;
    void GotoDlgCtrl(const CWnd* pControl) const;
    void SetDefID(UINT id) const;

    // Loads the controls. Returning TRUE gives the focus to the first control.
    virtual BOOL OnInitDialog();

    // Handles Tab, arrows, Return, Escape and access keys. The top-level dialog does so for the dialogs inside it.
    BOOL PreTranslateMessage(MSG* pMsg) override;

protected:
    // Saves the values and ends the dialog, which stays open if a value cannot be saved.
    virtual void OnOK();
    virtual void OnCancel();

    // WM_INITDIALOG: runs OnInitDialog and, unless the dialog was positioned otherwise, centres it in its owner.
    afx_msg LRESULT HandleInitDialog(WPARAM focus, LPARAM param);

    LPCWSTR m_lpszTemplateName = nullptr; // a number as MAKEINTRESOURCE
    CWnd* m_pParentWnd = nullptr;

    DECLARE_MESSAGE_MAP()

private:
    HWND createWindow(LPCWSTR templateName, HWND parent);
    void runModalLoop(const AfxExceptionScope& scope);

    bool m_autoCenter = false;
    bool m_isModal = false;
    bool m_ended = false;
    int m_nModalResult = -1;
};

// The dialog procedure of our dialogs; the window object does everything. For code that creates a dialog itself.
INT_PTR CALLBACK AfxDlgProc(HWND hWnd, UINT message, WPARAM wParam, LPARAM lParam);
