#include "mfc/AfxModuleState.h"

namespace
{
// Constant-initialised: global application objects register themselves in it from their constructors.
constinit AFX_MODULE_STATE staticModuleState;

// The thread's current state. A slot of the system rather than thread_local: the compiler's emulation of thread_local
// leaks memory on every thread each time the module is unloaded.
class ThreadSlot
{
public:
    ThreadSlot() noexcept : m_index(::TlsAlloc()) {}
    ~ThreadSlot() { ::TlsFree(m_index); }
    ThreadSlot(const ThreadSlot&) = delete;
    ThreadSlot& operator=(const ThreadSlot&) = delete;

    // Null if nothing was set on this thread, and always if the system has no slot left. Preserves the last error:
    // asking for the state must not disturb a caller's error handling.
    void* get() const noexcept
    {
        const DWORD lastError = ::GetLastError();
        void* value = ::TlsGetValue(m_index);
        ::SetLastError(lastError);
        return value;
    }
    void set(void* value) const noexcept { ::TlsSetValue(m_index, value); }

private:
    DWORD m_index;
};

const ThreadSlot& currentState()
{
    static const ThreadSlot slot;
    return slot;
}
} // namespace

AFX_MODULE_STATE* AfxGetStaticModuleState() noexcept
{
    return &staticModuleState;
}

AFX_MODULE_STATE* AfxGetModuleState() noexcept
{
    auto* state = static_cast<AFX_MODULE_STATE*>(currentState().get());
    return state ? state : &staticModuleState;
}

AFX_MODULE_STATE* AfxSetModuleState(AFX_MODULE_STATE* newState) noexcept
{
    AFX_MODULE_STATE* previous = AfxGetModuleState();
    // An empty slot means the module's own state, so nothing of the module stays behind in the thread.
    currentState().set(newState == &staticModuleState ? nullptr : newState);
    return previous;
}

CWinApp* AfxGetApp() noexcept
{
    return AfxGetModuleState()->m_pCurrentWinApp;
}

HINSTANCE AfxGetInstanceHandle() noexcept
{
    return AfxGetModuleState()->m_hCurrentInstanceHandle;
}

HINSTANCE AfxGetResourceHandle() noexcept
{
    return AfxGetModuleState()->m_hCurrentResourceHandle;
}

void AfxSetResourceHandle(HINSTANCE hInstResource) noexcept
{
    AfxGetModuleState()->m_hCurrentResourceHandle = hInstResource;
}
