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

    // Shows the dialog, runs a message loop until EndDialog, and returns the result given to that. -1 when it cannot be
    // created, when its window is destroyed otherwise, or when the program is to quit. What a handler of any window
    // throws meanwhile ends the loop and is thrown on, after the owner is enabled again and the window gone.
    virtual INT_PTR DoModal();

    // Ends DoModal with this result. Called from OnInitDialog, it prevents the dialog from being shown at all. A
    // modeless dialog is hidden.
    void EndDialog(int result);

    // Loads the controls. TRUE: the focus goes to the first control.
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
