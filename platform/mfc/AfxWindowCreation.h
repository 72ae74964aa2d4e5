#pragma once

class CWnd;

// Attaches an object to the next window that this thread creates, and subclasses it, before the window sees its first
// message. Input method windows, which the system creates in between, are skipped. An object that already has a window
// is left as it is. Throws std::bad_alloc, and CInvalidArgException if the system refuses the hook.
void AfxHookWindowCreate(CWnd* pWnd);

// Removes the hook; false if no window was created in the meantime. Not needed once a window was created: the hook then
// removes itself.
bool AfxUnhookWindowCreate() noexcept;

// Sets the hook for a scope. An object that was already waiting in an enclosing scope keeps waiting afterwards.
class AfxWindowCreation
{
public:
    explicit AfxWindowCreation(CWnd* pWnd);
    AfxWindowCreation(const AfxWindowCreation&) = delete;
    AfxWindowCreation& operator=(const AfxWindowCreation&) = delete;
    ~AfxWindowCreation();

private:
    CWnd* m_outer;
};
