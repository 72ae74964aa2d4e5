#include "tests/win/mfc/WindowTest.h"

#include <string_view>

namespace
{
LRESULT CALLBACK classProcedure(HWND hWnd, UINT message, WPARAM wParam, LPARAM lParam)
{
    const bool isOfTheTests = message == WM_COMMAND || message == WM_NOTIFY || message >= WM_APP;
    if (!isOfTheTests)
        return ::DefWindowProcW(hWnd, message, wParam, lParam);
    MSG reached = {};
    reached.hwnd = hWnd;
    reached.message = message;
    reached.wParam = wParam;
    reached.lParam = lParam;
    TestWnd::reachedClass().push_back(reached);
    return TestWnd::classAnswer;
}

bool belongsToTheSystem(HWND hWnd)
{
    WCHAR name[32] = {};
    ::GetClassNameW(hWnd, name, 32);
    const std::wstring_view text(name);
    return text == L"IME" || text == L"MSCTFIME UI";
}

BOOL CALLBACK countWindow(HWND hWnd, LPARAM count)
{
    if (belongsToTheSystem(hWnd))
        return TRUE;
    ++*reinterpret_cast<int*>(count);
    ::EnumChildWindows(hWnd, &countWindow, count);
    return TRUE;
}
} // namespace

WindowTest::WindowTest()
{
    TestWnd::className();
    TestWnd::reachedClass().clear();
}

void WindowTest::TearDown()
{
    pump();
    EXPECT_EQ(AfxPermanentWindowCount(), 0U) << "an object is still in the map";
    EXPECT_EQ(windowsOfThread(), 0) << "a window was left behind";
    const AFX_THREAD_STATE& state = AfxGetThreadState();
    EXPECT_EQ(state.m_depth, 0);
    EXPECT_EQ(state.m_scope, nullptr);
    EXPECT_EQ(state.m_pWndInit, nullptr);
    EXPECT_FALSE(state.m_hHookCreate);
    EXPECT_EQ(state.m_hLockoutNotifyWindow, nullptr);
}

int WindowTest::windowsOfThread()
{
    int count = 0;
    ::EnumThreadWindows(::GetCurrentThreadId(), &countWindow, reinterpret_cast<LPARAM>(&count));
    return count;
}

HWND WindowTest::createPlainWindow()
{
    return ::CreateWindowExW(0, TestWnd::className(), L"", WS_OVERLAPPEDWINDOW, 0, 0, 10, 10, nullptr, nullptr, nullptr,
                             nullptr);
}

void WindowTest::pump()
{
    MSG message = {};
    while (::PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE))
        ::DispatchMessageW(&message);
}

std::vector<MSG>& TestWnd::reachedClass()
{
    static std::vector<MSG> messages;
    return messages;
}

LPCWSTR TestWnd::className()
{
    static const ATOM atom = []
    {
        WNDCLASSW description = {};
        description.lpfnWndProc = &classProcedure;
        description.hInstance = ::GetModuleHandleW(nullptr);
        description.lpszClassName = L"MfcTestWindow";
        return ::RegisterClassW(&description);
    }();
    return reinterpret_cast<LPCWSTR>(static_cast<ULONG_PTR>(atom));
}

BOOL TestWnd::create(CWnd* parent, DWORD style)
{
    return CreateEx(0, className(), L"Test window", style, 10, 20, 300, 200, parent ? parent->m_hWnd : nullptr,
                    nullptr);
}
