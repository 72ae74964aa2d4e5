#pragma once

#include "win32/windows/SystemHandles.h"

#include <functional>
#include <string>
#include <vector>

// Presses OK in every message box this thread shows and keeps what it said. A hook, not a second thread: a box shown
// while a library is loaded blocks the start of threads.
class MessageBoxAnswerer
{
public:
    struct Box
    {
        std::wstring caption;
        std::wstring text;
        HWND owner;
    };

    // Dialogs look like message boxes: a program that has dialogs must specify which.
    using IsDialog = bool (*)(HWND window);

    explicit MessageBoxAnswerer(IsDialog isDialog = nullptr);
    ~MessageBoxAnswerer();
    MessageBoxAnswerer(const MessageBoxAnswerer&) = delete;
    MessageBoxAnswerer& operator=(const MessageBoxAnswerer&) = delete;

    const std::vector<Box>& boxes() const noexcept { return m_boxes; }

    // Runs when a box is up, before it is answered.
    std::function<void()> m_whileOpen;

private:
    static LRESULT CALLBACK hook(int code, WPARAM wParam, LPARAM lParam);
    void answer(HWND box);

    IsDialog m_isDialog;
    HookHandle m_hook;
    std::vector<Box> m_boxes;
};
