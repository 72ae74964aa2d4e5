#include "plothost/windows/BackgroundWait.h"

namespace plothost
{
namespace
{
const wchar_t* const className = L"PlothostMessages";
} // namespace

MessageWindow::MessageWindow()
{
    WNDCLASSEXW windowClass = {};
    windowClass.cbSize = sizeof(windowClass);
    windowClass.lpfnWndProc = &MessageWindow::procedure;
    windowClass.hInstance = ::GetModuleHandleW(nullptr);
    windowClass.lpszClassName = className;
    ::RegisterClassExW(&windowClass);
    m_window =
        ::CreateWindowExW(0, className, L"", 0, 0, 0, 0, 0, HWND_MESSAGE, nullptr, windowClass.hInstance, nullptr);
    if (m_window)
        ::SetWindowLongPtrW(m_window, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(this));
}

MessageWindow::~MessageWindow()
{
    if (m_window)
        ::DestroyWindow(m_window);
    ::UnregisterClassW(className, ::GetModuleHandleW(nullptr));
}

LRESULT CALLBACK MessageWindow::procedure(HWND window, UINT message, WPARAM first, LPARAM second)
{
    auto* self = reinterpret_cast<MessageWindow*>(::GetWindowLongPtrW(window, GWLP_USERDATA));
    if (!self || message < WM_USER)
        return ::DefWindowProcW(window, message, first, second);
    // A posted message waits in the queue until waitFor takes it, so it cannot come too early.
    if (message == self->m_awaited)
        self->m_answer = first;
    return 0;
}

std::optional<WPARAM> MessageWindow::waitFor(UINT message, DWORD milliseconds)
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
