#pragma once

#include "mfc/CPropertyPage.h"
#include "mfc/CWnd.h"

#include <prsht.h>
#include <vector>

class AfxExceptionScope;

// A window with tabs, each showing one page, and with OK and Cancel. It is the system's property sheet, run by a
// message loop of our own, so that the pages can see messages before the keyboard handling takes them.
class CPropertySheet : public CWnd
{
public:
    explicit CPropertySheet(LPCWSTR caption, CWnd* pParentWnd = nullptr, UINT selectPage = 0);
    explicit CPropertySheet(UINT captionId, CWnd* pParentWnd = nullptr, UINT selectPage = 0);
    ~CPropertySheet() override;

    // Flags for the system, such as PSH_NOAPPLYNOW; pages, caption and owner are filled in when the sheet is started.
    PROPSHEETHEADERW m_psh = {};

    // Appends a page, which stays its maker's. While the sheet is shown, and for null, it throws the invalid-argument
    // exception.
    void AddPage(CPropertyPage* pPage);
    int GetPageCount() const noexcept { return static_cast<int>(m_pages.size()); }
    // The invalid-argument exception for any index that is not a page's.
    CPropertyPage* GetPage(int index) const;
    // -1 when it is none of this sheet's.
    int GetPageIndex(const CPropertyPage* pPage) const noexcept;

    // The tab that is selected; without a window the page that is to be shown first.
    int GetActiveIndex() const;
    CPropertyPage* GetActivePage() const { return GetPage(GetActiveIndex()); }
    // FALSE when there is no such page, or when the page shown does not let go or the other one refuses.
    BOOL SetActivePage(int index);
    BOOL SetActivePage(const CPropertyPage* pPage) { return SetActivePage(GetPageIndex(pPage)); }

    // The sheet's tab control, with the ID AFX_IDC_TAB_CONTROL; null without a window.
    //
    // A handler for one of its notifications hides it from the system's procedure, and without that no page is ever
    // switched: call Default() in it. After TCN_SELCHANGING the answer of Default() is the result, unless the handler
    // refuses by itself.
    CWnd* GetTabControl() const;

    // Shows the sheet and runs a message loop until it is confirmed (IDOK), cancelled (IDCANCEL) or ended by EndDialog.
    // -1 when it or its first page cannot be created, when its window is destroyed otherwise, or when the program is to
    // quit. What a handler of any window throws meanwhile ends the loop and is thrown on, after the owner is enabled
    // again and the window gone.
    virtual INT_PTR DoModal();

    // Ends DoModal with this result, without asking the pages; from OnInitDialog the sheet never shows.
    void EndDialog(int result);

    // Presses one of the sheet's buttons, PSBTN_OK to PSBTN_HELP.
    BOOL PressButton(int button);

    // Run once the first page is there and before the sheet shows; may be called again at any time while it is shown.
    // TRUE: the system gives the focus to a control.
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
    // The tab control, watched: whatever came of it, tab, page and focus agree afterwards.
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
    void destroyModalWindow(AfxExceptionScope& scope);

    HWND currentPage() const;
    void switchTab(int step);
    void afterSwitching();
    void forgetPageWithoutWindow() noexcept;

    CString m_strCaption;
    CWnd* m_pParentWnd = nullptr;
    std::vector<CPropertyPage*> m_pages;
    TabControl m_tabControl{*this};

    const AfxExceptionScope* m_scope = nullptr; // of the DoModal that runs
    bool m_keepHidden = false;
    bool m_ended = false;
    int m_nModalResult = -1;
};
