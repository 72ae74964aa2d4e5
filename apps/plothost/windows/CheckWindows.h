#pragma once

#include "win32/windows/MessageWindow.h"

#include <functional>
#include <list>
#include <utility>

namespace plothost
{
// Receives the results of background checks: one hidden window per question, so that a result is matched to its
// question. A window stays until its answer has arrived, even if nothing waits for it any more: otherwise the system
// might reuse its handle for a later question's window.
class CheckWindows
{
public:
    using Answered = std::function<void(unsigned question, bool found)>;

    // answered is called from the message loop of the creating thread, once per question.
    explicit CheckWindows(Answered answered) : m_answered(std::move(answered)) {}
    CheckWindows(const CheckWindows&) = delete;
    CheckWindows& operator=(const CheckWindows&) = delete;

    // A window for one question; null if it cannot be created.
    HWND open(unsigned question);

    // For a question that could not be asked.
    void close(HWND window);

private:
    struct Window
    {
        Window(unsigned asked, MessageWindow::Handler handler) : question(asked), window(std::move(handler)) {}

        unsigned question;
        MessageWindow window;
    };

    Answered m_answered;
    std::list<Window> m_windows;
};
} // namespace plothost
