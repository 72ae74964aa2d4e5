// How a window gets its object, and how it loses it.

#include "tests/win/mfc/WindowTest.h"

#include "mfc/AfxWindowCreation.h"

#include <functional>
#include <stdexcept>
#include <thread>
#include <vector>

namespace
{
using WindowCreationTest = WindowTest;

class Recorder : public TestWnd
{
public:
    std::vector<UINT> m_messages;
    std::vector<HWND> m_handles; // what the object had as its window at each of them
    CWnd* m_found = nullptr;     // what the map had at the first message
    int m_ends = 0;
    bool m_inMapAtTheEnd = true;
    HWND m_windowAtTheEnd = reinterpret_cast<HWND>(std::intptr_t{-1});

protected:
    LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override
    {
        if (m_messages.empty())
            m_found = FromHandlePermanent(m_hWnd);
        m_messages.push_back(message);
        m_handles.push_back(m_hWnd);
        return CWnd::WindowProc(message, wParam, lParam);
    }
    void PostNcDestroy() override
    {
        ++m_ends;
        m_inMapAtTheEnd = AfxPermanentWindowCount() != 0;
        m_windowAtTheEnd = m_hWnd;
    }
};

TEST_F(WindowCreationTest, objectSeesEveryMessageOfItsWindow)
{
    Recorder window;
    ASSERT_TRUE(window.create());
    const HWND handle = window;
    ASSERT_FALSE(window.m_messages.empty());
    EXPECT_EQ(window.m_found, &window) << "attached only after the first message";
    // WM_NCCREATE is the first one; a frame that can be sized is asked for its limits even before.
    EXPECT_EQ(window.m_messages[0], static_cast<UINT>(WM_GETMINMAXINFO));
    EXPECT_EQ(window.m_messages[1], static_cast<UINT>(WM_NCCREATE));
    EXPECT_TRUE(window.DestroyWindow());
    EXPECT_EQ(window.m_messages.back(), static_cast<UINT>(WM_NCDESTROY));
    for (const HWND each : window.m_handles)
        EXPECT_EQ(each, handle);
}

TEST_F(WindowCreationTest, postNcDestroyRunsOnceAfterDetaching)
{
    Recorder window;
    ASSERT_TRUE(window.create());
    EXPECT_EQ(window.m_ends, 0);
    window.DestroyWindow();
    EXPECT_EQ(window.m_ends, 1);
    EXPECT_FALSE(window.m_inMapAtTheEnd);
    EXPECT_EQ(window.m_windowAtTheEnd, nullptr);
    EXPECT_FALSE(window.DestroyWindow()) << "there is no window any more";
}

class CreatingWnd : public TestWnd
{
public:
    std::function<void(CreatingWnd&)> m_onCreate;

protected:
    LRESULT onCreate(WPARAM, LPARAM)
    {
        m_onCreate(*this);
        return 0;
    }
    DECLARE_MESSAGE_MAP()
};

BEGIN_MESSAGE_MAP(CreatingWnd, TestWnd)
ON_MESSAGE(WM_CREATE, &CreatingWnd::onCreate)
END_MESSAGE_MAP()

TEST_F(WindowCreationTest, nestedCreationsGetTheirOwnObjects)
{
    CreatingWnd outer;
    TestWnd inner;
    HWND plain = nullptr;
    outer.m_onCreate = [&](auto&)
    {
        plain = createPlainWindow();
        EXPECT_TRUE(inner.create());
    };
    ASSERT_TRUE(outer.create());
    EXPECT_EQ(CWnd::FromHandlePermanent(outer), &outer);
    EXPECT_EQ(CWnd::FromHandlePermanent(inner), &inner);
    EXPECT_EQ(CWnd::FromHandlePermanent(plain), nullptr) << "a stranger's window was taken";
    EXPECT_NE(outer.m_hWnd, inner.m_hWnd);
    inner.DestroyWindow();
    outer.DestroyWindow();
    ::DestroyWindow(plain);
}

TEST_F(WindowCreationTest, windowThatCannotBeCreatedLeavesNothingWaiting)
{
    CWnd window;
    EXPECT_FALSE(window.CreateEx(0, L"NoSuchWindowClass", L"", 0, 0, 0, 1, 1, nullptr, nullptr));
    EXPECT_EQ(window.m_hWnd, nullptr);
    const HWND plain = createPlainWindow();
    EXPECT_EQ(CWnd::FromHandlePermanent(plain), nullptr) << "the object waited for the next window";
    ::DestroyWindow(plain);
}

TEST_F(WindowCreationTest, throwInACreationLeavesIt)
{
    CreatingWnd window;
    window.m_onCreate = [](auto&) { throw std::runtime_error("no"); };
    EXPECT_THROW(window.create(), std::runtime_error);
    EXPECT_EQ(window.m_hWnd, nullptr);
    window.m_onCreate = [](auto&) {};
    EXPECT_TRUE(window.create()) << "the object can be used again";
    window.DestroyWindow();
}

TEST_F(WindowCreationTest, hookGivesNextWindowToObjectAndGoes)
{
    TestWnd window;
    AfxHookWindowCreate(&window);
    EXPECT_TRUE(AfxGetThreadState().m_hHookCreate);
    const HWND handle = createPlainWindow();
    EXPECT_EQ(window.m_hWnd, handle);
    EXPECT_FALSE(AfxGetThreadState().m_hHookCreate);
    EXPECT_TRUE(AfxUnhookWindowCreate());
    const HWND next = createPlainWindow();
    EXPECT_EQ(CWnd::FromHandlePermanent(next), nullptr);
    ::DestroyWindow(next);
    window.DestroyWindow();
}

TEST_F(WindowCreationTest, hookThatIsNotUsedIsTakenBack)
{
    CWnd window;
    AfxHookWindowCreate(&window);
    EXPECT_FALSE(AfxUnhookWindowCreate());
    const HWND plain = createPlainWindow();
    EXPECT_EQ(window.m_hWnd, nullptr);
    AfxHookWindowCreate(nullptr);
    EXPECT_FALSE(AfxGetThreadState().m_hHookCreate);
    ::DestroyWindow(plain);
}

TEST_F(WindowCreationTest, objectThatWaitsAroundAnotherCreationWaitsOn)
{
    CWnd waiting;
    AfxHookWindowCreate(&waiting);
    CWnd refused;
    EXPECT_FALSE(refused.CreateEx(0, L"NoSuchWindowClass", L"", 0, 0, 0, 1, 1, nullptr, nullptr));
    const HWND handle = createPlainWindow();
    EXPECT_EQ(waiting.m_hWnd, handle);
    waiting.DestroyWindow();
}

TEST_F(WindowCreationTest, objectDestroyedWhileWaitingGetsNoWindow)
{
    {
        CWnd window;
        AfxHookWindowCreate(&window);
    }
    EXPECT_EQ(AfxGetThreadState().m_pWndInit, nullptr);
    const HWND plain = createPlainWindow();
    EXPECT_EQ(CWnd::FromHandlePermanent(plain), nullptr);
    ::DestroyWindow(plain);
    AfxUnhookWindowCreate();
}

// --- Threads ---

TEST_F(WindowCreationTest, anotherThreadDoesNotFindTheObject)
{
    TestWnd window;
    ASSERT_TRUE(window.create());
    const CWnd* seen = &window;
    std::size_t count = 99;
    std::thread(
        [&, handle = window.m_hWnd]
        {
            seen = CWnd::FromHandlePermanent(handle);
            count = AfxPermanentWindowCount();
        })
        .join();
    EXPECT_EQ(seen, nullptr);
    EXPECT_EQ(count, 0U);
    window.DestroyWindow();
}

TEST_F(WindowCreationTest, everyThreadHasWindowsOfItsOwn)
{
    TestWnd window;
    ASSERT_TRUE(window.create());
    LRESULT answer = 0;
    std::thread(
        [&]
        {
            TestWnd other;
            EXPECT_TRUE(other.create());
            EXPECT_EQ(AfxPermanentWindowCount(), 1U);
            CWnd::FromHandle(window.m_hWnd);
            answer = other.SendMessage(WM_APP);
            other.DestroyWindow();
        })
        .join();
    EXPECT_EQ(answer, TestWnd::classAnswer);
    EXPECT_TRUE(::IsWindow(window)) << "a temporary object took somebody's window along";
    window.DestroyWindow();
}

} // namespace
