#pragma once

#include "win32/windows/SystemHandles.h"

#include <functional>

// Watches what is sent to the windows of the thread that made the object, before they get it. One at a time.
class SentMessages
{
public:
    // Called for each message, on that thread.
    using Watcher = std::function<void(HWND window, UINT message, WPARAM wParam, LPARAM lParam)>;

    explicit SentMessages(Watcher watcher);
    ~SentMessages();
    SentMessages(const SentMessages&) = delete;
    SentMessages& operator=(const SentMessages&) = delete;

private:
    Watcher m_watcher;
    HookHandle m_hook;
};
