// Which window a modal dialog belongs to, and what becomes of it.

#include "tests/win/mfc/DialogTest.h"

#include "mfc/AfxModalLoop.h"

namespace
{
class ModalOwnerTest : public DialogTest
{
protected:
    // The owner that the system knows for a dialog run with this parent.
    static HWND ownerOf(CWnd* parent)
    {
        HWND owner = nullptr;
        ScriptedDlg dialog(IDD_PLAIN, parent);
        dialog.addStep(
            [&](auto& dlg)
            {
                owner = ::GetWindow(dlg, GW_OWNER);
                EXPECT_TRUE(!owner || !::IsWindowEnabled(owner)) << "the owner takes input";
                dlg.EndDialog(1);
            });
        dialog.DoModal();
        EXPECT_TRUE(!owner || ::IsWindowEnabled(owner)) << "the owner takes no input any more";
        return owner;
    }

    static constexpr DWORD visible = WS_OVERLAPPEDWINDOW | WS_VISIBLE;
};

TEST_F(ModalOwnerTest, isTheParent)
{
    TestWnd parent;
    TestWnd active;
    ASSERT_TRUE(parent.create(nullptr, visible));
    ASSERT_TRUE(active.create(nullptr, visible));
    EXPECT_EQ(ownerOf(&parent), parent);
    EXPECT_TRUE(active.IsWindowEnabled());
    EXPECT_EQ(::GetActiveWindow(), parent) << "the owner is active afterwards";
    parent.DestroyWindow();
    active.DestroyWindow();
}

TEST_F(ModalOwnerTest, isTopLevelWindowOfChildParent)
{
    TestWnd top;
    TestWnd child;
    TestWnd grandchild;
    ASSERT_TRUE(top.create(nullptr, visible));
    ASSERT_TRUE(child.create(&top, WS_CHILD | WS_VISIBLE));
    ASSERT_TRUE(grandchild.create(&child, WS_CHILD | WS_VISIBLE));
    EXPECT_EQ(ownerOf(&grandchild), top);
    EXPECT_TRUE(child.IsWindowEnabled());
    top.DestroyWindow();
}

TEST_F(ModalOwnerTest, withoutParentIsTheActiveWindow)
{
    TestWnd first;
    TestWnd active;
    TestWnd last;
    ASSERT_TRUE(first.create(nullptr, visible));
    ASSERT_TRUE(active.create(nullptr, visible));
    ASSERT_TRUE(last.create(nullptr, visible));
    active.SetActiveWindow();
    ASSERT_EQ(::GetActiveWindow(), active);
    EXPECT_EQ(ownerOf(nullptr), active);
    first.DestroyWindow();
    active.DestroyWindow();
    last.DestroyWindow();
}

TEST_F(ModalOwnerTest, withoutParentAndActivationIsTopmostUsableWindow)
{
    TestWnd below;
    TestWnd usable;
    TestWnd disabled;
    TestWnd hidden;
    TestWnd helper;
    ASSERT_TRUE(below.create(nullptr, visible));
    ASSERT_TRUE(usable.create(nullptr, visible));
    ASSERT_TRUE(disabled.create(nullptr, visible | WS_DISABLED));
    ASSERT_TRUE(hidden.create(nullptr, WS_OVERLAPPEDWINDOW));
    ASSERT_TRUE(helper.CreateEx(WS_EX_TOOLWINDOW, TestWnd::className(), L"Tooltip", WS_POPUP | WS_VISIBLE, 0, 0, 10, 10,
                                nullptr, nullptr));
    ::SetWindowPos(usable, HWND_TOP, 0, 0, 0, 0, SWP_NOMOVE | SWP_NOSIZE | SWP_NOACTIVATE);
    ::SetWindowPos(disabled, HWND_TOP, 0, 0, 0, 0, SWP_NOMOVE | SWP_NOSIZE | SWP_NOACTIVATE);
    ::SetWindowPos(hidden, HWND_TOP, 0, 0, 0, 0, SWP_NOMOVE | SWP_NOSIZE | SWP_NOACTIVATE);
    ::SetWindowPos(helper, HWND_TOP, 0, 0, 0, 0, SWP_NOMOVE | SWP_NOSIZE | SWP_NOACTIVATE);
    ::SetActiveWindow(nullptr);
    ASSERT_EQ(::GetActiveWindow(), nullptr);
    EXPECT_EQ(AfxGetSafeOwner(nullptr), usable);
    EXPECT_EQ(ownerOf(nullptr), usable);
    for (TestWnd* window : {&below, &usable, &disabled, &hidden, &helper})
        window->DestroyWindow();
}

TEST_F(ModalOwnerTest, isNoneWhereTheThreadShowsNoWindow)
{
    EXPECT_EQ(AfxGetSafeOwner(nullptr), nullptr);
    EXPECT_EQ(ownerOf(nullptr), nullptr);
}

TEST_F(ModalOwnerTest, aDisabledOwnerStaysDisabled)
{
    TestWnd parent;
    ASSERT_TRUE(parent.create(nullptr, visible | WS_DISABLED));
    ScriptedDlg dialog(IDD_PLAIN, &parent);
    dialog.addStep([](auto& dlg) { dlg.EndDialog(1); });
    EXPECT_EQ(dialog.DoModal(), 1);
    EXPECT_FALSE(parent.IsWindowEnabled());
    parent.DestroyWindow();
}

TEST_F(ModalOwnerTest, isEnabledBeforeTheDialogIsDestroyed)
{
    TestWnd parent;
    ASSERT_TRUE(parent.create(nullptr, visible));
    ScriptedDlg dialog(IDD_PLAIN, &parent);
    bool enabledInTime = false;
    dialog.m_destroyWindow = [&]
    {
        enabledInTime = parent.IsWindowEnabled() && ::IsWindow(dialog);
        return dialog.CWnd::DestroyWindow();
    };
    dialog.addStep([](auto& dlg) { dlg.EndDialog(1); });
    dialog.DoModal();
    EXPECT_TRUE(enabledInTime);
    parent.DestroyWindow();
}

TEST_F(ModalOwnerTest, isActiveAfterwardsWhateverTheSystemChose)
{
    TestWnd parent;
    TestWnd other;
    ASSERT_TRUE(parent.create(nullptr, visible));
    ASSERT_TRUE(other.create(nullptr, visible));
    ScriptedDlg dialog(IDD_PLAIN, &parent);
    dialog.m_destroyWindow = [&]
    {
        const BOOL destroyed = dialog.CDialog::DestroyWindow();
        other.SetActiveWindow();
        return destroyed;
    };
    dialog.addStep([](auto& dlg) { dlg.EndDialog(1); });
    dialog.DoModal();
    EXPECT_EQ(::GetActiveWindow(), parent);
    parent.DestroyWindow();
    other.DestroyWindow();
}

TEST_F(ModalOwnerTest, theDesktopIsNeverDisabled)
{
    const AfxDisabledOwner owner(::GetDesktopWindow());
    EXPECT_EQ(owner.get(), nullptr);
    EXPECT_TRUE(::IsWindowEnabled(::GetDesktopWindow()));
}

TEST_F(ModalOwnerTest, anOwnerThatDiesMeanwhileIsLeftAlone)
{
    TestWnd parent;
    ASSERT_TRUE(parent.create(nullptr, visible));
    ScriptedDlg dialog(IDD_PLAIN, &parent);
    dialog.addStep([&](auto&) { parent.DestroyWindow(); });
    EXPECT_EQ(dialog.DoModal(), -1) << "the system destroys a window with its owner";
}

TEST_F(ModalOwnerTest, getParentGivesTheObjectOfTheOwner)
{
    TestWnd host;
    ASSERT_TRUE(host.create(nullptr, visible));
    host.SetActiveWindow();
    ScriptedDlg dialog;
    dialog.addStep(
        [&](auto& dlg)
        {
            ScriptedDlg page;
            EXPECT_TRUE(page.Create(IDD_PAGE, &dlg));
            EXPECT_EQ(page.GetParent(), &dialog);
            EXPECT_EQ(page.GetParent()->GetParent(), &host) << "the window around is not found from a page";
            dlg.EndDialog(1);
        });
    dialog.DoModal();
    host.DestroyWindow();
}
} // namespace
