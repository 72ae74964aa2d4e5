#pragma once

#include "DialogTest.h"

#include "mfc/CPropertySheet.h"

#include <string>
#include <vector>

// A test with a property sheet of two pages, made of the templates IDD_FIRST_PAGE and IDD_SECOND_PAGE.
class SheetTest : public DialogTest
{
};

// What happened, in order.
using Events = std::vector<std::string>;

// A page that records its calls and returns what a test sets.
class ScriptedPage : public CPropertyPage
{
public:
    ScriptedPage(std::string name, Events& events, UINT templateId, UINT captionId = 0)
        : CPropertyPage(templateId, captionId), m_name(std::move(name)), m_events(events)
    {
    }

    using Action = std::function<void(ScriptedPage&)>;
    Action m_onInit;
    Action m_onRun; // click on IDC_RUN
    std::function<BOOL(MSG*)> m_preTranslate;
    std::function<void()> m_onApply;
    std::function<void(CDataExchange*)> m_exchange;
    BOOL m_letsGo = TRUE;
    BOOL m_applies = TRUE;
    BOOL m_mayCancel = TRUE;

    // The window under the given control, as a person sees it.
    HWND item(int id) const { return ::GetDlgItem(m_hWnd, id); }

    BOOL OnInitDialog() override;
    BOOL OnSetActive() override;
    BOOL OnKillActive() override;
    BOOL OnApply() override;
    BOOL OnQueryCancel() override;
    void OnReset() override;
    BOOL PreTranslateMessage(MSG* pMsg) override;

protected:
    void OnOK() override;
    void OnCancel() override;
    void DoDataExchange(CDataExchange* pDX) override;
    afx_msg void onRun();
    DECLARE_MESSAGE_MAP()

private:
    void note(const char* event) { m_events.push_back(m_name + " " + event); }

    std::string m_name;
    Events& m_events;
};

// A sheet scripted by a test: once while it is initialised, then step by step, each step from a posted message and so
// from the innermost loop that runs.
class ScriptedSheet : public CPropertySheet
{
public:
    explicit ScriptedSheet(CWnd* pParent = nullptr, UINT selectPage = 0);

    using Action = std::function<void(ScriptedSheet&)>;
    Action m_onInit;
    BOOL m_initResult = TRUE;
    std::function<bool()> m_refuses; // TCN_SELCHANGING, before the pages are asked
    std::function<BOOL()> m_destroyWindow;

    Events m_events;
    ScriptedPage m_first{"first", m_events, IDD_FIRST_PAGE, IDS_GREETING};
    ScriptedPage m_second{"second", m_events, IDD_SECOND_PAGE};
    int m_tabAfterChange = -1; // as TCN_SELCHANGE found it

    void addStep(Action step) { m_steps.add(std::move(step), *this); }

    // --- What a person does ---
    void clickTab(int index);
    void press(HWND control, WPARAM key);
    void pressWithControl(HWND control, WPARAM key, bool withShift = false);
    HWND button(int id) const { return ::GetDlgItem(m_hWnd, id); }

    // --- What a person sees ---
    int highlightedTab() const;
    CPropertyPage* shownPage() const;

    BOOL OnInitDialog() override;
    BOOL DestroyWindow() override;
    using CPropertySheet::Default;

protected:
    afx_msg void onTabChanging(NMHDR* header, LRESULT* result);
    afx_msg void onTabChanged(NMHDR* header, LRESULT* result);
    afx_msg LRESULT onStep(WPARAM wParam, LPARAM lParam);
    DECLARE_MESSAGE_MAP()

private:
    Steps<ScriptedSheet> m_steps;
};
