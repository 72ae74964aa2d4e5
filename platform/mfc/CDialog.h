#pragma once

#include "mfc/CDataExchange.h"
#include "mfc/CWnd.h"

class AfxExceptionScope;

// A dialog from a template of the current resource library: DoModal for a modal one, Create for a modeless one, such as
// a page inside another window.
class CDialog : public CWnd
{
public:
    CDialog() = default;
    explicit CDialog(UINT templateId, CWnd* pParent = nullptr);
    explicit CDialog(LPCWSTR templateName, CWnd* pParent = nullptr);
    ~CDialog() override;

    // Modeless. FALSE when it cannot be created; rethrows what its initialisation threw. A dialog that was built
    // without a template names it here.
    BOOL Create(UINT templateId, CWnd* pParent = nullptr);
    BOOL Create(LPCWSTR templateName, CWnd* pParent = nullptr);

    // Shows the dialog and runs a message loop until EndDialog, and answers what that was given. -1 when it cannot be
    // created, when its window is destroyed otherwise, or when the program is to quit. What a handler of any window
    // throws meanwhile ends the loop and is thrown on, after the owner is enabled again and the window gone.
    virtual INT_PTR DoModal();

    // Ends DoModal with this result; also from OnInitDialog, and then the dialog never shows. A modeless dialog is
    // hidden.
    void EndDialog(int result);

    // Moves the focus within the dialog.
    void NextDlgCtrl() const;
    void PrevDlgCtrl() const;
    void GotoDlgCtrl(const CWnd* pControl) const;
    void SetDefID(UINT id) const;

    // Loads the controls. TRUE: the focus goes to the first control.
    virtual BOOL OnInitDialog();

    // Tab, arrows, Return, Escape and access keys. The top-level dialog does it for the dialogs inside it.
    BOOL PreTranslateMessage(MSG* pMsg) override;

protected:
    // Saves the values and ends the dialog; with a value that cannot be saved it stays open.
    virtual void OnOK();
    virtual void OnCancel();

    // WM_INITDIALOG: runs OnInitDialog, and places a dialog that was not placed otherwise in the middle of its owner.
    afx_msg LRESULT HandleInitDialog(WPARAM focus, LPARAM param);

    LPCWSTR m_lpszTemplateName = nullptr; // a number as MAKEINTRESOURCE
    CWnd* m_pParentWnd = nullptr;

    DECLARE_MESSAGE_MAP()

private:
    HWND createWindow(LPCWSTR templateName, HWND parent);
    void runModalLoop(const AfxExceptionScope& scope);
    void destroyWindow(AfxExceptionScope& scope);

    bool m_autoCenter = false;
    bool m_isModal = false;
    bool m_ended = false;
    int m_nModalResult = -1;
};

// What the system runs for a dialog of ours; the window object does everything. For whoever creates one himself.
INT_PTR CALLBACK AfxDlgProc(HWND hWnd, UINT message, WPARAM wParam, LPARAM lParam);
