#pragma once

#include "win32/windows/SystemHandles.h"

#include <memory>
#include <unordered_map>
#include <utility>
#include <vector>

class AfxExceptionScope;
class CWnd;

// What one thread knows about its windows. Windows belong to threads, so nothing here needs a lock, and no thread may
// use another thread's window objects.
class AFX_THREAD_STATE
{
public:
    AFX_THREAD_STATE();
    AFX_THREAD_STATE(const AFX_THREAD_STATE&) = delete;
    AFX_THREAD_STATE& operator=(const AFX_THREAD_STATE&) = delete;
    ~AFX_THREAD_STATE();

    // Windows that have an object of their own; the objects belong to the code that created them.
    std::unordered_map<HWND, CWnd*> m_windows;
    // Objects created for other windows on demand, in the order of their creation.
    std::vector<std::unique_ptr<CWnd>> m_temporary;

    // The message being handled at the innermost level.
    MSG m_lastSentMsg = {};
    // The current nesting of window procedures and exception scopes.
    int m_depth = 0;
    // How many temporary objects there were when the outermost of them began.
    std::size_t m_temporaryBefore = 0;

    // The object that the next created window is attached to, and the hook that attaches it.
    CWnd* m_pWndInit = nullptr;
    HookHandle m_hHookCreate;

    // The dialog whose controls are being exchanged; it ignores their notifications meanwhile.
    HWND m_hLockoutNotifyWindow = nullptr;

    // Where the next exception of a window procedure is stored.
    AfxExceptionScope* m_scope = nullptr;
};

// This thread's state, created on first use and destroyed with the thread or the module. Throws std::bad_alloc.
AFX_THREAD_STATE& AfxGetThreadState();

// This thread's state, or null if it has none yet.
AFX_THREAD_STATE* AfxFindThreadState() noexcept;

// One level of message handling. When the outermost one ends, the temporary objects created within it are destroyed.
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

// How many of this thread's windows have an object of their own.
std::size_t AfxPermanentWindowCount() noexcept;
