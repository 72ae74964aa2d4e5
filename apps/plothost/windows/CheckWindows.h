#pragma once

#include "win32/windows/MessageWindow.h"

#include <functional>
#include <list>
#include <utility>

namespace plothost
{
// Where the results of background checks arrive: one hidden window for each question, so that a result shows which
// question it belongs to. A window stays until its answer has come, also when nobody waits for it any more: were it
// destroyed earlier, the system might give its number to the window of a later question.
class CheckWindows
{
public:
    using Answered = std::function<void(unsigned question, bool found)>;

    // answered is called from the message loop of the thread that made this, once for each question.
    explicit CheckWindows(Answered answered) : m_answered(std::move(answered)) {}
    CheckWindows(const CheckWindows&) = delete;
    CheckWindows& operator=(const CheckWindows&) = delete;

    // A window for one question; null when the system gives none.
    HWND open(unsigned question);

    // For a question that was not asked after all.
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
