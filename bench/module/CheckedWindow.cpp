#include "bench/module/CheckedWindow.h"

#include <stdexcept>

namespace modulebench
{
namespace
{
constexpr DWORD longestWait = 30'000;

bool nextMessage(MSG& message)
{
    while (!::PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE))
        if (::MsgWaitForMultipleObjects(0, nullptr, FALSE, longestWait, QS_ALLINPUT) == WAIT_TIMEOUT)
            return false;
    return true;
}
} // namespace

CheckedWindow::CheckedWindow(UINT message) : m_message(message)
{
    if (!m_window.handle())
        throw std::runtime_error("cannot create a window");
}

void CheckedWindow::await(std::size_t answers)
{
    while (answers > 0)
    {
        MSG message = {};
        if (!nextMessage(message))
            throw std::runtime_error("a background check does not answer");
        if (message.hwnd != m_window.handle() || message.message != m_message)
        {
            ::DispatchMessageW(&message);
            continue;
        }
        if (message.wParam == 0)
            throw std::runtime_error("a background check found no printer");
        --answers;
    }
}
} // namespace modulebench
