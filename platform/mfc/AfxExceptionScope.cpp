#include "mfc/AfxExceptionScope.h"

#include "kernel/OdAssert.h"

#include <utility>

AfxExceptionScope::AfxExceptionScope() : m_state(AfxGetThreadState()), m_level(m_state), m_outer(m_state.m_scope)
{
    m_state.m_scope = this;
}

AfxExceptionScope::~AfxExceptionScope()
{
    m_state.m_scope = m_outer;
}

void AfxExceptionScope::keep(std::exception_ptr exception) noexcept
{
    if (!m_exception)
        m_exception = std::move(exception);
}

void AfxExceptionScope::rethrow()
{
    if (m_exception)
        std::rethrow_exception(std::exchange(m_exception, nullptr));
}

void AfxKeepException() noexcept
{
    const AFX_THREAD_STATE* state = AfxFindThreadState();
    if (state && state->m_scope)
    {
        state->m_scope->keep(std::current_exception());
        AfxWakeMessageLoop();
        return;
    }
    odReportAssert("exception outside every modal loop", "AfxExceptionScope", __LINE__);
}

void AfxWakeMessageLoop() noexcept
{
    // To the thread, not to a window: the window may be destroyed before the loop looks.
    ::PostThreadMessageW(::GetCurrentThreadId(), WM_NULL, 0, 0);
}
