// Keys in a modal dialog, also through a dialog inside it: posted, as a keyboard's are.

#include "tests/win/mfc/DialogTest.h"

#include <vector>

namespace
{
// Each key is posted when the one before it was handled, and the focus noted after each.
class KeyedDlg : public ScriptedDlg
{
public:
    explicit KeyedDlg(UINT templateId = IDD_PLAIN) : ScriptedDlg(templateId) {}

    std::vector<WPARAM> m_keys;
    std::vector<int> m_focus; // control numbers

    void begin(int firstFocus)
    {
        ::SetFocus(::GetDlgItem(m_hWnd, firstFocus));
        next();
    }

private:
    void next()
    {
        if (m_keys.empty())
            return;
        const WPARAM key = m_keys.front();
        m_keys.erase(m_keys.begin());
        ::PostMessageW(::GetFocus(), WM_KEYDOWN, key, 0);
        addStep(
            [this](auto&)
            {
                m_focus.push_back(::GetDlgCtrlID(::GetFocus()));
                next();
            });
    }
};

using DialogKeysTest = DialogTest;

TEST_F(DialogKeysTest, tabGoesRound)
{
    KeyedDlg dialog;
    dialog.m_keys = {VK_TAB, VK_TAB, VK_TAB, VK_ESCAPE};
    dialog.addStep([&](auto&) { dialog.begin(IDC_RUN); });
    EXPECT_EQ(dialog.DoModal(), IDCANCEL);
    ASSERT_GE(dialog.m_focus.size(), 3U);
    EXPECT_EQ(dialog.m_focus[0], IDOK);
    EXPECT_EQ(dialog.m_focus[1], IDCANCEL);
    EXPECT_EQ(dialog.m_focus[2], IDC_RUN);
}

TEST_F(DialogKeysTest, tabGoesThroughControlsOfDialogInside)
{
    KeyedDlg dialog;
    ScriptedDlg page;
    dialog.m_onInit = [&](auto& dlg)
    {
        ASSERT_TRUE(page.Create(IDD_PAGE, &dlg));
        // Right after the first button, where users look for it.
        page.SetWindowPos(::GetDlgItem(dlg, IDC_RUN), 0, 0, 0, 0, SWP_NOMOVE | SWP_NOSIZE | SWP_NOACTIVATE);
    };
    dialog.m_keys = {VK_TAB, VK_TAB, VK_ESCAPE};
    dialog.addStep([&](auto&) { dialog.begin(IDC_RUN); });
    EXPECT_EQ(dialog.DoModal(), IDCANCEL);
    ASSERT_GE(dialog.m_focus.size(), 2U);
    EXPECT_EQ(dialog.m_focus[0], IDC_PAGE_EDIT);
    EXPECT_EQ(dialog.m_focus[1], IDOK);
    EXPECT_EQ(page.m_hWnd, nullptr) << "the page went with its parent";
}

TEST_F(DialogKeysTest, escapeAndReturnReachTheDialogAround)
{
    for (const WPARAM key : {static_cast<WPARAM>(VK_ESCAPE), static_cast<WPARAM>(VK_RETURN)})
    {
        KeyedDlg dialog;
        ScriptedDlg page;
        dialog.m_onInit = [&](auto& dlg) { ASSERT_TRUE(page.Create(IDD_PAGE, &dlg)); };
        dialog.addStep(
            [&](auto&)
            {
                ::SetFocus(::GetDlgItem(page, IDC_PAGE_EDIT));
                ::PostMessageW(::GetFocus(), WM_KEYDOWN, key, 0);
            });
        EXPECT_EQ(dialog.DoModal(), key == VK_ESCAPE ? IDCANCEL : IDOK);
        EXPECT_EQ(page.m_cancels + page.m_oks, 0) << "the page took the key for itself";
    }
}

TEST_F(DialogKeysTest, onlyTheTopLevelDialogTranslatesKeys)
{
    ScriptedDlg dialog;
    ScriptedDlg page;
    ASSERT_TRUE(dialog.Create(IDD_PLAIN));
    ASSERT_TRUE(page.Create(IDD_PAGE, &dialog));
    MSG key = {};
    key.hwnd = ::GetDlgItem(page, IDC_PAGE_EDIT);
    key.message = WM_KEYDOWN;
    key.wParam = VK_TAB;
    EXPECT_FALSE(page.PreTranslateMessage(&key));
    EXPECT_TRUE(dialog.PreTranslateMessage(&key));
    key.message = WM_TIMER;
    EXPECT_FALSE(dialog.PreTranslateMessage(&key)) << "only input is translated";
    dialog.DestroyWindow();
}
} // namespace
