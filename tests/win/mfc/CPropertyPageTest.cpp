#include "SheetTest.h"

#include "mfc/AfxModuleState.h"

namespace
{
using CPropertyPageTest = SheetTest;

TEST_F(CPropertyPageTest, neitherOkNorCancelEndsAnything)
{
    ScriptedSheet sheet;
    sheet.addStep(
        [](auto& s)
        {
            s.m_events.clear();
            s.m_first.SendMessage(WM_COMMAND, IDOK);
            s.m_first.SendMessage(WM_COMMAND, IDCANCEL);
        });
    sheet.addStep(
        [](auto& s)
        {
            EXPECT_EQ(s.m_events, (Events{"first ok", "first cancel"}));
            EXPECT_TRUE(s.m_first.IsWindowVisible());
            s.EndDialog(9);
        });
    EXPECT_EQ(sheet.DoModal(), 9);
}

TEST_F(CPropertyPageTest, endDialogWithoutASheetDoesNothing)
{
    CPropertyPage page(IDD_FIRST_PAGE);
    page.EndDialog(IDCANCEL);
    EXPECT_EQ(page.m_hWnd, nullptr);
}

TEST_F(CPropertyPageTest, itsTitleIsStringElseTemplatesCaption)
{
    const CPropertyPage named(IDD_FIRST_PAGE, IDS_GREETING);
    EXPECT_TRUE(named.m_psp.dwFlags & PSP_USETITLE);
    const CPropertyPage unnamed(IDD_FIRST_PAGE);
    EXPECT_FALSE(unnamed.m_psp.dwFlags & PSP_USETITLE);
}

TEST_F(CPropertyPageTest, itsTemplateOutlivesTheLibraryItCameFrom)
{
    const HINSTANCE library = ::LoadLibraryW(L"mfc_sheet_pages.dll");
    ASSERT_NE(library, nullptr);
    const HINSTANCE before = AfxGetResourceHandle();
    AfxSetResourceHandle(library);
    ScriptedSheet sheet;
    sheet.addStep(
        [&](auto& s)
        {
            AfxSetResourceHandle(before);
            ASSERT_TRUE(::FreeLibrary(library));
            ASSERT_EQ(::GetModuleHandleW(L"mfc_sheet_pages.dll"), nullptr) << "still loaded: this shows nothing";
            s.clickTab(1);
            EXPECT_EQ(s.shownPage(), &s.m_second);
            EXPECT_NE(s.m_second.item(IDC_FRAME), nullptr);
            s.EndDialog(1);
        });
    EXPECT_EQ(sheet.DoModal(), 1);
    AfxSetResourceHandle(before);
}

TEST_F(CPropertyPageTest, templateComesFromTheLibraryAtTheStart)
{
    ScriptedSheet sheet;
    const HINSTANCE before = AfxGetResourceHandle();
    AfxSetResourceHandle(::GetModuleHandleW(nullptr));
    EXPECT_EQ(sheet.DoModal(), -1) << "found a template in a program that has none";
    AfxSetResourceHandle(before);
    sheet.addStep([](auto& s) { s.EndDialog(1); });
    EXPECT_EQ(sheet.DoModal(), 1);
}

TEST_F(CPropertyPageTest, sheetOwnerIsThreeStepsUp)
{
    ScriptedDlg host;
    host.addStep(
        [](auto& hostDlg)
        {
            ScriptedSheet sheet; // without a parent: the host's dialog is found
            sheet.addStep(
                [&](auto& s)
                {
                    EXPECT_FALSE(hostDlg.IsWindowEnabled());
                    CDialog inner;
                    ASSERT_TRUE(inner.Create(IDD_PAGE, &s.m_first));
                    EXPECT_EQ(inner.GetParent(), &s.m_first);
                    EXPECT_EQ(inner.GetParent()->GetParent(), &s);
                    EXPECT_EQ(inner.GetParent()->GetParent()->GetParent(), &hostDlg);
                    s.EndDialog(1);
                });
            EXPECT_EQ(sheet.DoModal(), 1);
            EXPECT_TRUE(hostDlg.IsWindowEnabled());
            hostDlg.EndDialog(2);
        });
    EXPECT_EQ(host.DoModal(), 2);
}

TEST_F(CPropertyPageTest, modalDialogOfAPageDisablesTheSheet)
{
    ScriptedSheet sheet;
    INT_PTR answer = 0;
    sheet.m_first.m_onRun = [&](auto& page)
    {
        ScriptedDlg inner(IDD_PLAIN, &page);
        inner.addStep(
            [&](auto& dlg)
            {
                EXPECT_FALSE(sheet.IsWindowEnabled());
                EXPECT_EQ(dlg.GetParent(), &sheet);
                dlg.EndDialog(33);
            });
        answer = inner.DoModal();
        EXPECT_TRUE(sheet.IsWindowEnabled());
        EXPECT_EQ(::GetActiveWindow(), sheet.m_hWnd);
    };
    sheet.addStep([](auto& s) { ::SendMessageW(s.m_first.item(IDC_RUN), BM_CLICK, 0, 0); });
    sheet.addStep([](auto&) {}); // waits in the queue already, and runs in the dialog's loop
    sheet.addStep(
        [&](auto& s)
        {
            EXPECT_EQ(answer, 33);
            EXPECT_EQ(s.shownPage(), &s.m_first) << "the sheet ended with it";
            s.EndDialog(34);
        });
    EXPECT_EQ(sheet.DoModal(), 34);
}

TEST_F(CPropertyPageTest, sheetEndedUnderItsDialogWaitsForIt)
{
    ScriptedSheet sheet;
    bool innerRanOn = false;
    sheet.m_first.m_onRun = [&](auto& page)
    {
        ScriptedDlg inner(IDD_PLAIN, &page);
        inner.addStep([&](auto&) { sheet.SendMessage(WM_COMMAND, IDCANCEL); });
        inner.addStep(
            [&](auto& dlg)
            {
                innerRanOn = true;
                dlg.EndDialog(1);
            });
        EXPECT_EQ(inner.DoModal(), 1);
    };
    sheet.addStep([](auto& s) { ::SendMessageW(s.m_first.item(IDC_RUN), BM_CLICK, 0, 0); });
    EXPECT_EQ(sheet.DoModal(), IDCANCEL);
    EXPECT_TRUE(innerRanOn);
}
} // namespace
