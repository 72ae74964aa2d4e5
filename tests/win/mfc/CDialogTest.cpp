#include "tests/win/mfc/DialogTest.h"

#include "mfc/AfxExceptionScope.h"
#include "mfc/AfxModuleState.h"

#include <cstring>
#include <stdexcept>
#include <thread>
#include <vector>

namespace
{
using CDialogTest = DialogTest;

TEST_F(CDialogTest, doModalAnswersWhatTheButtonGave)
{
    ScriptedDlg dialog;
    dialog.addStep([](auto& dlg) { dlg.SendDlgItemMessage(IDOK, BM_CLICK); });
    EXPECT_EQ(dialog.DoModal(), IDOK);
    EXPECT_EQ(dialog.m_oks, 1);
    EXPECT_EQ(dialog.m_cancels, 0);
    EXPECT_EQ(dialog.m_hWnd, nullptr);

    ScriptedDlg cancelled;
    cancelled.addStep([](auto& dlg) { dlg.SendDlgItemMessage(IDCANCEL, BM_CLICK); });
    EXPECT_EQ(cancelled.DoModal(), IDCANCEL);
    EXPECT_EQ(cancelled.m_cancels, 1);
}

TEST_F(CDialogTest, runsAgainAfterItEnded)
{
    ScriptedDlg dialog;
    for (const int result : {7, 8})
    {
        dialog.addStep([result](auto& dlg) { dlg.EndDialog(result); });
        EXPECT_EQ(dialog.DoModal(), result);
        EXPECT_EQ(dialog.m_hWnd, nullptr);
    }
    EXPECT_EQ(dialog.m_inits, 2);
}

TEST_F(CDialogTest, isVisibleAndMappedWhileItRuns)
{
    ScriptedDlg dialog;
    dialog.addStep(
        [&](auto& dlg)
        {
            EXPECT_TRUE(dlg.IsWindowVisible());
            EXPECT_EQ(CWnd::FromHandlePermanent(dlg), &dialog);
            dlg.EndDialog(1);
        });
    dialog.m_onInit = [](auto& dlg) { EXPECT_FALSE(dlg.IsWindowVisible()) << "shown before it is initialised"; };
    EXPECT_EQ(dialog.DoModal(), 1);
}

TEST_F(CDialogTest, aHiddenTemplateIsShown)
{
    ScriptedDlg dialog(IDD_HIDDEN);
    bool seen = false;
    dialog.addStep(
        [&](auto& dlg)
        {
            seen = dlg.IsWindowVisible() != FALSE;
            dlg.EndDialog(1);
        });
    EXPECT_EQ(dialog.DoModal(), 1);
    EXPECT_TRUE(seen);
}

TEST_F(CDialogTest, endDialogInOnInitDialogShowsNothing)
{
    ScriptedDlg dialog;
    bool stepRan = false;
    HWND window = nullptr;
    dialog.addStep([&](auto&) { stepRan = true; });
    dialog.m_onInit = [&](auto& dlg)
    {
        window = dlg;
        dlg.EndDialog(42);
    };
    EXPECT_EQ(dialog.DoModal(), 42);
    EXPECT_FALSE(stepRan) << "a message was dispatched";
    EXPECT_FALSE(::IsWindow(window));
}

TEST_F(CDialogTest, destructionInOnInitDialogReturnsMinusOne)
{
    TestWnd owner;
    ASSERT_TRUE(owner.create(nullptr, WS_OVERLAPPEDWINDOW | WS_VISIBLE));
    ScriptedDlg dialog(IDD_PLAIN, &owner);
    dialog.m_onInit = [](auto& dlg) { dlg.CDialog::DestroyWindow(); };
    EXPECT_EQ(dialog.DoModal(), -1);
    EXPECT_TRUE(owner.IsWindowEnabled());
    EXPECT_EQ(dialog.m_hWnd, nullptr);
    owner.DestroyWindow();
}

TEST_F(CDialogTest, endedDialogDestroyedEarlyKeepsItsResult)
{
    ScriptedDlg dialog;
    dialog.m_onInit = [](auto& dlg)
    {
        dlg.EndDialog(IDOK);
        dlg.CDialog::DestroyWindow();
    };
    EXPECT_EQ(dialog.DoModal(), IDOK);
}

// Deletes itself with its window, and leaves nothing useful where it was.
class SelfDeletingDlg : public ScriptedDlg
{
public:
    static void* operator new(std::size_t size) { return ::operator new(size); }
    static void operator delete(void* memory, std::size_t size)
    {
        std::memset(memory, 0xDD, size);
        ::operator delete(memory);
    }

protected:
    void PostNcDestroy() override { delete this; }
};

TEST_F(CDialogTest, modelessDialogMayDeleteItselfDuringInitialisation)
{
    for (const bool throws : {false, true})
    {
        auto* dialog = new SelfDeletingDlg;
        dialog->m_onInit = [throws](auto& dlg)
        {
            // The function object is destroyed with the dialog.
            const bool alsoThrows = throws;
            dlg.CDialog::DestroyWindow();
            if (alsoThrows)
                throw std::runtime_error("gone");
        };
        if (throws)
            EXPECT_THROW(dialog->Create(IDD_PLAIN), std::runtime_error);
        else
            EXPECT_FALSE(dialog->Create(IDD_PLAIN));
    }
}

TEST_F(CDialogTest, destructionInLoopEndsItWithMinusOne)
{
    ScriptedDlg dialog;
    dialog.addStep([](auto& dlg) { dlg.CDialog::DestroyWindow(); });
    EXPECT_EQ(dialog.DoModal(), -1);
}

TEST_F(CDialogTest, failedCreationReturnsMinusOne)
{
    TestWnd owner;
    ASSERT_TRUE(owner.create(nullptr, WS_OVERLAPPEDWINDOW | WS_VISIBLE));
    for (const UINT id : {IDD_MISSING, IDD_BROKEN})
    {
        ScriptedDlg dialog(id, &owner);
        EXPECT_EQ(dialog.DoModal(), -1) << id;
        EXPECT_EQ(dialog.m_inits, 0) << id;
        EXPECT_EQ(dialog.m_hWnd, nullptr) << id;
        EXPECT_TRUE(owner.IsWindowEnabled()) << id;
        EXPECT_FALSE(dialog.Create(id, &owner)) << id;
    }
    owner.DestroyWindow();
}

TEST_F(CDialogTest, aDialogWithoutTemplateCannotBeShown)
{
    CDialog dialog;
    EXPECT_EQ(dialog.DoModal(), -1);
}

TEST_F(CDialogTest, isNotShownTwiceAtATime)
{
    ScriptedDlg dialog;
    dialog.addStep(
        [](auto& dlg)
        {
            EXPECT_EQ(dlg.DoModal(), -1);
            EXPECT_FALSE(dlg.Create(IDD_PLAIN));
            EXPECT_TRUE(dlg.IsWindowVisible()) << "the refused call touched the window";
            dlg.EndDialog(5);
        });
    EXPECT_EQ(dialog.DoModal(), 5);
    EXPECT_EQ(dialog.m_inits, 1);
}

TEST_F(CDialogTest, theTemplateComesFromTheCurrentResourceHandle)
{
    AfxSetResourceHandle(::GetModuleHandleW(nullptr));
    ScriptedDlg dialog;
    EXPECT_EQ(dialog.DoModal(), -1) << "found a template in a program that has none";
}

TEST_F(CDialogTest, aDialogInADialogEndsAlone)
{
    ScriptedDlg outer;
    INT_PTR innerResult = 0;
    bool outerEnabledMeanwhile = true;
    outer.addStep(
        [&](auto& dlg)
        {
            ScriptedDlg inner(IDD_PLAIN, &dlg);
            inner.addStep(
                [&](auto& innerDlg)
                {
                    outerEnabledMeanwhile = outer.IsWindowEnabled() != FALSE;
                    innerDlg.EndDialog(11);
                });
            innerResult = inner.DoModal();
            EXPECT_TRUE(outer.IsWindowEnabled());
            EXPECT_TRUE(::IsWindow(outer)) << "the outer one ended too";
        });
    outer.addStep([](auto& dlg) { dlg.EndDialog(12); });
    EXPECT_EQ(outer.DoModal(), 12);
    EXPECT_EQ(innerResult, 11);
    EXPECT_FALSE(outerEnabledMeanwhile);
}

TEST_F(CDialogTest, endDialogOfOuterWaitsForInner)
{
    ScriptedDlg outer;
    bool innerRanOn = false;
    outer.addStep(
        [&](auto& dlg)
        {
            ScriptedDlg inner(IDD_PLAIN, &dlg);
            inner.addStep([&](auto&) { outer.EndDialog(21); });
            inner.addStep(
                [&](auto& innerDlg)
                {
                    innerRanOn = true;
                    innerDlg.EndDialog(22);
                });
            EXPECT_EQ(inner.DoModal(), 22);
        });
    EXPECT_EQ(outer.DoModal(), 21);
    EXPECT_TRUE(innerRanOn);
}

TEST_F(CDialogTest, endDialogLeavesMessageThatWakesLoop)
{
    ScriptedDlg dialog;
    bool woken = false;
    dialog.addStep(
        [&](auto& dlg)
        {
            MSG message = {};
            const auto threadMessages = reinterpret_cast<HWND>(std::intptr_t{-1});
            EXPECT_FALSE(::PeekMessageW(&message, threadMessages, 0, 0, PM_NOREMOVE)) << "something else would do";
            dlg.EndDialog(1);
            woken = ::PeekMessageW(&message, threadMessages, WM_NULL, WM_NULL, PM_NOREMOVE) != FALSE;
        });
    EXPECT_EQ(dialog.DoModal(), 1);
    EXPECT_TRUE(woken);
}

// Sends a command from another thread: it is handled inside GetMessage, and nothing is left in the queue.
void sendFromOutside(HWND dialog, UINT message, WPARAM wParam)
{
    DWORD_PTR answer = 0;
    EXPECT_NE(::SendMessageTimeoutW(dialog, message, wParam, 0, SMTO_NORMAL, 60000, &answer), 0);
}

TEST_F(CDialogTest, commandSentByAnotherThreadEndsLoop)
{
    struct Case
    {
        UINT message;
        WPARAM command;
        INT_PTR result;
    };
    for (const Case& each :
         {Case{WM_COMMAND, IDOK, IDOK}, Case{WM_COMMAND, IDCANCEL, IDCANCEL}, Case{WM_CLOSE, 0, IDCANCEL}})
    {
        ScriptedDlg dialog;
        std::thread other;
        dialog.addStep([&](auto& dlg)
                       { other = std::thread(&sendFromOutside, dlg.m_hWnd, each.message, each.command); });
        EXPECT_EQ(dialog.DoModal(), each.result);
        other.join();
    }
}

TEST_F(CDialogTest, quitEndsEveryLoopAndIsPassedOn)
{
    ScriptedDlg outer;
    INT_PTR innerResult = 0;
    outer.addStep(
        [&](auto& dlg)
        {
            ScriptedDlg inner(IDD_PLAIN, &dlg);
            inner.addStep([](auto&) { ::PostQuitMessage(77); });
            innerResult = inner.DoModal();
        });
    EXPECT_EQ(outer.DoModal(), -1);
    EXPECT_EQ(innerResult, -1);
    MSG message = {};
    ASSERT_TRUE(::PeekMessageW(&message, nullptr, WM_QUIT, WM_QUIT, PM_REMOVE));
    EXPECT_EQ(message.wParam, 77U);
}

TEST_F(CDialogTest, preTranslationStopsAtTheDialog)
{
    class Listener : public ScriptedDlg
    {
    public:
        Listener(std::vector<CWnd*>& seen, CWnd* parent) : ScriptedDlg(IDD_PLAIN, parent), m_seen(seen) {}
        BOOL PreTranslateMessage(MSG* pMsg) override
        {
            if (pMsg->message == WM_APP + 1)
                m_seen.push_back(this);
            return ScriptedDlg::PreTranslateMessage(pMsg);
        }
        std::vector<CWnd*>& m_seen;
    };
    class Button : public CWnd
    {
    public:
        explicit Button(std::vector<CWnd*>& seen) : m_seen(seen) {}
        BOOL PreTranslateMessage(MSG* pMsg) override
        {
            if (pMsg->message == WM_APP + 1)
                m_seen.push_back(this);
            return pMsg->message == WM_APP + 1 && m_takes;
        }
        std::vector<CWnd*>& m_seen;
        bool m_takes = false;
    };
    std::vector<CWnd*> seen;
    Listener outer(seen, nullptr);
    outer.addStep(
        [&](auto& dlg)
        {
            Listener inner(seen, &dlg);
            Button button(seen);
            inner.m_onInit = [&](auto& innerDlg) { ASSERT_TRUE(button.SubclassDlgItem(IDC_RUN, &innerDlg)); };
            inner.addStep([&](auto&) { button.PostMessage(WM_APP + 1); });
            inner.addStep([](auto&) {});
            inner.addStep(
                [&](auto&)
                {
                    EXPECT_EQ(seen, (std::vector<CWnd*>{&button, &inner}));
                    seen.clear();
                    button.m_takes = true;
                    button.PostMessage(WM_APP + 1);
                });
            inner.addStep([](auto&) {});
            inner.addStep(
                [&](auto& innerDlg)
                {
                    EXPECT_EQ(seen, (std::vector<CWnd*>{&button})) << "a taken message went further";
                    innerDlg.EndDialog(1);
                });
            inner.DoModal();
            dlg.EndDialog(1);
        });
    outer.DoModal();
}
} // namespace
