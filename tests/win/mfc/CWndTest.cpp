#include "tests/win/mfc/WindowTest.h"

#include "mfc/AfxExceptionScope.h"
#include "mfc/AfxWindowCreation.h"

#include <stdexcept>
#include <thread>
#include <vector>

namespace
{
using CWndTest = WindowTest;

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

TEST_F(CWndTest, TheObjectSeesItsWindowFromTheFirstMessageToTheLast)
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

TEST_F(CWndTest, PostNcDestroyComesOnceAfterTheObjectIsDetached)
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
} // namespace
