#pragma once

#include "mfc/AfxThreadState.h"

#include <exception>

// An exception must not unwind through the system, which calls the window procedures. So each is caught where it would
// leave one of ours and kept here, by the innermost function of ours that called into the system and has such a scope:
// a modal loop, or the creation of a dialog. That function ends what it is doing, cleans up and throws it on:
//
//     AfxExceptionScope scope;
//     ... create, and run the loop until it has ended or scope.hasException() ...
//     ... enable the owner, destroy the window ...
//     scope.rethrow();
class AfxExceptionScope
{
public:
    // Throws std::bad_alloc when the thread cannot have a state.
    AfxExceptionScope();
    AfxExceptionScope(const AfxExceptionScope&) = delete;
    AfxExceptionScope& operator=(const AfxExceptionScope&) = delete;
    ~AfxExceptionScope();

    bool hasException() const noexcept { return m_exception != nullptr; }

    // The first one is kept: what a clean-up throws later is a consequence.
    void keep(std::exception_ptr exception) noexcept;

    // Throws on what was kept, if anything was.
    void rethrow();

private:
    AFX_THREAD_STATE& m_state;
    AfxThreadLevel m_level;
    AfxExceptionScope* m_outer;
    std::exception_ptr m_exception;
};

// For a catch (...) at the border to the system: gives the exception being handled to this thread's innermost scope and
// wakes its loop. Where there is none, as in a modeless window served by somebody else's loop, nobody could go on with
// it, and it is reported as a failed assertion.
void AfxKeepException() noexcept;

// Makes this thread's GetMessage return. A sent message is handled inside it, and a loop that is to end would sleep on.
void AfxWakeMessageLoop() noexcept;
