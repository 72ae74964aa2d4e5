#include "plothost/windows/CheckWindows.h"

#include "plothost/DevModeQuery.h"

#include <algorithm>
#include <utility>

namespace plothost
{
namespace
{
const wchar_t* const className = L"PlothostCheck";
} // namespace

CheckWindows::CheckWindows(Answered answered) : m_answered(std::move(answered))
{
    WNDCLASSEXW windowClass = {};
    windowClass.cbSize = sizeof(windowClass);
    windowClass.lpfnWndProc = &CheckWindows::procedure;
    windowClass.hInstance = ::GetModuleHandleW(nullptr);
    windowClass.lpszClassName = className;
    ::RegisterClassExW(&windowClass);
}

CheckWindows::~CheckWindows()
{
    for (const Window& window : m_windows)
        ::DestroyWindow(window.handle);
    ::UnregisterClassW(className, ::GetModuleHandleW(nullptr));
}

HWND CheckWindows::open(unsigned question)
{
    Window& window = m_windows.emplace_back();
    window.owner = this;
    window.question = question;
    window.handle = ::CreateWindowExW(0, className, L"", 0, 0, 0, 0, 0, HWND_MESSAGE, nullptr,
                                      ::GetModuleHandleW(nullptr), nullptr);
    if (!window.handle)
    {
        m_windows.pop_back();
        return nullptr;
    }
    ::SetWindowLongPtrW(window.handle, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(&window));
    return window.handle;
}

void CheckWindows::close(HWND window)
{
    const auto found = std::find_if(m_windows.begin(), m_windows.end(),
                                    [window](const Window& open) { return open.handle == window; });
    if (found == m_windows.end())
        return;
    ::DestroyWindow(window);
    m_windows.erase(found);
}

LRESULT CALLBACK CheckWindows::procedure(HWND handle, UINT message, WPARAM first, LPARAM second)
{
    auto* const window = reinterpret_cast<Window*>(::GetWindowLongPtrW(handle, GWLP_USERDATA));
    if (!window || message != backgroundMessage)
        return ::DefWindowProcW(handle, message, first, second);
    CheckWindows& owner = *window->owner;
    const unsigned question = window->question;
    owner.close(handle);
    owner.m_answered(question, first != 0);
    return 0;
}
} // namespace plothost
