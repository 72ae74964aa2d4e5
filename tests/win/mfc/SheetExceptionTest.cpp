// What happens when a handler throws while a sheet is shown.

#include "SheetTest.h"

#include <commctrl.h>
#include <stdexcept>

namespace
{
// The owner is enabled again, and neither a window nor an object is left.
class SheetExceptionTest : public SheetTest
{
protected:
    void SetUp() override { ASSERT_TRUE(m_owner.create(nullptr, WS_OVERLAPPEDWINDOW | WS_VISIBLE)); }
    void TearDown() override
    {
        EXPECT_TRUE(m_owner.IsWindowEnabled());
        m_owner.DestroyWindow();
        SheetTest::TearDown();
    }

    void expectThrown(const char* text)
    {
        try
        {
            m_sheet.DoModal();
            ADD_FAILURE() << "nothing was thrown";
        }
        catch (const std::runtime_error& error)
        {
            EXPECT_STREQ(error.what(), text);
        }
        EXPECT_EQ(m_sheet.m_hWnd, nullptr);
        EXPECT_EQ(m_sheet.m_first.m_hWnd, nullptr);
        EXPECT_EQ(m_sheet.m_second.m_hWnd, nullptr);
    }

    static void fail(const char* text) { throw std::runtime_error(text); }

    TestWnd m_owner;
    ScriptedSheet m_sheet{&m_owner};
};

TEST_F(SheetExceptionTest, throwInAPageLeavesDoModal)
{
    bool ranOn = false;
    m_sheet.m_first.m_onRun = [](auto&) { fail("handler"); };
    m_sheet.addStep([](auto& s) { ::SendMessageW(s.m_first.item(IDC_RUN), BM_CLICK, 0, 0); });
    m_sheet.addStep([&](auto&) { ranOn = true; });
    expectThrown("handler");
    EXPECT_FALSE(ranOn) << "the loop went on";
}

TEST_F(SheetExceptionTest, theSheetCanBeShownAgainAfterwards)
{
    m_sheet.addStep([](auto&) { fail("step"); });
    expectThrown("step");
    m_sheet.addStep([](auto& s) { s.EndDialog(8); });
    EXPECT_EQ(m_sheet.DoModal(), 8);
}

TEST_F(SheetExceptionTest, inTheFirstPagesInitialisation)
{
    m_sheet.m_first.m_onInit = [](auto&) { fail("first page"); };
    expectThrown("first page");
    EXPECT_EQ(m_sheet.m_events.front(), "first init");
    for (const std::string& event : m_sheet.m_events)
        EXPECT_NE(event, "sheet init") << "went on with a page that is not initialised";
}

TEST_F(SheetExceptionTest, inTheSecondPagesInitialisation)
{
    m_sheet.m_second.m_onInit = [](auto&) { fail("second page"); };
    m_sheet.addStep([](auto& s) { s.clickTab(1); });
    expectThrown("second page");
}

TEST_F(SheetExceptionTest, inTheSheetsInitialisation)
{
    m_sheet.m_onInit = [](auto&) { fail("sheet"); };
    expectThrown("sheet");
}

TEST_F(SheetExceptionTest, inANotificationOfTheTab)
{
    m_sheet.m_refuses = []() -> bool { throw std::runtime_error("changing"); };
    m_sheet.addStep([](auto& s) { s.clickTab(1); });
    expectThrown("changing");
    EXPECT_EQ(m_sheet.m_events, (Events{"first init", "first active", "sheet init", "sheet changing"}))
        << "the page was switched all the same";
}

TEST_F(SheetExceptionTest, whileAPageSavesItsValues)
{
    m_sheet.m_first.m_exchange = [](CDataExchange* exchange)
    {
        if (exchange->m_bSaveAndValidate)
            fail("exchange");
    };
    m_sheet.addStep([](auto& s) { ::SendMessageW(s.button(IDOK), BM_CLICK, 0, 0); });
    expectThrown("exchange");
    EXPECT_EQ(m_sheet.m_events.back(), "first kill") << "the page was told that all is well";
}

TEST_F(SheetExceptionTest, whilePageIsAppliedOthersAreNot)
{
    m_sheet.m_first.m_onApply = [] { fail("apply"); };
    m_sheet.addStep([](auto& s) { s.clickTab(1); });
    m_sheet.addStep([](auto& s) { ::SendMessageW(s.button(IDOK), BM_CLICK, 0, 0); });
    expectThrown("apply");
    EXPECT_EQ(m_sheet.m_events.back(), "first apply");
}

TEST_F(SheetExceptionTest, inPreTranslation)
{
    m_sheet.m_first.m_preTranslate = [](MSG* message) -> BOOL
    {
        if (message->message == WM_KEYDOWN)
            fail("pre-translation");
        return FALSE;
    };
    m_sheet.addStep([](auto& s) { s.press(s.m_first.item(IDC_TEXT), 'A'); });
    expectThrown("pre-translation");
}

TEST_F(SheetExceptionTest, inModalDialogOfPageItEndsBoth)
{
    bool outerSawIt = false;
    m_sheet.m_first.m_onRun = [&](auto& page)
    {
        ScriptedDlg inner(IDD_PLAIN, &page);
        inner.addStep([](auto&) { fail("inner"); });
        try
        {
            inner.DoModal();
        }
        catch (const std::runtime_error&)
        {
            outerSawIt = true;
            EXPECT_TRUE(m_sheet.IsWindowEnabled());
            throw;
        }
    };
    m_sheet.addStep([](auto& s) { ::SendMessageW(s.m_first.item(IDC_RUN), BM_CLICK, 0, 0); });
    expectThrown("inner");
    EXPECT_TRUE(outerSawIt);
}

TEST_F(SheetExceptionTest, whileTheWindowIsDestroyed)
{
    m_sheet.m_destroyWindow = []() -> BOOL { throw std::runtime_error("destroy"); };
    m_sheet.addStep([](auto& s) { s.EndDialog(1); });
    expectThrown("destroy");
}
} // namespace
