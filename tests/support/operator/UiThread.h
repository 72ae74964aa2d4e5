#pragma once

#include "win32/windows/MessageWindow.h"

#include <atomic>
#include <functional>
#include <optional>

namespace editordriver
{
// The way from the script's thread to the one that has the windows: an invisible window of the latter. Whatever modal
// loop is running there hands its messages on. Make it and run() on the thread of the windows, call the rest from the
// script's.
class UiThread
{
public:
    UiThread();

    // The message loop, until quit().
    void run();
    void quit();

    DWORD id() const noexcept { return m_id; }

    // Does the work on that thread now, between two messages; what it throws comes back.
    void doNow(const std::function<void()>& work);

    // Starts the work there and does not wait for it. It must not throw.
    void start(std::function<void()> work);

    // Waits until everything posted so far has been handled, or is being handled in a modal loop of its own.
    void settle();

private:
    std::optional<LRESULT> handle(UINT message, WPARAM first, LPARAM second);

    DWORD m_id;
    std::atomic<unsigned> m_marksPosted = 0;
    std::atomic<unsigned> m_marksSeen = 0;
    MessageWindow m_window{[this](UINT message, WPARAM first, LPARAM second)
                           { return handle(message, first, second); }};
};

// Waits until the condition holds. Throws std::runtime_error, naming what was waited for, when that takes more than
// half a minute.
void await(const char* what, const std::function<bool()>& condition);
} // namespace editordriver
