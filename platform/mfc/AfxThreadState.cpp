#include "mfc/AfxThreadState.h"

#include "mfc/CWnd.h"

#include <new>

namespace
{
void CALLBACK destroyState(void* state)
{
    delete static_cast<AFX_THREAD_STATE*>(state);
}

// A slot of the system rather than thread_local: the compiler's emulation of thread_local leaks memory on every thread
// each time the module is unloaded. This kind of slot has a destructor, which runs at the end of each thread, and for
// all threads when the slot is freed.
class StateSlot
{
public:
    StateSlot() noexcept : m_index(::FlsAlloc(&destroyState)) {}
    StateSlot(const StateSlot&) = delete;
    StateSlot& operator=(const StateSlot&) = delete;
    ~StateSlot()
    {
        if (m_index != FLS_OUT_OF_INDEXES)
            ::FlsFree(m_index);
    }

    AFX_THREAD_STATE* get() const noexcept
    {
        // Asking for the state must not disturb the error handling of the code that sent the message.
        const DWORD lastError = ::GetLastError();
        void* value = m_index == FLS_OUT_OF_INDEXES ? nullptr : ::FlsGetValue(m_index);
        ::SetLastError(lastError);
        return static_cast<AFX_THREAD_STATE*>(value);
    }
    bool set(AFX_THREAD_STATE* state) const noexcept
    {
        return m_index != FLS_OUT_OF_INDEXES && ::FlsSetValue(m_index, state);
    }

private:
    DWORD m_index;
};

const StateSlot& stateSlot()
{
    static const StateSlot slot;
    return slot;
}
} // namespace

AFX_THREAD_STATE::AFX_THREAD_STATE() = default;

AFX_THREAD_STATE::~AFX_THREAD_STATE()
{
    // The windows are not theirs.
    for (const auto& object : m_temporary)
        object->m_hWnd = nullptr;
    m_temporary.clear();
}

AFX_THREAD_STATE* AfxFindThreadState() noexcept
{
    return stateSlot().get();
}

AFX_THREAD_STATE& AfxGetThreadState()
{
    if (AFX_THREAD_STATE* state = AfxFindThreadState())
        return *state;
    auto state = std::make_unique<AFX_THREAD_STATE>();
    if (!stateSlot().set(state.get()))
        throw std::bad_alloc();
    return *state.release();
}

AfxThreadLevel::AfxThreadLevel(AFX_THREAD_STATE& state) noexcept : m_state(state)
{
    if (m_state.m_depth++ == 0)
        m_state.m_temporaryBefore = m_state.m_temporary.size();
}

AfxThreadLevel::~AfxThreadLevel()
{
    if (--m_state.m_depth > 0)
        return;
    while (m_state.m_temporary.size() > m_state.m_temporaryBefore)
    {
        m_state.m_temporary.back()->m_hWnd = nullptr;
        m_state.m_temporary.pop_back();
    }
}

std::size_t AfxPermanentWindowCount() noexcept
{
    const AFX_THREAD_STATE* state = AfxFindThreadState();
    return state ? state->m_windows.size() : 0;
}
