// What a handler throws, at each nesting, reaches the caller of the modal function, with the owner enabled again and
// the window gone.

#include "tests/support/RecordedAsserts.h"
#include "tests/win/mfc/BoxAnswerer.h"
#include "tests/win/mfc/DialogTest.h"

#include "mfc/AfxExceptionScope.h"
#include "mfc/CInvalidArgException.h"
#include "mfc/CUserException.h"

#include <stdexcept>
#include <thread>

namespace
{
class DialogExceptionTest : public DialogTest
{
protected:
    DialogExceptionTest() { EXPECT_TRUE(m_owner.create(nullptr, WS_OVERLAPPEDWINDOW | WS_VISIBLE)); }
    ~DialogExceptionTest() override = default;

    void TearDown() override
    {
        EXPECT_TRUE(m_owner.IsWindowEnabled()) << "the owner stayed disabled";
        EXPECT_EQ(windowsOfThread(), 1) << "more than the owner is left";
        m_owner.DestroyWindow();
        DialogTest::TearDown();
    }

    // Runs the dialog, which must end by throwing, and returns the error's text.
    static std::string errorOf(CDialog& dialog)
    {
        try
        {
            dialog.DoModal();
        }
        catch (const std::runtime_error& error)
        {
            EXPECT_EQ(dialog.m_hWnd, nullptr);
            return error.what();
        }
        return "nothing was thrown";
    }

    static void fail(ScriptedDlg& /*dlg*/) { throw std::runtime_error("handler failed"); }

    TestWnd m_owner;
};

TEST_F(DialogExceptionTest, inOnInitDialog)
{
    ScriptedDlg dialog(IDD_PLAIN, &m_owner);
    bool stepRan = false;
    dialog.addStep([&](auto&) { stepRan = true; });
    dialog.m_onInit = &fail;
    EXPECT_EQ(errorOf(dialog), "handler failed");
    EXPECT_FALSE(stepRan) << "the loop ran all the same";
    EXPECT_EQ(dialog.m_destroyed, 1) << "the window was not destroyed by its virtual function";
}

TEST_F(DialogExceptionTest, inTheHandlerOfAPostedMessage)
{
    ScriptedDlg dialog(IDD_PLAIN, &m_owner);
    bool nextRan = false;
    dialog.addStep(&fail);
    dialog.addStep([&](auto&) { nextRan = true; });
    EXPECT_EQ(errorOf(dialog), "handler failed");
    EXPECT_FALSE(nextRan);
    EXPECT_EQ(dialog.m_destroyed, 1);
}

TEST_F(DialogExceptionTest, inHandlerOfSentMessageSenderGoesOn)
{
    ScriptedDlg dialog(IDD_PLAIN, &m_owner);
    bool senderWentOn = false;
    dialog.m_onRun = &fail;
    dialog.addStep(
        [&](auto& dlg)
        {
            dlg.SendDlgItemMessage(IDC_RUN, BM_CLICK);
            senderWentOn = true;
        });
    EXPECT_EQ(errorOf(dialog), "handler failed");
    EXPECT_TRUE(senderWentOn) << "the exception unwound through the system";
}

TEST_F(DialogExceptionTest, inHandlerOfMessageSentByAnotherThread)
{
    ScriptedDlg dialog(IDD_PLAIN, &m_owner);
    std::thread other;
    dialog.m_onRun = &fail;
    dialog.addStep(
        [&](auto& dlg)
        {
            other = std::thread(
                [window = dlg.m_hWnd]
                {
                    DWORD_PTR answer = 0;
                    ::SendMessageTimeoutW(window, WM_COMMAND, MAKEWPARAM(IDC_RUN, BN_CLICKED),
                                          reinterpret_cast<LPARAM>(window), SMTO_NORMAL, 60000, &answer);
                });
        });
    EXPECT_EQ(errorOf(dialog), "handler failed");
    other.join();
}

TEST_F(DialogExceptionTest, inTheHandlerOfAnotherWindow)
{
    ScriptedDlg dialog(IDD_PLAIN, &m_owner);
    ScriptedDlg neighbour;
    neighbour.addStep(&fail);
    dialog.addStep([&](auto&) { ASSERT_TRUE(neighbour.Create(IDD_PLAIN, &m_owner)); });
    EXPECT_EQ(errorOf(dialog), "handler failed");
    EXPECT_TRUE(::IsWindow(neighbour)) << "only the loop's own window goes";
    neighbour.DestroyWindow();
}

TEST_F(DialogExceptionTest, inInnerDialogIsThrownThroughBothCallers)
{
    ScriptedDlg outer(IDD_PLAIN, &m_owner);
    bool wentOn = false;
    bool outerEnabledAgain = false;
    outer.addStep(
        [&](auto& dlg)
        {
            ScriptedDlg inner(IDD_PLAIN, &dlg);
            inner.addStep(&fail);
            try
            {
                inner.DoModal();
                wentOn = true;
            }
            catch (...)
            {
                outerEnabledAgain = dlg.IsWindowEnabled() != FALSE;
                throw;
            }
        });
    EXPECT_EQ(errorOf(outer), "handler failed");
    EXPECT_FALSE(wentOn);
    EXPECT_TRUE(outerEnabledAgain);
}

TEST_F(DialogExceptionTest, caughtAroundInnerDialogOuterGoesOn)
{
    ScriptedDlg outer(IDD_PLAIN, &m_owner);
    outer.addStep(
        [&](auto& dlg)
        {
            ScriptedDlg inner(IDD_PLAIN, &dlg);
            inner.addStep(&fail);
            EXPECT_EQ(errorOf(inner), "handler failed");
        });
    outer.addStep([](auto& dlg) { dlg.EndDialog(3); });
    EXPECT_EQ(outer.DoModal(), 3);
}

TEST_F(DialogExceptionTest, throwInOuterDialogEndsInnerFirst)
{
    ScriptedDlg outer(IDD_PLAIN, &m_owner);
    outer.m_onRun = &fail;
    std::string innerError;
    outer.addStep(
        [&](auto& dlg)
        {
            ScriptedDlg inner(IDD_PLAIN, &dlg);
            inner.addStep([&](auto&) { outer.SendMessage(WM_COMMAND, IDC_RUN); });
            innerError = errorOf(inner);
            dlg.EndDialog(4);
        });
    EXPECT_EQ(outer.DoModal(), 4);
    EXPECT_EQ(innerError, "handler failed");
}

TEST_F(DialogExceptionTest, inModelessPageIsThrownByItsCreation)
{
    ScriptedDlg dialog(IDD_PLAIN, &m_owner);
    dialog.addStep(
        [&](auto& dlg)
        {
            ScriptedDlg page;
            page.m_onInit = &fail;
            EXPECT_THROW(page.Create(IDD_PAGE, &dlg), std::runtime_error);
            EXPECT_EQ(page.m_hWnd, nullptr);
            EXPECT_EQ(page.m_destroyed, 1);
        });
    dialog.addStep([](auto& dlg) { dlg.EndDialog(6); });
    EXPECT_EQ(dialog.DoModal(), 6);
}

TEST_F(DialogExceptionTest, inMessageBoxsLoopEndsOursAfterBox)
{
    ScriptedDlg dialog(IDD_PLAIN, &m_owner);
    std::size_t boxes = 0;
    dialog.addStep(
        [&](auto& dlg)
        {
            BoxAnswerer answerer;
            // The step that throws is in the queue already and runs in the box's loop, ahead of the answer.
            EXPECT_EQ(dlg.MessageBox(L"text", L"caption"), IDOK);
            boxes = answerer.boxes().size();
        });
    dialog.addStep(&fail);
    EXPECT_EQ(errorOf(dialog), "handler failed");
    EXPECT_EQ(boxes, 1U);
}

TEST_F(DialogExceptionTest, inPreTranslation)
{
    class Translator : public ScriptedDlg
    {
    public:
        using ScriptedDlg::ScriptedDlg;
        BOOL PreTranslateMessage(MSG* pMsg) override
        {
            if (pMsg->message == WM_APP + 1)
                throw std::runtime_error("pre-translation failed");
            return ScriptedDlg::PreTranslateMessage(pMsg);
        }
    };
    Translator dialog(IDD_PLAIN, &m_owner);
    dialog.m_onInit = [](auto& dlg) { dlg.PostMessage(WM_APP + 1); };
    EXPECT_EQ(errorOf(dialog), "pre-translation failed");
}

TEST_F(DialogExceptionTest, inDestroyWindowWindowGoesAllSame)
{
    ScriptedDlg dialog(IDD_PLAIN, &m_owner);
    dialog.m_destroyWindow = []() -> BOOL { throw std::runtime_error("destruction failed"); };
    dialog.addStep([](auto& dlg) { dlg.EndDialog(1); });
    EXPECT_EQ(errorOf(dialog), "destruction failed");
}

TEST_F(DialogExceptionTest, destroyWindowWithoutBaseLeavesNoWindow)
{
    ScriptedDlg dialog(IDD_PLAIN, &m_owner);
    dialog.m_destroyWindow = []() -> BOOL { return TRUE; };
    dialog.addStep([](auto& dlg) { dlg.EndDialog(1); });
    EXPECT_EQ(dialog.DoModal(), 1);
    EXPECT_EQ(dialog.m_hWnd, nullptr);
}

TEST_F(DialogExceptionTest, theFirstOfSeveralIsThrown)
{
    ScriptedDlg dialog(IDD_PLAIN, &m_owner);
    dialog.addStep(&fail);
    dialog.m_destroyWindow = []() -> BOOL { throw std::runtime_error("a consequence"); };
    EXPECT_EQ(errorOf(dialog), "handler failed");
}

TEST_F(DialogExceptionTest, everyTypeComesThroughAsItIs)
{
    ScriptedDlg user(IDD_PLAIN, &m_owner);
    user.addStep([](auto&) { AfxThrowUserException(); });
    EXPECT_THROW(user.DoModal(), CUserException*);

    ScriptedDlg argument(IDD_PLAIN, &m_owner);
    argument.addStep([](auto&) { AfxThrowInvalidArgException(); });
    EXPECT_THROW(argument.DoModal(), CException*);

    ScriptedDlg number(IDD_PLAIN, &m_owner);
    number.addStep([](auto&) { throw 17; });
    EXPECT_THROW(number.DoModal(), int);
}

TEST_F(DialogExceptionTest, theDialogRunsAgainAfterwards)
{
    ScriptedDlg dialog(IDD_PLAIN, &m_owner);
    dialog.addStep(&fail);
    EXPECT_EQ(errorOf(dialog), "handler failed");
    dialog.addStep([](auto& dlg) { dlg.EndDialog(9); });
    EXPECT_EQ(dialog.DoModal(), 9);
}

TEST_F(DialogExceptionTest, withoutAScopeItIsReported)
{
    const RecordedAsserts asserts;
    ScriptedDlg dialog;
    dialog.m_onRun = &fail;
    ASSERT_TRUE(dialog.Create(IDD_PLAIN, &m_owner));
    dialog.SendMessage(WM_COMMAND, IDC_RUN);
    EXPECT_EQ(asserts.reports(), std::vector<std::string>{"exception outside every modal loop | AfxExceptionScope"});
    dialog.DestroyWindow();
}

TEST_F(DialogExceptionTest, nothingIsKeptBeyondTheScope)
{
    {
        AfxExceptionScope scope;
        EXPECT_NO_THROW(scope.rethrow());
        scope.keep(std::make_exception_ptr(1));
        scope.keep(std::make_exception_ptr(std::string("second")));
        EXPECT_TRUE(scope.hasException());
        EXPECT_THROW(scope.rethrow(), int);
        EXPECT_FALSE(scope.hasException());
        scope.keep(std::make_exception_ptr(2));
    }
    AfxExceptionScope next;
    EXPECT_FALSE(next.hasException());
}
} // namespace
