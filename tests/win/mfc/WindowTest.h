#pragma once

#include "mfc/AfxThreadState.h"
#include "mfc/CWnd.h"

#include <gtest/gtest.h>

// A test with windows. Each ends with an empty map and without a window left on its thread.
class WindowTest : public ::testing::Test
{
protected:
    WindowTest();
    void TearDown() override;

    // Windows of this thread and their children that are not the input method's.
    static int windowsOfThread();

    // Hands on everything that waits in this thread's queue.
    static void pump();
};

// A top-level window with the test's own class, hidden.
class TestWnd : public CWnd
{
public:
    // The first message number of the tests' own.
    static constexpr UINT firstMessage = WM_APP;

    BOOL create(CWnd* parent = nullptr, DWORD style = WS_OVERLAPPEDWINDOW);
    // The class behind it; its procedure answers 4711 to every message from WM_APP + 100 on.
    static LPCWSTR className();
};
