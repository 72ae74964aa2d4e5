#pragma once

#include "win32/windows/MessageWindow.h"

#include <deque>
#include <functional>
#include <optional>

// Drives windows from inside their own thread: each step runs from a message that is posted when the one before has
// ended, and so from whatever message loop is then running. A step that ends a dialog or opens a message box needs no
// second thread and no waiting.
class StepByStep
{
public:
    using Step = std::function<void()>;
    void add(Step step);

    bool allDone() const noexcept { return m_steps.empty(); }

    // The thread's only visible dialog, or its uppermost one when there are several.
    static HWND topDialog();

private:
    std::optional<LRESULT> handle(UINT message);

    std::deque<Step> m_steps;
    MessageWindow m_window{[this](UINT message, WPARAM, LPARAM) { return handle(message); }};
};
