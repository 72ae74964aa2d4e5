#pragma once

#include "mfc/AfxThreadState.h"

#include <exception>

// An exception must not unwind through the system, which calls the window procedures. So it is caught where it would
// leave one of them and stored in the scope of the innermost function of ours that called into the system: a modal
// loop, or the creation of a dialog. That function stops what it is doing, cleans up and rethrows:
//
//     AfxExceptionScope scope;
//     ... create, and run the loop until it has ended or scope.hasException() ...
//     ... enable the owner, destroy the window ...
//     scope.rethrow();
class AfxExceptionScope
{
public:
    // Throws std::bad_alloc if there is no memory for the thread's state.
    AfxExceptionScope();
    AfxExceptionScope(const AfxExceptionScope&) = delete;
    AfxExceptionScope& operator=(const AfxExceptionScope&) = delete;
    ~AfxExceptionScope();

    bool hasException() const noexcept { return m_exception != nullptr; }

    // The first exception is kept; one thrown later, while cleaning up, is only a consequence.
    void keep(std::exception_ptr exception) noexcept;

    // Rethrows the stored exception, if there is one.
    void rethrow();

private:
    AFX_THREAD_STATE& m_state;
    AfxThreadLevel m_level;
    AfxExceptionScope* m_outer;
    std::exception_ptr m_exception;
};

// For a catch (...) just before returning to the system: stores the current exception in this thread's innermost scope
// and wakes its loop. Without a scope, as in a modeless window whose messages another program's loop dispatches, no
// code could handle it, so it is reported as a failed assertion.
void AfxKeepException() noexcept;

// Makes this thread's GetMessage return. A sent message is handled inside GetMessage, so a loop that should end would
// otherwise keep sleeping.
void AfxWakeMessageLoop() noexcept;
