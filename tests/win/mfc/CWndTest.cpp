#include "tests/win/mfc/WindowTest.h"

#include "mfc/AfxExceptionScope.h"
#include "mfc/CStatic.h"

#include <stdexcept>
#include <vector>

namespace
{
using CWndTest = WindowTest;

class Recorder : public TestWnd
{
public:
    std::vector<UINT> m_messages;
    int m_ends = 0;

protected:
    LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override
    {
        m_messages.push_back(message);
        return TestWnd::WindowProc(message, wParam, lParam);
    }
    void PostNcDestroy() override { ++m_ends; }
};

TEST_F(CWndTest, windowHasOneObjectAndObjectOneWindow)
{
    TestWnd first;
    TestWnd second;
    ASSERT_TRUE(first.create());
    ASSERT_TRUE(second.create());
    CWnd third;
    EXPECT_FALSE(third.Attach(first));
    EXPECT_FALSE(third.SubclassWindow(first));
    EXPECT_FALSE(third.Attach(nullptr));
    EXPECT_EQ(third.m_hWnd, nullptr);
    const HWND window = first;
    EXPECT_FALSE(first.Attach(second));
    EXPECT_FALSE(first.create());
    EXPECT_EQ(first.m_hWnd, window);
    EXPECT_EQ(CWnd::FromHandlePermanent(second), &second);
    first.DestroyWindow();
    second.DestroyWindow();
}

TEST_F(CWndTest, aDetachedWindowWorksOnWithItsClass)
{
    TestWnd window;
    ASSERT_TRUE(window.create());
    const HWND handle = window.Detach();
    EXPECT_EQ(window.m_hWnd, nullptr);
    EXPECT_EQ(CWnd::FromHandlePermanent(handle), nullptr);
    EXPECT_EQ(::SendMessageW(handle, WM_APP, 0, 0), TestWnd::classAnswer);
    EXPECT_EQ(window.Detach(), nullptr) << "there is nothing to detach any more";

    Recorder again;
    ASSERT_TRUE(again.SubclassWindow(handle));
    EXPECT_EQ(again.SendMessage(WM_APP), TestWnd::classAnswer);
    EXPECT_EQ(again.m_messages, std::vector<UINT>{WM_APP});
    again.DestroyWindow();
}

TEST_F(CWndTest, anAttachedWindowKeepsItsProcedure)
{
    const HWND handle = createPlainWindow();
    Recorder window;
    ASSERT_TRUE(window.Attach(handle));
    EXPECT_EQ(window.SendMessage(WM_APP), TestWnd::classAnswer);
    EXPECT_TRUE(window.m_messages.empty());
    EXPECT_TRUE(window.DestroyWindow());
    EXPECT_EQ(window.m_hWnd, nullptr) << "the object kept a handle that may be another window's next";
}

LONG_PTR procedureOf(HWND hWnd)
{
    return ::GetWindowLongPtrW(hWnd, GWLP_WNDPROC);
}

TEST_F(CWndTest, subclassingIsTakenBack)
{
    const HWND handle = createPlainWindow();
    const LONG_PTR procedure = procedureOf(handle);
    Recorder window;
    ASSERT_TRUE(window.SubclassWindow(handle));
    EXPECT_NE(procedureOf(handle), procedure);
    EXPECT_EQ(window.SendMessage(WM_APP), TestWnd::classAnswer);
    EXPECT_EQ(window.m_messages, std::vector<UINT>{WM_APP});
    EXPECT_EQ(window.UnsubclassWindow(), handle);
    EXPECT_EQ(procedureOf(handle), procedure);
    EXPECT_EQ(window.m_hWnd, nullptr);
    EXPECT_EQ(::SendMessageW(handle, WM_APP, 0, 0), TestWnd::classAnswer);
    EXPECT_EQ(window.m_messages.size(), 1U);
    ::DestroyWindow(handle);
    EXPECT_EQ(window.m_ends, 0);
}

WNDPROC strangerCallsNext = nullptr;
int strangerCalls = 0;

LRESULT CALLBACK strangersProcedure(HWND hWnd, UINT message, WPARAM wParam, LPARAM lParam)
{
    ++strangerCalls;
    return ::CallWindowProcW(strangerCallsNext, hWnd, message, wParam, lParam);
}

TEST_F(CWndTest, laterSubclassIsNotCutOff)
{
    const HWND handle = createPlainWindow();
    CWnd window;
    ASSERT_TRUE(window.SubclassWindow(handle));
    strangerCallsNext = reinterpret_cast<WNDPROC>(
        ::SetWindowLongPtrW(handle, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(&strangersProcedure)));
    strangerCalls = 0;
    window.UnsubclassWindow();
    EXPECT_EQ(::SendMessageW(handle, WM_APP, 0, 0), TestWnd::classAnswer);
    EXPECT_EQ(strangerCalls, 1);
    ::DestroyWindow(handle);
}

TEST_F(CWndTest, anObjectThatDiesTakesItsWindowAlong)
{
    HWND handle = nullptr;
    {
        TestWnd window;
        ASSERT_TRUE(window.create());
        handle = window;
    }
    EXPECT_FALSE(::IsWindow(handle));
}

TEST_F(CWndTest, anObjectMayDeleteItselfWithItsWindow)
{
    class SelfDeleting : public TestWnd
    {
    public:
        explicit SelfDeleting(bool& gone) : m_gone(gone) {}
        ~SelfDeleting() override { m_gone = true; }

    protected:
        void PostNcDestroy() override { delete this; }

    private:
        bool& m_gone;
    };
    bool gone = false;
    auto* window = new SelfDeleting(gone);
    ASSERT_TRUE(window->create());
    EXPECT_TRUE(window->DestroyWindow());
    EXPECT_TRUE(gone);
}

TEST_F(CWndTest, overrideWithoutBaseLeavesNoDeadWindow)
{
    class Forgetful : public TestWnd
    {
    protected:
        LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override
        {
            return message == WM_NCDESTROY ? 0 : TestWnd::WindowProc(message, wParam, lParam);
        }
    };
    Forgetful window;
    ASSERT_TRUE(window.create());
    ::DestroyWindow(window);
    EXPECT_EQ(window.m_hWnd, nullptr);
    EXPECT_EQ(AfxPermanentWindowCount(), 0U);
}

// --- Temporary objects ---

TEST_F(CWndTest, aWindowWithoutObjectGetsATemporaryOne)
{
    const AfxThreadLevel level(AfxGetThreadState());
    const HWND handle = createPlainWindow();
    EXPECT_EQ(CWnd::FromHandle(nullptr), nullptr);
    EXPECT_EQ(CWnd::FromHandlePermanent(handle), nullptr);
    CWnd* temporary = CWnd::FromHandle(handle);
    ASSERT_NE(temporary, nullptr);
    EXPECT_EQ(temporary->m_hWnd, handle);
    EXPECT_EQ(CWnd::FromHandle(handle), temporary);
    EXPECT_EQ(temporary->SendMessage(WM_APP), TestWnd::classAnswer);
    EXPECT_EQ(CWnd::FromHandlePermanent(handle), nullptr);
    ::DestroyWindow(handle);

    TestWnd permanent;
    ASSERT_TRUE(permanent.create());
    EXPECT_EQ(CWnd::FromHandle(permanent), &permanent);
    permanent.DestroyWindow();
}

TEST_F(CWndTest, temporaryObjectsEndWithTheOutermostLevel)
{
    AFX_THREAD_STATE& state = AfxGetThreadState();
    const HWND handle = createPlainWindow();
    const std::size_t before = state.m_temporary.size();
    {
        const AfxThreadLevel outer(state);
        {
            const AfxThreadLevel inner(state);
            CWnd::FromHandle(handle);
        }
        EXPECT_EQ(state.m_temporary.size(), before + 1) << "gone too early";
    }
    EXPECT_EQ(state.m_temporary.size(), before);
    EXPECT_TRUE(::IsWindow(handle));
    ::DestroyWindow(handle);
}

TEST_F(CWndTest, aTemporaryObjectFromBeforeOutlivesTheLevel)
{
    AFX_THREAD_STATE& state = AfxGetThreadState();
    const HWND handle = createPlainWindow();
    CWnd* temporary = CWnd::FromHandle(handle);
    {
        const AfxThreadLevel level(state);
        EXPECT_EQ(CWnd::FromHandle(handle), temporary);
    }
    EXPECT_EQ(CWnd::FromHandle(handle), temporary) << "a dialog's caller still uses it";
    EXPECT_TRUE(temporary->DestroyWindow());
    state.m_temporary.clear();
}

// --- Exceptions ---

class ThrowingWnd : public TestWnd
{
public:
    UINT m_throwsAt = 0;

protected:
    LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override
    {
        if (message == m_throwsAt)
            throw std::runtime_error("handler failed");
        return TestWnd::WindowProc(message, wParam, lParam);
    }
};

TEST_F(CWndTest, handlerThatThrowsAnswersNullAndIsKept)
{
    AfxExceptionScope outer;
    ThrowingWnd window;
    ASSERT_TRUE(window.create());
    window.m_throwsAt = WM_APP;
    {
        AfxExceptionScope inner;
        EXPECT_EQ(window.SendMessage(WM_APP), 0);
        EXPECT_TRUE(inner.hasException());
    }
    EXPECT_FALSE(outer.hasException()) << "the innermost one keeps it";
    window.DestroyWindow();
}

TEST_F(CWndTest, paintingThatThrowsIsNotAskedForAgain)
{
    AfxExceptionScope scope;
    ThrowingWnd window;
    ASSERT_TRUE(window.create(nullptr, WS_OVERLAPPEDWINDOW | WS_VISIBLE));
    window.m_throwsAt = WM_PAINT;
    window.Invalidate();
    window.UpdateWindow();
    EXPECT_TRUE(scope.hasException());
    EXPECT_FALSE(::GetUpdateRect(window, nullptr, FALSE)) << "the system would send it for ever";
    window.m_throwsAt = 0;
    window.DestroyWindow();
}

TEST_F(CWndTest, throwAtLastMessageLeavesNoDeadWindow)
{
    AfxExceptionScope scope;
    ThrowingWnd window;
    ASSERT_TRUE(window.create());
    window.m_throwsAt = WM_NCDESTROY;
    ::DestroyWindow(window);
    EXPECT_TRUE(scope.hasException());
    EXPECT_EQ(window.m_hWnd, nullptr);
}

// --- Members that call the system ---

TEST_F(CWndTest, textsComeAndGoWhole)
{
    TestWnd window;
    ASSERT_TRUE(window.create());
    CString text;
    window.GetWindowText(text);
    EXPECT_EQ(text, L"Test window");
    const CString longText(L'z', 3000);
    window.SetWindowText(longText);
    window.GetWindowText(text);
    EXPECT_EQ(text, longText);
    window.SetWindowText(L"");
    window.GetWindowText(text);
    EXPECT_TRUE(text.IsEmpty());
    window.DestroyWindow();
}

TEST_F(CWndTest, stylesChangeOnlyWhereToldTo)
{
    TestWnd window;
    ASSERT_TRUE(window.create());
    EXPECT_TRUE(window.ModifyStyle(WS_MAXIMIZEBOX, 0));
    EXPECT_EQ(window.GetStyle() & WS_MAXIMIZEBOX, 0U);
    EXPECT_NE(window.GetStyle() & WS_MINIMIZEBOX, 0U);
    EXPECT_FALSE(window.ModifyStyle(WS_MAXIMIZEBOX, 0)) << "there was nothing to change";
    EXPECT_TRUE(window.ModifyStyleEx(0, WS_EX_CONTEXTHELP));
    EXPECT_NE(window.GetExStyle() & WS_EX_CONTEXTHELP, 0U);
    window.DestroyWindow();
}

TEST_F(CWndTest, relativesAreFound)
{
    TestWnd parent;
    ASSERT_TRUE(parent.create());
    CStatic label;
    ASSERT_TRUE(label.Create(L"Static", L"label", WS_CHILD, RECT{0, 0, 5, 5}, &parent, 12));
    EXPECT_EQ(parent.GetDlgItem(12), &label);
    EXPECT_EQ(parent.GetDlgItem(13), nullptr);
    HWND found = nullptr;
    parent.GetDlgItem(12, &found);
    EXPECT_EQ(found, label.m_hWnd);
    EXPECT_EQ(label.GetDlgCtrlID(), 12);
    EXPECT_EQ(label.GetParent(), &parent);
    EXPECT_EQ(label.GetTopLevelParent(), &parent);
    EXPECT_EQ(parent.GetParent(), nullptr);
    EXPECT_TRUE(parent.IsChild(&label));
    EXPECT_FALSE(label.IsChild(&parent));
    CString text = L"?";
    EXPECT_EQ(parent.GetDlgItemText(12, text), 5);
    EXPECT_EQ(text, L"label");
    EXPECT_EQ(parent.GetDlgItemText(13, text), 0);
    EXPECT_TRUE(text.IsEmpty());
    parent.DestroyWindow();
}

TEST_F(CWndTest, parentOfWindowInsideStrangersWindowIsNone)
{
    const HWND stranger = createPlainWindow();
    TestWnd window;
    ASSERT_TRUE(window.CreateEx(0, TestWnd::className(), L"", WS_CHILD, 0, 0, 1, 1, stranger, nullptr));
    EXPECT_EQ(window.GetParent(), nullptr);
    window.DestroyWindow();
    ::DestroyWindow(stranger);
}

POINT middleOf(const CWnd& window)
{
    RECT rect = {};
    window.GetWindowRect(&rect);
    return {(rect.left + rect.right) / 2, (rect.top + rect.bottom) / 2};
}

TEST_F(CWndTest, centersInItsOwnerAndStaysOnScreen)
{
    TestWnd owner;
    ASSERT_TRUE(owner.create(nullptr, WS_POPUP | WS_VISIBLE));
    owner.MoveWindow(100, 120, 300, 200);
    TestWnd window;
    ASSERT_TRUE(window.create(&owner, WS_POPUP));
    window.MoveWindow(0, 0, 100, 60);
    window.CenterWindow();
    EXPECT_EQ(middleOf(window).x, middleOf(owner).x);
    EXPECT_EQ(middleOf(window).y, middleOf(owner).y);

    owner.MoveWindow(-290, -190, 300, 200);
    window.CenterWindow();
    RECT rect = {};
    window.GetWindowRect(&rect);
    EXPECT_EQ(rect.left, 0);
    EXPECT_EQ(rect.top, 0);

    owner.ShowWindow(SW_HIDE);
    window.CenterWindow();
    RECT screen = {};
    ::SystemParametersInfoW(SPI_GETWORKAREA, 0, &screen, 0);
    EXPECT_EQ(middleOf(window).x, (screen.left + screen.right) / 2) << "a hidden owner is no place";
    window.DestroyWindow();
    owner.DestroyWindow();
}

TEST_F(CWndTest, rectanglesTravelBetweenScreenAndWindow)
{
    TestWnd window;
    ASSERT_TRUE(window.create(nullptr, WS_POPUP));
    window.MoveWindow(40, 50, 200, 100);
    RECT rect = {0, 0, 10, 20};
    window.ClientToScreen(&rect);
    EXPECT_EQ(rect.left, 40);
    EXPECT_EQ(rect.bottom, 70);
    window.ScreenToClient(&rect);
    EXPECT_EQ(rect.left, 0);
    EXPECT_EQ(rect.bottom, 20);
    POINT point = {1, 2};
    window.ClientToScreen(&point);
    EXPECT_EQ(point.x, 41);
    window.ScreenToClient(&point);
    EXPECT_EQ(point.y, 2);
    window.DestroyWindow();
}
} // namespace
