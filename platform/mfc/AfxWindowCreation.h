#pragma once

class CWnd;

// Gives the next window that this thread creates to an object, before the window sees its first message: attached and
// subclassed. Input method windows, which the system creates in between, are passed over. The object must have no
// window yet; one that has is left as it is. Throws std::bad_alloc, and CInvalidArgException when the system refuses
// the hook.
void AfxHookWindowCreate(CWnd* pWnd);

// Ends it; false when no window was created in the meantime. Not needed after a window was: the hook goes by itself
// then.
bool AfxUnhookWindowCreate() noexcept;

// Keeps the hook for a scope. An object that waited around it waits on afterwards.
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
