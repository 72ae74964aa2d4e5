#pragma once

#include "win32/Win32.h"

#include <functional>
#include <string>
#include <vector>

// Answers every message box that this thread shows with OK, and keeps what it said. Dialogs of our own are left alone.
class BoxAnswerer
{
public:
    struct Box
    {
        std::wstring caption;
        std::wstring text;
        HWND owner;
    };

    BoxAnswerer();
    ~BoxAnswerer();
    BoxAnswerer(const BoxAnswerer&) = delete;
    BoxAnswerer& operator=(const BoxAnswerer&) = delete;

    const std::vector<Box>& boxes() const noexcept { return m_boxes; }

    // Runs when a box is up, before it is answered.
    std::function<void()> m_whileOpen;

private:
    static LRESULT CALLBACK hook(int code, WPARAM wParam, LPARAM lParam);

    HHOOK m_hook;
    std::vector<Box> m_boxes;
};
