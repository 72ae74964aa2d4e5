// Where a dialog appears.

#include "tests/win/mfc/DialogTest.h"

#include "mfc/AfxModuleState.h"

namespace
{
class DialogPlaceTest : public DialogTest
{
protected:
    void SetUp() override
    {
        ASSERT_TRUE(m_owner.create(nullptr, WS_POPUP | WS_VISIBLE));
        m_owner.MoveWindow(50, 60, 500, 400);
    }
    void TearDown() override
    {
        m_owner.DestroyWindow();
        DialogTest::TearDown();
    }

    // The place of the dialog while it runs.
    static RECT placeOf(ScriptedDlg& dialog)
    {
        RECT place = {};
        dialog.addStep(
            [&](auto& dlg)
            {
                dlg.GetWindowRect(&place);
                dlg.EndDialog(1);
            });
        EXPECT_EQ(dialog.DoModal(), 1);
        return place;
    }

    static void expectCentered(const RECT& place)
    {
        EXPECT_NEAR((place.left + place.right) / 2, 300, 1);
        EXPECT_NEAR((place.top + place.bottom) / 2, 260, 1);
    }

    TestWnd m_owner;
};

TEST_F(DialogPlaceTest, centredInItsOwnerWithBothTemplates)
{
    for (const UINT id : {IDD_PLAIN, IDD_OLD_STYLE, IDD_HIDDEN})
    {
        ScriptedDlg dialog(id, &m_owner);
        expectCentered(placeOf(dialog));
    }
}

TEST_F(DialogPlaceTest, whereItsTemplateSays)
{
    // Where the system itself puts it.
    const HWND plain =
        ::CreateDialogParamW(AfxGetResourceHandle(), MAKEINTRESOURCEW(IDD_PLACED), m_owner, &AfxDlgProc, 0);
    RECT expected = {};
    ::GetWindowRect(plain, &expected);
    ::DestroyWindow(plain);

    ScriptedDlg dialog(IDD_PLACED, &m_owner);
    const RECT place = placeOf(dialog);
    EXPECT_TRUE(::EqualRect(&place, &expected)) << place.left << ", " << place.top;
}

TEST_F(DialogPlaceTest, whereOnInitDialogPutIt)
{
    ScriptedDlg dialog(IDD_PLAIN, &m_owner);
    dialog.m_onInit = [](auto& dlg) { dlg.SetWindowPos(nullptr, 7, 8, 0, 0, SWP_NOSIZE | SWP_NOZORDER); };
    const RECT place = placeOf(dialog);
    EXPECT_EQ(place.left, 7);
    EXPECT_EQ(place.top, 8);
}

TEST_F(DialogPlaceTest, aPageStaysWhereItsParentPutsIt)
{
    ScriptedDlg page;
    ASSERT_TRUE(page.Create(IDD_PAGE, &m_owner));
    RECT place = {};
    page.GetWindowRect(&place);
    EXPECT_EQ(place.left, 50);
    EXPECT_EQ(place.top, 60);
}
} // namespace
