#pragma once

#include "mfc/CDialog.h"

#include <prsht.h>
#include <vector>

class CPropertySheet;

// One page of a property sheet. The sheet creates its window when the page is first shown, from a copy of the template
// made when the sheet was started, and keeps it until the sheet closes. Page and sheet objects belong to the code that
// created them; the page must outlive the sheet's DoModal.
//
// The page's window is a child of the sheet's, so GetParent returns the sheet. OnOK and OnCancel end nothing here: it
// is the sheet that is confirmed or cancelled, and it notifies the page through OnApply and OnReset.
class CPropertyPage : public CDialog
{
public:
    // captionId is the number of the tab's text, which is loaded from the current resource library now; 0 uses the
    // template's caption.
    explicit CPropertyPage(UINT templateId, UINT captionId = 0);
    explicit CPropertyPage(LPCWSTR templateName, UINT captionId = 0);

    // What the sheet passes to the system; completed when the sheet is started.
    PROPSHEETPAGEW m_psp = {};

    // The page is about to be shown. FALSE shows the next one instead. Loads the controls except the first time, when
    // OnInitDialog has done so.
    virtual BOOL OnSetActive();
    // The page is about to be left, or the sheet to be confirmed. Saves the values; FALSE keeps the page shown and the
    // sheet open.
    virtual BOOL OnKillActive();
    // The sheet was confirmed, and every page with a window agreed to be left. FALSE keeps the sheet open.
    virtual BOOL OnApply();
    // The user wants to cancel the sheet; only the shown page is asked. FALSE keeps the sheet open.
    virtual BOOL OnQueryCancel();
    // The sheet was cancelled.
    virtual void OnReset();

    // Ends the sheet with this result, at once and without asking any page.
    void EndDialog(int result);

protected:
    void OnOK() override;
    void OnCancel() override;
    BOOL OnNotify(WPARAM wParam, LPARAM lParam, LRESULT* pResult) override;

private:
    friend class CPropertySheet;

    // Fills m_psp for a new start. False if the current resource library has no such template.
    bool prepare();
    // Answers the sheet's notifications to its pages; false for other notifications.
    bool answerSheet(UINT code, LRESULT& result);

    CString m_strCaption;
    std::vector<DWORD> m_template; // a template begins at a multiple of four
    CPropertySheet* m_pSheet = nullptr;
    bool m_bFirstSetActive = true;
};
