// Going from one page of a sheet to another, in every way there is.

#include "SheetTest.h"

#include "mfc/AfxRes.h"

#include <commctrl.h>
#include <thread>

namespace
{
// One way of asking for the other page, from the first to the second.
struct Way
{
    const char* name;
    void (*go)(ScriptedSheet&);
};

void sendTab(ScriptedSheet& sheet, UINT message, WPARAM wParam)
{
    sheet.GetTabControl()->SendMessage(message, wParam);
}

constexpr Way ways[] = {
    {"mouse press", [](ScriptedSheet& s) { s.clickTab(1); }},
    {"TCM_SETCURFOCUS", [](ScriptedSheet& s) { sendTab(s, TCM_SETCURFOCUS, 1); }},
    {"arrow on the tab",
     [](ScriptedSheet& s)
     {
         ::SetFocus(*s.GetTabControl());
         sendTab(s, WM_KEYDOWN, VK_RIGHT);
         sendTab(s, WM_KEYUP, VK_RIGHT);
     }},
    {"Ctrl+Tab", [](ScriptedSheet& s) { s.pressWithControl(::GetFocus(), VK_TAB); }},
    {"Ctrl+Page Down", [](ScriptedSheet& s) { s.pressWithControl(::GetFocus(), VK_NEXT); }},
    // Two pages: the one before the first is the last.
    {"Ctrl+Shift+Tab", [](ScriptedSheet& s) { s.pressWithControl(::GetFocus(), VK_TAB, true); }},
    {"Ctrl+Page Up", [](ScriptedSheet& s) { s.pressWithControl(::GetFocus(), VK_PRIOR); }},
};

class SheetSwitchTest : public SheetTest
{
protected:
    // Runs the sheet for one step, with the events before it taken away.
    void run(const ScriptedSheet::Action& step)
    {
        m_sheet.addStep(
            [&](auto& s)
            {
                s.m_events.clear();
                step(s);
                s.EndDialog(1);
            });
        EXPECT_EQ(m_sheet.DoModal(), 1);
    }

    ScriptedSheet m_sheet;
};

TEST_F(SheetSwitchTest, everyWayTellsSheetAndPagesInOrder)
{
    for (const Way& way : ways)
    {
        SCOPED_TRACE(way.name);
        run(
            [&](auto& s)
            {
                way.go(s);
                EXPECT_EQ(s.m_events,
                          (Events{"sheet changing", "first kill", "sheet changed", "second init", "second active"}));
                EXPECT_EQ(s.m_tabAfterChange, 1);
                EXPECT_EQ(s.shownPage(), &s.m_second);
                EXPECT_EQ(s.highlightedTab(), 1);
                EXPECT_EQ(s.GetActivePage(), &s.m_second);
            });
    }
}

TEST_F(SheetSwitchTest, switchThatSheetRefusesChangesNothingOnScreen)
{
    for (const Way& way : ways)
    {
        SCOPED_TRACE(way.name);
        bool refuse = true;
        m_sheet.m_refuses = [&] { return refuse; };
        run(
            [&](auto& s)
            {
                way.go(s);
                EXPECT_EQ(s.m_events, (Events{"sheet changing"})) << "the page was asked too";
                EXPECT_EQ(s.shownPage(), &s.m_first);
                EXPECT_EQ(s.highlightedTab(), 0);
                refuse = false;
                way.go(s);
                EXPECT_EQ(s.shownPage(), &s.m_second) << "allowed now";
                EXPECT_EQ(s.highlightedTab(), 1);
            });
    }
}

TEST_F(SheetSwitchTest, switchThatPageRefusesChangesNothingOnScreen)
{
    for (const Way& way : ways)
    {
        SCOPED_TRACE(way.name);
        m_sheet.m_first.m_letsGo = FALSE;
        run(
            [&](auto& s)
            {
                const HWND focus = ::GetFocus();
                way.go(s);
                EXPECT_EQ(s.m_events, (Events{"sheet changing", "first kill"}));
                EXPECT_EQ(s.shownPage(), &s.m_first);
                EXPECT_EQ(s.highlightedTab(), 0);
                EXPECT_TRUE(::GetFocus() == focus || ::GetFocus() == *s.GetTabControl());
                s.m_first.m_letsGo = TRUE;
                way.go(s);
                EXPECT_EQ(s.shownPage(), &s.m_second) << "allowed now";
            });
    }
}

TEST_F(SheetSwitchTest, theFocusIsWhereItCanBeSeen)
{
    for (const Way& way : ways)
    {
        SCOPED_TRACE(way.name);
        run(
            [&](auto& s)
            {
                ::SetFocus(s.m_first.item(IDC_RUN));
                way.go(s);
                const HWND focus = ::GetFocus();
                EXPECT_TRUE(focus == s.m_second.item(IDC_TEXT) || focus == *s.GetTabControl());
                EXPECT_TRUE(::IsWindowVisible(focus));
            });
    }
}

TEST_F(SheetSwitchTest, aButtonOfTheSheetKeepsTheFocus)
{
    run(
        [](auto& s)
        {
            ::SetFocus(s.button(IDOK));
            s.pressWithControl(s.button(IDOK), VK_TAB);
            EXPECT_EQ(s.shownPage(), &s.m_second);
            EXPECT_EQ(::GetFocus(), s.button(IDOK));
        });
}

TEST_F(SheetSwitchTest, controlTabLeavesAMultiLineEdit)
{
    run(
        [](auto& s)
        {
            ::SetFocus(s.m_first.item(IDC_NUMBER));
            s.pressWithControl(s.m_first.item(IDC_NUMBER), VK_TAB);
            EXPECT_EQ(s.shownPage(), &s.m_second);
            s.pressWithControl(::GetFocus(), VK_TAB);
            EXPECT_EQ(s.shownPage(), &s.m_first);
            s.pressWithControl(::GetFocus(), VK_TAB, true);
            EXPECT_EQ(s.shownPage(), &s.m_second);
            s.pressWithControl(::GetFocus(), VK_PRIOR);
            EXPECT_EQ(s.shownPage(), &s.m_first);
            EXPECT_EQ(::GetWindowTextLengthW(s.m_first.item(IDC_NUMBER)), 0) << "a tab was typed";
        });
}

// With two pages each way leads to the other one.
TEST_F(SheetSwitchTest, amongThreePagesEachKeyGoesItsWay)
{
    ScriptedPage third("third", m_sheet.m_events, IDD_FIRST_PAGE);
    m_sheet.AddPage(&third);
    run(
        [&](auto& s)
        {
            for (const CPropertyPage* next :
                 std::initializer_list<const CPropertyPage*>{&s.m_second, &third, &s.m_first})
            {
                s.pressWithControl(::GetFocus(), VK_NEXT);
                EXPECT_EQ(s.shownPage(), next);
            }
            for (const CPropertyPage* previous : std::initializer_list<const CPropertyPage*>{&third, &s.m_second})
            {
                s.pressWithControl(::GetFocus(), VK_PRIOR);
                EXPECT_EQ(s.shownPage(), previous);
            }
            s.pressWithControl(::GetFocus(), VK_TAB);
            EXPECT_EQ(s.shownPage(), &third);
            s.pressWithControl(::GetFocus(), VK_TAB, true);
            EXPECT_EQ(s.shownPage(), &s.m_second);
        });
}

TEST_F(SheetSwitchTest, onOnlyPageControlAndTabDoNothing)
{
    Events events;
    CPropertySheet sheet(L"One page");
    ScriptedPage page("only", events, IDD_FIRST_PAGE);
    sheet.AddPage(&page);
    page.m_onRun = [&](auto& p)
    {
        events.clear();
        BYTE keys[256] = {};
        keys[VK_CONTROL] = 0x80;
        ::SetKeyboardState(keys);
        MSG message = {};
        message.hwnd = p.item(IDC_TEXT);
        message.message = WM_KEYDOWN;
        message.wParam = VK_TAB;
        EXPECT_TRUE(sheet.PreTranslateMessage(&message));
        keys[VK_CONTROL] = 0;
        ::SetKeyboardState(keys);
        EXPECT_EQ(events, Events());
        EXPECT_TRUE(p.IsWindowVisible());
        sheet.EndDialog(1);
    };
    page.m_onInit = [](auto& p) { ::PostMessageW(p.item(IDC_RUN), BM_CLICK, 0, 0); };
    EXPECT_EQ(sheet.DoModal(), 1);
}

TEST_F(SheetSwitchTest, keysOfOtherWindowsAreNotTheSheets)
{
    TestWnd owned;
    run(
        [&](auto& s)
        {
            ASSERT_TRUE(owned.create(&s, WS_POPUP | WS_VISIBLE));
            BYTE keys[256] = {};
            keys[VK_CONTROL] = 0x80;
            ::SetKeyboardState(keys);
            MSG message = {};
            message.hwnd = owned;
            message.message = WM_KEYDOWN;
            message.wParam = VK_TAB;
            EXPECT_FALSE(CWnd::WalkPreTranslateTree(s, &message));
            keys[VK_CONTROL] = 0;
            ::SetKeyboardState(keys);
            EXPECT_EQ(s.shownPage(), &s.m_first);
        });
}

TEST_F(SheetSwitchTest, setActivePageSendsNoTabNotification)
{
    run(
        [](auto& s)
        {
            ::SetFocus(s.m_first.item(IDC_TEXT));
            EXPECT_TRUE(s.SetActivePage(&s.m_second));
            EXPECT_EQ(s.m_events, (Events{"first kill", "second init", "second active"}));
            EXPECT_EQ(s.shownPage(), &s.m_second);
            EXPECT_EQ(s.GetActiveIndex(), 1);
            EXPECT_TRUE(::IsWindowVisible(::GetFocus()));
            s.m_second.m_letsGo = FALSE;
            EXPECT_FALSE(s.SetActivePage(0));
            EXPECT_EQ(s.shownPage(), &s.m_second);
            EXPECT_FALSE(s.SetActivePage(2));
            EXPECT_FALSE(s.SetActivePage(-1));
            CPropertyPage stranger(IDD_FIRST_PAGE);
            EXPECT_FALSE(s.SetActivePage(&stranger));
        });
    EXPECT_TRUE(m_sheet.SetActivePage(1));
    EXPECT_EQ(m_sheet.GetActivePage(), &m_sheet.m_second);
    run([](auto& s) { EXPECT_EQ(s.shownPage(), &s.m_second); });
}

// A tab that only looks selected is not a page: the next input corrects it.
TEST_F(SheetSwitchTest, selectingTheTabAloneShowsNoOtherPage)
{
    run(
        [](auto& s)
        {
            sendTab(s, TCM_SETCURSEL, 1);
            EXPECT_EQ(s.m_events, Events());
            EXPECT_EQ(s.shownPage(), &s.m_first);
            EXPECT_EQ(s.highlightedTab(), 1);
        });
}

TEST_F(SheetSwitchTest, valuesAreSavedAndLoadedOnSwitching)
{
    std::vector<BOOL> exchanges;
    m_sheet.m_first.m_exchange = [&](CDataExchange* exchange) { exchanges.push_back(exchange->m_bSaveAndValidate); };
    run(
        [&](auto& s)
        {
            EXPECT_EQ(exchanges, (std::vector<BOOL>{FALSE})) << "loaded once, by the initialisation";
            s.clickTab(1);
            EXPECT_EQ(exchanges, (std::vector<BOOL>{FALSE, TRUE}));
            s.clickTab(0);
            EXPECT_EQ(exchanges, (std::vector<BOOL>{FALSE, TRUE, FALSE}));
        });
    exchanges.clear();
    run([&](auto&) { EXPECT_EQ(exchanges, (std::vector<BOOL>{FALSE})) << "a second start is like the first"; });
}

TEST_F(SheetSwitchTest, anotherThreadCanSwitch)
{
    std::thread other;
    const auto ask = [](HWND tab)
    {
        DWORD_PTR answer = 0;
        EXPECT_NE(::SendMessageTimeoutW(tab, TCM_SETCURFOCUS, 1, 0, SMTO_NORMAL, 60000, &answer), 0);
        EXPECT_NE(::SendMessageTimeoutW(::GetParent(tab), WM_COMMAND, IDOK, 0, SMTO_NORMAL, 60000, &answer), 0);
    };
    m_sheet.addStep([&](auto& s) { other = std::thread(ask, s.GetTabControl()->m_hWnd); });
    EXPECT_EQ(m_sheet.DoModal(), IDOK);
    other.join();
    EXPECT_EQ(m_sheet.m_tabAfterChange, 1);
}
} // namespace
