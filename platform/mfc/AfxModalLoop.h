#pragma once

#include "win32/Win32.h"

// What modal loops share.

// The window that a modal window is to be owned by. A parent that is a child window is climbed to its top-level window.
// Without a parent it is the thread's active window, else its topmost visible and enabled top-level window: activation
// can be lost while another program is in front, and a modal window without an owner could be left behind the one it
// belongs to, which would still take input. Null when the thread shows no window.
HWND AfxGetSafeOwner(HWND hParent) noexcept;

// Keeps a modal window's owner from taking input. An owner that was disabled before stays so.
class AfxDisabledOwner
{
public:
    explicit AfxDisabledOwner(HWND hOwner) noexcept; // null, and the desktop, are left alone
    AfxDisabledOwner(const AfxDisabledOwner&) = delete;
    AfxDisabledOwner& operator=(const AfxDisabledOwner&) = delete;
    ~AfxDisabledOwner() { enable(); }

    // Call before the modal window goes: the system activates the next window that is enabled.
    void enable() noexcept;
    // Call after it went.
    void activate() const noexcept;

    HWND get() const noexcept { return m_hOwner; }

private:
    HWND m_hOwner;
    bool m_disabled = false;
};

// The next message for a modal loop; false when the loop must end at once. That is when the program is to quit, which
// is passed on to the loop around this one.
bool AfxGetModalMessage(MSG& message) noexcept;
