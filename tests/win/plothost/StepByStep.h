#pragma once

#include <deque>
#include <functional>
#include <windows.h>

// Drives windows from inside their own thread: each step runs from a message that is posted when the one before has
// ended, and so from whatever message loop is then running. A step that ends a dialog or opens a message box needs no
// second thread and no waiting.
class StepByStep
{
public:
    StepByStep();
    ~StepByStep();
    StepByStep(const StepByStep&) = delete;
    StepByStep& operator=(const StepByStep&) = delete;

    using Step = std::function<void()>;
    void add(Step step);

    bool allDone() const noexcept { return m_steps.empty(); }

    // The thread's only visible dialog, or its uppermost one when there are several.
    static HWND topDialog();

private:
    static LRESULT CALLBACK procedure(HWND window, UINT message, WPARAM first, LPARAM second);

    HWND m_window = nullptr;
    std::deque<Step> m_steps;
};
