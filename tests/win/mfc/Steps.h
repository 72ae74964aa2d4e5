#pragma once

#include "mfc/CWnd.h"

#include <deque>
#include <functional>
#include <utility>

// What a test does with a window, step by step: each step runs from a posted message and so from the innermost loop
// that runs. All steps that are there when the window begins are in the queue one after the other, so a loop that a
// step runs gets the next one.
template <class Window>
class Steps
{
public:
    using Step = std::function<void(Window&)>;

    static constexpr UINT message = WM_APP + 300;

    // To a window that exists a step may be added when its time has come.
    void add(Step step, const CWnd& window)
    {
        m_steps.push_back(std::move(step));
        if (window.m_hWnd && m_steps.size() == 1)
            window.PostMessage(message);
    }

    // For the window's OnInitDialog.
    void begin(const CWnd& window) const
    {
        if (!m_steps.empty())
            window.PostMessage(message);
    }

    // For the window's handler of the message.
    LRESULT runNext(Window& window)
    {
        const Step step = std::move(m_steps.front());
        m_steps.pop_front();
        // The next one waits in the queue already: a step may run a loop of its own.
        begin(window);
        step(window);
        return 0;
    }

private:
    std::deque<Step> m_steps;
};
