#include "SheetTest.h"

#include "mfc/AfxExceptionScope.h"
#include "mfc/AfxModuleState.h"
#include "mfc/AfxRes.h"
#include "mfc/CInvalidArgException.h"
#include "tests/support/processcounts/ProcessCounts.h"

#include <commctrl.h>
#include <stdexcept>
#include <thread>

namespace
{
using CPropertySheetTest = SheetTest;

TEST_F(CPropertySheetTest, okAndCancelAnswerAndTellThePages)
{
    ScriptedSheet sheet;
    sheet.addStep([](auto& s) { ::SendMessageW(s.button(IDOK), BM_CLICK, 0, 0); });
    EXPECT_EQ(sheet.DoModal(), IDOK);
    EXPECT_EQ(sheet.m_hWnd, nullptr);
    EXPECT_EQ(sheet.m_first.m_hWnd, nullptr);
    EXPECT_EQ(sheet.m_events,
              (Events{"first init", "first active", "sheet init", "first kill", "first apply", "first ok"}));

    sheet.m_events.clear();
    sheet.addStep([](auto& s) { ::SendMessageW(s.button(IDCANCEL), BM_CLICK, 0, 0); });
    EXPECT_EQ(sheet.DoModal(), IDCANCEL);
    EXPECT_EQ(sheet.m_events, (Events{"first init", "first active", "sheet init", "first query cancel", "first reset",
                                      "first cancel"}));
}

TEST_F(CPropertySheetTest, everyPageThatWasSeenIsTold)
{
    ScriptedSheet sheet;
    sheet.addStep(
        [](auto& s)
        {
            s.clickTab(1);
            s.m_events.clear();
            ::PostMessageW(s, WM_COMMAND, IDOK, 0);
        });
    EXPECT_EQ(sheet.DoModal(), IDOK);
    EXPECT_EQ(sheet.m_events, (Events{"second kill", "first apply", "first ok", "second apply", "second ok"}));
}

TEST_F(CPropertySheetTest, pageThatRefusesKeepsTheSheetOpen)
{
    ScriptedSheet sheet;
    sheet.m_first.m_letsGo = FALSE;
    sheet.m_first.m_mayCancel = FALSE;
    sheet.addStep([](auto& s) { ::SendMessageW(s.button(IDOK), BM_CLICK, 0, 0); });
    sheet.addStep([](auto& s) { ::SendMessageW(s.button(IDCANCEL), BM_CLICK, 0, 0); });
    sheet.addStep(
        [](auto& s)
        {
            EXPECT_EQ(s.m_events,
                      (Events{"first init", "first active", "sheet init", "first kill", "first query cancel"}));
            s.m_first.m_letsGo = TRUE;
            s.m_first.m_applies = FALSE;
            ::SendMessageW(s.button(IDOK), BM_CLICK, 0, 0);
        });
    sheet.addStep(
        [](auto& s)
        {
            EXPECT_TRUE(s.IsWindowVisible());
            s.m_first.m_applies = TRUE;
            ::SendMessageW(s.button(IDOK), BM_CLICK, 0, 0);
        });
    EXPECT_EQ(sheet.DoModal(), IDOK);
}

TEST_F(CPropertySheetTest, failedExchangeKeepsTheSheetOpen)
{
    ScriptedSheet sheet;
    bool fails = true;
    sheet.m_first.m_exchange = [&](CDataExchange* exchange)
    {
        exchange->PrepareEditCtrl(IDC_TEXT);
        if (exchange->m_bSaveAndValidate && fails)
            exchange->Fail();
    };
    sheet.addStep(
        [](auto& s)
        {
            ::SetFocus(s.button(IDOK));
            ::SendMessageW(s.button(IDOK), BM_CLICK, 0, 0);
        });
    sheet.addStep(
        [&](auto& s)
        {
            EXPECT_EQ(::GetFocus(), s.m_first.item(IDC_TEXT));
            EXPECT_EQ(s.m_events.back(), "first kill");
            fails = false;
            ::SendMessageW(s.button(IDOK), BM_CLICK, 0, 0);
        });
    EXPECT_EQ(sheet.DoModal(), IDOK);
}

TEST_F(CPropertySheetTest, theSheetIsInvisibleUntilItIsInitialised)
{
    ScriptedSheet sheet;
    bool firstSeen = true;
    sheet.m_first.m_onInit = [&](auto& page) { firstSeen = page.GetParent()->IsWindowVisible() != FALSE; };
    sheet.m_onInit = [](auto& s)
    {
        EXPECT_FALSE(s.IsWindowVisible());
        EXPECT_NE(s.m_first.m_hWnd, nullptr);
        EXPECT_EQ(s.m_second.m_hWnd, nullptr) << "made before it is needed";
    };
    sheet.addStep(
        [](auto& s)
        {
            EXPECT_TRUE(s.IsWindowVisible());
            EXPECT_EQ(s.shownPage(), &s.m_first);
            EXPECT_EQ(::GetFocus(), s.m_first.item(IDC_TEXT));
            s.EndDialog(7);
        });
    EXPECT_EQ(sheet.DoModal(), 7);
    EXPECT_FALSE(firstSeen);
}

TEST_F(CPropertySheetTest, anInitialisationThatSetsTheFocusKeepsIt)
{
    ScriptedSheet sheet;
    sheet.m_initResult = FALSE;
    sheet.m_onInit = [](auto& s) { ::SetFocus(s.m_first.item(IDC_RUN)); };
    sheet.addStep(
        [](auto& s)
        {
            EXPECT_EQ(::GetFocus(), s.m_first.item(IDC_RUN));
            s.EndDialog(1);
        });
    EXPECT_EQ(sheet.DoModal(), 1);
}

TEST_F(CPropertySheetTest, standsInTheMiddleOfItsOwner)
{
    TestWnd owner;
    ASSERT_TRUE(owner.create(nullptr, WS_OVERLAPPEDWINDOW | WS_VISIBLE));
    owner.MoveWindow(100, 50, 600, 500);
    ScriptedSheet sheet(&owner);
    sheet.addStep(
        [](auto& s)
        {
            RECT place = {};
            s.GetWindowRect(&place);
            EXPECT_NEAR((place.left + place.right) / 2, 400, 1);
            EXPECT_NEAR((place.top + place.bottom) / 2, 300, 1);
            s.EndDialog(1);
        });
    EXPECT_EQ(sheet.DoModal(), 1);
    owner.DestroyWindow();
}

TEST_F(CPropertySheetTest, initialisationCanBeRunAgain)
{
    ScriptedSheet sheet;
    sheet.addStep(
        [](auto& s)
        {
            s.clickTab(1);
            const HWND second = s.m_second;
            s.SetWindowPos(nullptr, 33, 44, 0, 0, SWP_NOSIZE | SWP_NOZORDER);
            EXPECT_TRUE(s.OnInitDialog());
            EXPECT_EQ(s.GetTabControl()->SendMessage(TCM_GETITEMCOUNT), 2);
            EXPECT_EQ(s.m_second.m_hWnd, second);
            EXPECT_EQ(s.shownPage(), &s.m_second);
            RECT place = {};
            s.GetWindowRect(&place);
            EXPECT_EQ(place.left, 33) << "moved by itself";
            s.EndDialog(1);
        });
    EXPECT_EQ(sheet.DoModal(), 1);
}

TEST_F(CPropertySheetTest, hasItsCaptionTabsAndNoApplyButton)
{
    ScriptedSheet sheet;
    sheet.addStep(
        [](auto& s)
        {
            CString caption;
            s.GetWindowText(caption);
            EXPECT_EQ(caption, L"Caption");
            EXPECT_EQ(s.GetTabControl()->GetDlgCtrlID(), AFX_IDC_TAB_CONTROL);
            for (const auto& [index, expected] : {std::pair{0, L"Grüße, 世界"}, std::pair{1, L"Second"}})
            {
                WCHAR text[40] = {};
                TCITEMW item = {};
                item.mask = TCIF_TEXT;
                item.pszText = text;
                item.cchTextMax = 40;
                s.GetTabControl()->SendMessage(TCM_GETITEMW, static_cast<WPARAM>(index),
                                               reinterpret_cast<LPARAM>(&item));
                EXPECT_EQ(CString(text), expected);
            }
            constexpr int apply = 12321;
            EXPECT_FALSE(::IsWindowVisible(s.button(apply)));
            EXPECT_FALSE(::IsWindowVisible(s.button(IDHELP)));
            EXPECT_FALSE(s.GetExStyle() & WS_EX_CONTEXTHELP) << "a question mark that answers nothing";
            s.EndDialog(1);
        });
    EXPECT_EQ(sheet.DoModal(), 1);
}

TEST_F(CPropertySheetTest, anotherPageCanBeTheFirst)
{
    for (const UINT start : {1U, 9U})
    {
        ScriptedSheet sheet(nullptr, start);
        sheet.addStep(
            [](auto& s)
            {
                EXPECT_EQ(s.shownPage(), &s.m_second);
                EXPECT_EQ(s.m_first.m_hWnd, nullptr);
                s.EndDialog(1);
            });
        EXPECT_EQ(sheet.DoModal(), 1) << start;
    }
}

TEST_F(CPropertySheetTest, pagesAreFoundByIndexOrRefused)
{
    ScriptedSheet sheet;
    EXPECT_EQ(sheet.GetPageCount(), 2);
    EXPECT_EQ(sheet.GetPage(1), &sheet.m_second);
    EXPECT_EQ(sheet.GetPageIndex(&sheet.m_second), 1);
    EXPECT_EQ(sheet.GetPageIndex(nullptr), -1);
    EXPECT_THROW(sheet.GetPage(-1), CInvalidArgException*);
    EXPECT_THROW(sheet.GetPage(2), CInvalidArgException*);
    EXPECT_THROW(sheet.AddPage(nullptr), CInvalidArgException*);
    EXPECT_EQ(sheet.GetPageCount(), 2);
    EXPECT_EQ(sheet.GetTabControl(), nullptr);
    CPropertySheet empty(IDS_GREETING);
    EXPECT_THROW(empty.GetActivePage(), CInvalidArgException*);
}

TEST_F(CPropertySheetTest, endDialogInOnInitDialogShowsNothing)
{
    ScriptedSheet sheet;
    bool stepRan = false;
    sheet.addStep([&](auto&) { stepRan = true; });
    sheet.m_onInit = [](auto& s) { s.EndDialog(42); };
    bool wasVisible = true;
    sheet.m_destroyWindow = [&]
    {
        wasVisible = sheet.IsWindowVisible() != FALSE;
        return sheet.CPropertySheet::DestroyWindow();
    };
    EXPECT_EQ(sheet.DoModal(), 42);
    EXPECT_FALSE(stepRan) << "a message was dispatched";
    EXPECT_FALSE(wasVisible);
}

TEST_F(CPropertySheetTest, aPageEndsTheSheetAtOnce)
{
    ScriptedSheet sheet;
    sheet.addStep([](auto& s) { s.m_first.EndDialog(IDCANCEL); });
    EXPECT_EQ(sheet.DoModal(), IDCANCEL);
    EXPECT_EQ(sheet.m_events, (Events{"first init", "first active", "sheet init"})) << "a page was asked";
}

TEST_F(CPropertySheetTest, endDialogWithoutASheetDoesNothing)
{
    ScriptedSheet sheet;
    sheet.EndDialog(5);
    sheet.addStep([](auto& s) { s.PressButton(PSBTN_OK); });
    EXPECT_EQ(sheet.DoModal(), IDOK);
}

TEST_F(CPropertySheetTest, isNotShownTwiceAtATime)
{
    ScriptedSheet sheet;
    sheet.addStep(
        [](auto& s)
        {
            EXPECT_EQ(s.DoModal(), -1);
            CPropertyPage late(IDD_FIRST_PAGE);
            EXPECT_THROW(s.AddPage(&late), CInvalidArgException*);
            EXPECT_EQ(s.shownPage(), &s.m_first) << "the refused call touched the window";
            s.EndDialog(5);
        });
    EXPECT_EQ(sheet.DoModal(), 5);
}

TEST_F(CPropertySheetTest, failedCreationReturnsMinusOne)
{
    TestWnd owner;
    ASSERT_TRUE(owner.create(nullptr, WS_OVERLAPPEDWINDOW | WS_VISIBLE));
    {
        CPropertySheet empty(L"No page", &owner);
        EXPECT_EQ(empty.DoModal(), -1);
    }
    for (const UINT id : {IDD_MISSING, IDD_BROKEN})
    {
        CPropertySheet sheet(L"One page", &owner);
        CPropertyPage page(id);
        sheet.AddPage(&page);
        EXPECT_EQ(sheet.DoModal(), -1) << id;
        EXPECT_EQ(sheet.m_hWnd, nullptr) << id;
        EXPECT_TRUE(owner.IsWindowEnabled()) << id;
    }
    // A page that could not be made must not take the next window for its own.
    TestWnd next;
    ASSERT_TRUE(next.create());
    EXPECT_EQ(CWnd::FromHandlePermanent(next), &next);
    next.DestroyWindow();
    owner.DestroyWindow();
}

TEST_F(CPropertySheetTest, abandonedPageTakesNoOtherWindow)
{
    ScriptedSheet sheet;
    sheet.addStep(
        [](auto& s)
        {
            // As it does before it creates the window, which then fails.
            const PROPSHEETPAGEW& page = s.m_second.m_psp;
            EXPECT_EQ(page.pfnCallback(nullptr, PSPCB_CREATE, const_cast<PROPSHEETPAGEW*>(&page)), 1U);
            EXPECT_EQ(AfxGetThreadState().m_pWndInit, &s.m_second);
            s.SendMessage(WM_NULL);
            EXPECT_EQ(AfxGetThreadState().m_pWndInit, nullptr);
            s.EndDialog(1);
        });
    EXPECT_EQ(sheet.DoModal(), 1);
}

TEST_F(CPropertySheetTest, destructionGivesMinusOneAndTheOwnerBack)
{
    TestWnd owner;
    ASSERT_TRUE(owner.create(nullptr, WS_OVERLAPPEDWINDOW | WS_VISIBLE));
    ScriptedSheet early(&owner);
    early.m_onInit = [](auto& s) { s.CPropertySheet::DestroyWindow(); };
    EXPECT_EQ(early.DoModal(), -1);
    ScriptedSheet late(&owner);
    late.addStep([](auto& s) { s.CPropertySheet::DestroyWindow(); });
    EXPECT_EQ(late.DoModal(), -1);
    EXPECT_TRUE(owner.IsWindowEnabled());
    owner.DestroyWindow();
}

TEST_F(CPropertySheetTest, overrideThatKeepsWindowDoesNotKeepIt)
{
    ScriptedSheet sheet;
    sheet.m_destroyWindow = [] { return FALSE; };
    sheet.addStep([](auto& s) { s.EndDialog(1); });
    EXPECT_EQ(sheet.DoModal(), 1);
    EXPECT_EQ(sheet.m_hWnd, nullptr);
}

TEST_F(CPropertySheetTest, theOwnerIsEnabledBeforeTheWindowGoes)
{
    TestWnd owner;
    ASSERT_TRUE(owner.create(nullptr, WS_OVERLAPPEDWINDOW | WS_VISIBLE));
    ScriptedSheet sheet(&owner);
    bool enabledBefore = false;
    sheet.m_destroyWindow = [&]
    {
        enabledBefore = owner.IsWindowEnabled() != FALSE;
        return sheet.CPropertySheet::DestroyWindow();
    };
    sheet.addStep(
        [&](auto& s)
        {
            EXPECT_FALSE(owner.IsWindowEnabled());
            EXPECT_EQ(s.GetParent(), &owner);
            s.EndDialog(1);
        });
    EXPECT_EQ(sheet.DoModal(), 1);
    EXPECT_TRUE(enabledBefore);
    EXPECT_TRUE(owner.IsWindowEnabled());
    EXPECT_EQ(::GetActiveWindow(), owner.m_hWnd);
    owner.DestroyWindow();
}

TEST_F(CPropertySheetTest, ownerIsActiveAfterwardsWhateverWasActiveBefore)
{
    TestWnd owner;
    TestWnd other;
    ASSERT_TRUE(owner.create(nullptr, WS_OVERLAPPEDWINDOW | WS_VISIBLE));
    ASSERT_TRUE(other.create(nullptr, WS_OVERLAPPEDWINDOW | WS_VISIBLE));
    ScriptedSheet sheet(&owner);
    sheet.addStep(
        [&](auto& s)
        {
            other.SetActiveWindow();
            s.EndDialog(1);
        });
    EXPECT_EQ(sheet.DoModal(), 1);
    EXPECT_EQ(::GetActiveWindow(), owner.m_hWnd);
    other.DestroyWindow();
    owner.DestroyWindow();
}

// Shows a sheet, whose owner has to be the host.
void expectOwnedBy(TestWnd& host, CWnd* parent)
{
    ScriptedSheet sheet(parent);
    sheet.addStep(
        [&](auto& s)
        {
            EXPECT_FALSE(host.IsWindowEnabled());
            EXPECT_EQ(s.GetParent(), &host);
            s.EndDialog(1);
        });
    EXPECT_EQ(sheet.DoModal(), 1);
    EXPECT_TRUE(host.IsWindowEnabled());
}

TEST_F(CPropertySheetTest, parentlessSheetBelongsToTheTopmostWindow)
{
    TestWnd host;
    ASSERT_TRUE(host.create(nullptr, WS_OVERLAPPEDWINDOW | WS_VISIBLE));
    expectOwnedBy(host, nullptr);
    // Also when the thread has no active window.
    ::SetActiveWindow(::GetDesktopWindow());
    expectOwnedBy(host, nullptr);
    host.DestroyWindow();
}

TEST_F(CPropertySheetTest, childAsParentMeansItsTopLevelWindow)
{
    TestWnd host;
    ASSERT_TRUE(host.create(nullptr, WS_OVERLAPPEDWINDOW | WS_VISIBLE));
    TestWnd child;
    ASSERT_TRUE(child.create(&host, WS_CHILD | WS_VISIBLE));
    expectOwnedBy(host, &child);
    host.DestroyWindow();
}

// Sends from another thread: that is handled inside GetMessage, and nothing is left in the queue.
void sendFromOutside(HWND sheet, UINT message, WPARAM wParam)
{
    DWORD_PTR answer = 0;
    EXPECT_NE(::SendMessageTimeoutW(sheet, message, wParam, 0, SMTO_NORMAL, 60000, &answer), 0);
}

struct Ending
{
    UINT message;
    WPARAM command;
    INT_PTR result;
};
constexpr Ending endings[] = {
    {WM_COMMAND, IDOK, IDOK},          {WM_COMMAND, IDCANCEL, IDCANCEL},          {WM_CLOSE, 0, IDCANCEL},
    {PSM_PRESSBUTTON, PSBTN_OK, IDOK}, {PSM_PRESSBUTTON, PSBTN_CANCEL, IDCANCEL},
};

// A blinking caret would wake the loop by chance, so a button has the focus.
TEST_F(CPropertySheetTest, whatAnotherThreadSendsEndsTheLoop)
{
    for (const Ending& each : endings)
    {
        ScriptedSheet sheet;
        std::thread other;
        sheet.addStep(
            [&](auto& s)
            {
                ::SetFocus(s.button(IDOK));
                other = std::thread(&sendFromOutside, s.m_hWnd, each.message, each.command);
            });
        EXPECT_EQ(sheet.DoModal(), each.result) << each.message << ' ' << each.command;
        other.join();
    }
}

TEST_F(CPropertySheetTest, whatIsPostedEndsTheLoop)
{
    for (const Ending& each : endings)
    {
        ScriptedSheet sheet;
        sheet.addStep(
            [&](auto& s)
            {
                ::SetFocus(s.button(IDOK));
                s.PostMessage(each.message, each.command);
            });
        EXPECT_EQ(sheet.DoModal(), each.result) << each.message << ' ' << each.command;
    }
}

TEST_F(CPropertySheetTest, everyEndingWakesTheLoop)
{
    const auto threadMessages = reinterpret_cast<HWND>(std::intptr_t{-1});
    const auto isWoken = [&](UINT remove)
    {
        MSG message = {};
        return ::PeekMessageW(&message, threadMessages, WM_NULL, WM_NULL, remove) != FALSE;
    };
    for (const Ending& each : endings)
    {
        ScriptedSheet sheet;
        bool woken = false;
        sheet.addStep(
            [&](auto& s)
            {
                while (isWoken(PM_REMOVE))
                    continue;
                s.SendMessage(each.message, each.command);
                woken = isWoken(PM_NOREMOVE);
            });
        EXPECT_EQ(sheet.DoModal(), each.result);
        EXPECT_TRUE(woken) << each.message << ' ' << each.command;
    }
    ScriptedSheet sheet;
    sheet.addStep(
        [&](auto& s)
        {
            while (isWoken(PM_REMOVE))
                continue;
            s.EndDialog(3);
            EXPECT_TRUE(isWoken(PM_NOREMOVE));
        });
    EXPECT_EQ(sheet.DoModal(), 3);
}

TEST_F(CPropertySheetTest, quitEndsTheLoopAndIsPassedOn)
{
    ScriptedSheet sheet;
    sheet.addStep([](auto&) { ::PostQuitMessage(77); });
    EXPECT_EQ(sheet.DoModal(), -1);
    MSG message = {};
    ASSERT_TRUE(::PeekMessageW(&message, nullptr, WM_QUIT, WM_QUIT, PM_REMOVE));
    EXPECT_EQ(message.wParam, 77U);
}

TEST_F(CPropertySheetTest, twentyOpeningsLeaveNothingBehind)
{
    const auto open = []
    {
        ScriptedSheet sheet;
        sheet.addStep([](auto& s) { s.clickTab(1); });
        sheet.addStep([](auto& s) { ::SendMessageW(s.button(IDOK), BM_CLICK, 0, 0); });
        EXPECT_EQ(sheet.DoModal(), IDOK);
        pump();
    };
    open();
    const std::size_t objects = gdiObjects();
    const HBRUSH brush = ::CreateSolidBrush(RGB(1, 2, 3));
    EXPECT_EQ(gdiObjects(), objects + 1) << "the count sees nothing";
    ::DeleteObject(brush);
    const std::size_t handles = openSystemHandles();
    for (int i = 0; i < 20; ++i)
    {
        open();
        ASSERT_EQ(AfxPermanentWindowCount(), 0U);
        ASSERT_EQ(windowsOfThread(), 0);
    }
    EXPECT_EQ(gdiObjects(), objects);
    EXPECT_EQ(openSystemHandles(), handles);
}
} // namespace
