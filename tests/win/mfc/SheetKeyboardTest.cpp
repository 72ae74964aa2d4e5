// Keys in a sheet, as they come out of the queue.

#include "SheetTest.h"

namespace
{
class SheetKeyboardTest : public SheetTest
{
protected:
    // A key posted to the focused control. The next step is before it in the queue, so its effect is seen in the one
    // after that.
    static ScriptedSheet::Action pressInFocus(WPARAM key)
    {
        return [key](auto& s) { s.press(::GetFocus(), key); };
    }

    // A step for what was posted to happen in.
    static void wait(ScriptedSheet&) {}

    ScriptedSheet m_sheet;
};

TEST_F(SheetKeyboardTest, returnIsOkAndEscapeIsCancel)
{
    for (const auto& [key, result] : {std::pair{VK_RETURN, IDOK}, std::pair{VK_ESCAPE, IDCANCEL}})
    {
        m_sheet.addStep(pressInFocus(static_cast<WPARAM>(key)));
        EXPECT_EQ(m_sheet.DoModal(), result);
    }
    EXPECT_EQ(m_sheet.m_events.back(), "first cancel");
}

TEST_F(SheetKeyboardTest, returnPressesTheButtonWithTheFocus)
{
    m_sheet.addStep(
        [](auto& s)
        {
            // As Tab does it, which also draws the frame of the default button.
            s.SendMessage(WM_NEXTDLGCTL, reinterpret_cast<WPARAM>(s.button(IDCANCEL)), TRUE);
            s.press(s.button(IDCANCEL), VK_RETURN);
        });
    EXPECT_EQ(m_sheet.DoModal(), IDCANCEL);
}

// An edit of many lines that wants Return takes Escape too, so a page that wants it everywhere looks at it first.
TEST_F(SheetKeyboardTest, pageSeesEscapeBeforeKeyboardHandlingTakesIt)
{
    for (const int control : {IDC_TEXT, IDC_NUMBER, IDC_RUN})
    {
        m_sheet.m_events.clear();
        m_sheet.m_first.m_preTranslate = [&](MSG* message) -> BOOL
        {
            if (message->message != WM_KEYDOWN || message->wParam != VK_ESCAPE)
                return FALSE;
            EXPECT_EQ(message->hwnd, m_sheet.m_first.item(control));
            m_sheet.EndDialog(IDCANCEL);
            return TRUE;
        };
        m_sheet.addStep(
            [&](auto& s)
            {
                ::SetFocus(s.m_first.item(control));
                s.press(s.m_first.item(control), VK_ESCAPE);
            });
        EXPECT_EQ(m_sheet.DoModal(), IDCANCEL) << control;
        EXPECT_EQ(m_sheet.m_events, (Events{"first init", "first active", "sheet init"})) << "the pages were asked";
    }
}

TEST_F(SheetKeyboardTest, pageSeesNoKeysOfSheetsButtons)
{
    bool seen = false;
    m_sheet.m_first.m_preTranslate = [&](MSG* message) -> BOOL
    {
        seen = seen || message->message == WM_KEYDOWN;
        return FALSE;
    };
    m_sheet.addStep(
        [](auto& s)
        {
            ::SetFocus(s.button(IDOK));
            s.press(s.button(IDOK), VK_ESCAPE);
        });
    EXPECT_EQ(m_sheet.DoModal(), IDCANCEL);
    EXPECT_FALSE(seen);
}

TEST_F(SheetKeyboardTest, tabGoesThroughADialogInsideThePage)
{
    CDialog inner;
    std::vector<HWND> visited;
    m_sheet.m_second.m_onInit = [&](auto& page)
    {
        ASSERT_TRUE(inner.Create(IDD_PAGE, &page));
        // Last among its siblings when created; it belongs after the frame that it is shown in.
        inner.SetWindowPos(page.item(IDC_FRAME), 0, 0, 0, 0, SWP_NOMOVE | SWP_NOSIZE);
    };
    m_sheet.addStep(
        [&](auto& s)
        {
            s.clickTab(1);
            ::SetFocus(s.m_second.item(IDC_TEXT));
        });
    constexpr int stops = 6; // the text, the inner dialog's text, Run, OK, Cancel, the tabs
    for (int i = 0; i < stops; ++i)
    {
        m_sheet.addStep(
            [&](auto& s)
            {
                visited.push_back(::GetFocus());
                s.press(::GetFocus(), VK_TAB);
            });
        m_sheet.addStep(wait);
    }
    m_sheet.addStep(
        [&](auto& s)
        {
            EXPECT_EQ(visited, (std::vector<HWND>{s.m_second.item(IDC_TEXT), ::GetDlgItem(inner, IDC_PAGE_EDIT),
                                                  s.m_second.item(IDC_RUN), s.button(IDOK), s.button(IDCANCEL),
                                                  s.GetTabControl()->m_hWnd}));
            EXPECT_EQ(::GetFocus(), s.m_second.item(IDC_TEXT)) << "does not come round";
            s.EndDialog(1);
        });
    EXPECT_EQ(m_sheet.DoModal(), 1);
}

TEST_F(SheetKeyboardTest, accessKeysOfThePageWork)
{
    int runs = 0;
    m_sheet.m_first.m_onRun = [&](auto&) { ++runs; };
    m_sheet.addStep(
        [](auto& s)
        {
            constexpr LPARAM altIsDown = 0x20000001;
            ::PostMessageW(s.m_first.item(IDC_TEXT), WM_SYSCHAR, 'r', altIsDown);
        });
    m_sheet.addStep(wait);
    m_sheet.addStep(
        [&](auto& s)
        {
            EXPECT_EQ(runs, 1);
            s.EndDialog(1);
        });
    EXPECT_EQ(m_sheet.DoModal(), 1);
}
} // namespace
