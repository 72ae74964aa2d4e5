#pragma once

#include "mfc/AfxThreadState.h"
#include "mfc/CWnd.h"

#include <gtest/gtest.h>

#include <vector>

// A test with windows. Each ends with an empty map and without a window left on its thread.
class WindowTest : public ::testing::Test
{
protected:
    WindowTest();
    void TearDown() override;

    // Windows of this thread and their children that are not the input method's.
    static int windowsOfThread();

    // A hidden window of the tests' class without an object.
    static HWND createPlainWindow();

    // Hands on everything that waits in this thread's queue.
    static void pump();
};

// A top-level window with the test's own class, hidden.
class TestWnd : public CWnd
{
public:
    BOOL create(CWnd* parent = nullptr, DWORD style = WS_OVERLAPPEDWINDOW);

    // The base class. Its procedure records the tests' messages that reach it and returns 4711.
    static LPCWSTR className();
    static constexpr LRESULT classAnswer = 4711;
    static std::vector<MSG>& reachedClass();
};
