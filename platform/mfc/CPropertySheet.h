#pragma once

#include "mfc/CPropertyPage.h"
#include "mfc/CWnd.h"

#include <prsht.h>
#include <vector>

class AfxExceptionScope;

// A window with tabs, each with a page, and with OK and Cancel. It is the system's property sheet, but runs in our own
// message loop, so that pages can see messages before the keyboard handling takes them.
class CPropertySheet : public CWnd
{
public:
    explicit CPropertySheet(LPCWSTR caption, CWnd* pParentWnd = nullptr, UINT selectPage = 0);
    explicit CPropertySheet(UINT captionId, CWnd* pParentWnd = nullptr, UINT selectPage = 0);
    ~CPropertySheet() override;

    // Flags for the system, such as PSH_NOAPPLYNOW; pages, caption and owner are filled in when the sheet is started.
    PROPSHEETHEADERW m_psh = {};

    // Appends a page, which its creator continues to own. Throws the invalid-argument exception for null, and while the
    // sheet is shown.
    void AddPage(CPropertyPage* pPage);
    int GetPageCount() const noexcept { return static_cast<int>(m_pages.size()); }
    // Throws the invalid-argument exception for an index that is out of range.
    CPropertyPage* GetPage(int index) const;
    // -1 if the page is not in this sheet.
    int GetPageIndex(const CPropertyPage* pPage) const noexcept;

    // The selected tab; without a window, the page to be shown first.
    int GetActiveIndex() const;
    CPropertyPage* GetActivePage() const { return GetPage(GetActiveIndex()); }
    // FALSE if there is no such page, if the shown page cannot be left, or if the other one refuses.
    BOOL SetActivePage(int index);
    BOOL SetActivePage(const CPropertyPage* pPage) { return SetActivePage(GetPageIndex(pPage)); }

    // The sheet's tab control, with the ID AFX_IDC_TAB_CONTROL; null without a window.
    //
    // A handler for one of its notifications hides it from the system's procedure, which then never switches pages, so
    // call Default() in it. After TCN_SELCHANGING the result of Default() is the handler's result, unless it refuses by
    // itself.
    CWnd* GetTabControl() const;

    // Shows the sheet and runs a message loop until it is confirmed (IDOK), cancelled (IDCANCEL) or ended by EndDialog.
    // -1 if the sheet or its first page cannot be created, if its window is destroyed in another way, or if the program
    // is to quit. An exception from any window's handler ends the loop and is rethrown, after the owner is enabled
    // again and the window destroyed.
    virtual INT_PTR DoModal();

    // Ends DoModal with this result, without asking the pages. Called from OnInitDialog, it prevents the sheet from
    // being shown at all.
    void EndDialog(int result);

    // Presses one of the sheet's buttons, PSBTN_OK to PSBTN_HELP.
    BOOL PressButton(int button);

    // Called when the first page exists and before the sheet is shown; may be called again at any time while it is
    // shown. Returning TRUE lets the system set the focus.
    virtual BOOL OnInitDialog();

    // Ctrl+Tab, Ctrl+Page Down and Ctrl+Page Up switch pages; Tab, arrows, Return, Escape and access keys work.
    BOOL PreTranslateMessage(MSG* pMsg) override;

protected:
    LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override;
    BOOL OnNotify(WPARAM wParam, LPARAM lParam, LRESULT* pResult) override;

    afx_msg LRESULT HandleInitDialog(WPARAM focus, LPARAM param);
    afx_msg LRESULT HandleWindowPosChanging(WPARAM wParam, LPARAM lParam);

    DECLARE_MESSAGE_MAP()

private:
    // Handles the tab control's messages: whatever they lead to, tab, page and focus agree afterwards.
    class TabControl : public CWnd
    {
    public:
        explicit TabControl(CPropertySheet& sheet) noexcept : m_sheet(sheet) {}

    protected:
        LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override;

    private:
        CPropertySheet& m_sheet;
    };

    bool preparePages(std::vector<PROPSHEETPAGEW>& pages);
    void createWindow(std::vector<PROPSHEETPAGEW>& pages, HWND owner);
    void runModalLoop();
    bool goesOn() const;

    HWND currentPage() const;
    void switchTab(int step);
    void afterSwitching();
    void forgetPageWithoutWindow() noexcept;

    CString m_strCaption;
    CWnd* m_pParentWnd = nullptr;
    std::vector<CPropertyPage*> m_pages;
    TabControl m_tabControl{*this};

    const AfxExceptionScope* m_scope = nullptr; // of the running DoModal
    bool m_keepHidden = false;
    bool m_ended = false;
    int m_nModalResult = -1;
};
