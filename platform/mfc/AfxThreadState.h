#pragma once

#include "win32/Win32.h"

#include <memory>
#include <unordered_map>
#include <utility>
#include <vector>

class AfxExceptionScope;
class CWnd;

// What one thread keeps about its windows. Windows belong to threads, so nothing here needs a lock, and no thread may
// use the window objects of another.
class AFX_THREAD_STATE
{
public:
    AFX_THREAD_STATE();
    AFX_THREAD_STATE(const AFX_THREAD_STATE&) = delete;
    AFX_THREAD_STATE& operator=(const AFX_THREAD_STATE&) = delete;
    ~AFX_THREAD_STATE();

    // Windows that have an object of their own; the objects belong to whoever made them.
    std::unordered_map<HWND, CWnd*> m_windows;
    // Objects made for other windows on demand, in the order they were made.
    std::vector<std::unique_ptr<CWnd>> m_temporary;

    // The message being handled, of the innermost level.
    MSG m_lastSentMsg = {};
    // Levels of window procedures and exception scopes under way.
    int m_depth = 0;
    // How many temporary objects there were when the outermost of them began.
    std::size_t m_temporaryBefore = 0;

    // The object that the next created window is given to, and the hook that does it.
    CWnd* m_pWndInit = nullptr;
    HHOOK m_hHookCreate = nullptr;

    // The dialog whose controls are being exchanged: their notifications are not news to it.
    HWND m_hLockoutNotifyWindow = nullptr;

    // Where the next exception of a window procedure goes.
    AfxExceptionScope* m_scope = nullptr;
};

// This thread's state, made at the first use and gone with the thread or with the module. Throws std::bad_alloc.
AFX_THREAD_STATE& AfxGetThreadState();

// This thread's state, null when it has none yet.
AFX_THREAD_STATE* AfxFindThreadState() noexcept;

// One level of handling: when the outermost ends, the temporary objects made within it go.
class AfxThreadLevel
{
public:
    explicit AfxThreadLevel(AFX_THREAD_STATE& state) noexcept;
    AfxThreadLevel(const AfxThreadLevel&) = delete;
    AfxThreadLevel& operator=(const AfxThreadLevel&) = delete;
    ~AfxThreadLevel();

private:
    AFX_THREAD_STATE& m_state;
};

// How many windows of this thread have an object of their own.
std::size_t AfxPermanentWindowCount() noexcept;
