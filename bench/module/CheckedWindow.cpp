#include "bench/module/CheckedWindow.h"

#include <stdexcept>

namespace modulebench
{
namespace
{
constexpr DWORD longestWait = 30'000;
const wchar_t* const className = L"ModuleBenchChecked";

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
    WNDCLASSW windowClass = {};
    windowClass.lpfnWndProc = &::DefWindowProcW;
    windowClass.hInstance = ::GetModuleHandleW(nullptr);
    windowClass.lpszClassName = className;
    ::RegisterClassW(&windowClass);
    m_window =
        ::CreateWindowExW(0, className, L"", 0, 0, 0, 0, 0, HWND_MESSAGE, nullptr, windowClass.hInstance, nullptr);
    if (!m_window)
        throw std::runtime_error("the system gives no window");
}

CheckedWindow::~CheckedWindow()
{
    ::DestroyWindow(m_window);
}

void CheckedWindow::await(std::size_t answers)
{
    while (answers > 0)
    {
        MSG message = {};
        if (!nextMessage(message))
            throw std::runtime_error("a background check does not answer");
        if (message.hwnd != m_window || message.message != m_message)
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
