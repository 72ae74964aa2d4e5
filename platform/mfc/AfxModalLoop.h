#pragma once

#include "win32/Win32.h"

#include <functional>

class AfxExceptionScope;
class CWnd;

// What modal loops share.

// The owner for a modal window. A parent that is a child window is replaced by its top-level window. Without a parent
// it is the thread's active window, otherwise its topmost visible and enabled top-level window: the activation may be
// lost while another program is in front, and a modal window without an owner could end up behind a window that still
// takes input. Null if the thread shows no window.
HWND AfxGetSafeOwner(HWND hParent) noexcept;

// Disables a modal window's owner. An owner that was disabled before stays disabled.
class AfxDisabledOwner
{
public:
    explicit AfxDisabledOwner(HWND hOwner) noexcept; // null and the desktop are left alone
    AfxDisabledOwner(const AfxDisabledOwner&) = delete;
    AfxDisabledOwner& operator=(const AfxDisabledOwner&) = delete;
    ~AfxDisabledOwner() { enable(); }

    // Call before the modal window is destroyed: the system activates the next enabled window.
    void enable() noexcept;
    // Call after it was destroyed.
    void activate() const noexcept;

    HWND get() const noexcept { return m_hOwner; }

private:
    HWND m_hOwner;
    bool m_disabled = false;
};

// Runs messages for a modal window until goesOn says no. It also ends when the program is to quit, which is passed on
// to the loop around this one.
void AfxRunModalLoop(const CWnd& window, const std::function<bool()>& goesOn);

// Destroys a window through its virtual DestroyWindow, and once more if that did not. An exception goes into the scope.
void AfxDestroyModalWindow(CWnd& window, AfxExceptionScope& scope);

// One run of a modal window: run creates it for the owner and runs its loop, destroy destroys it. The owner is disabled
// meanwhile. An exception goes into the scope.
void AfxRunModal(const CWnd* pParent, AfxExceptionScope& scope, const std::function<void(HWND owner)>& run,
                 const std::function<void()>& destroy);
