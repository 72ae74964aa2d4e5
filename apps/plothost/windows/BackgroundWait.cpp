#include "plothost/windows/BackgroundWait.h"

namespace plothost
{
std::optional<LRESULT> BackgroundWait::handle(UINT message, WPARAM first)
{
    if (message < WM_USER)
        return std::nullopt;
    // A posted message waits in the queue until waitFor takes it, so it cannot come too early.
    if (message == m_awaited)
        m_answer = first;
    return 0;
}

std::optional<WPARAM> BackgroundWait::waitFor(UINT message, DWORD milliseconds)
{
    m_awaited = message;
    const ULONGLONG end = ::GetTickCount64() + milliseconds;
    while (!m_answer)
    {
        MSG next;
        // cppcheck-suppress knownConditionTrueFalse ; a message that is dispatched here brings the answer
        while (!m_answer && ::PeekMessageW(&next, nullptr, 0, 0, PM_REMOVE))
            ::DispatchMessageW(&next);
        const ULONGLONG now = ::GetTickCount64();
        if (m_answer || now >= end)
            break;
        ::MsgWaitForMultipleObjects(0, nullptr, FALSE, static_cast<DWORD>(end - now), QS_ALLINPUT);
    }
    return m_answer;
}
} // namespace plothost
