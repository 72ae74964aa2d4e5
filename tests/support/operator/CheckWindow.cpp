#include "tests/support/operator/CheckWindow.h"

#include <stdexcept>

namespace editordriver
{
namespace
{
constexpr UINT printerChecked = WM_USER + 101;
const wchar_t* const className = L"EditorDriverChecks";
} // namespace

CheckWindow::CheckWindow()
{
    WNDCLASSW windowClass = {};
    windowClass.lpfnWndProc = &CheckWindow::procedure;
    windowClass.hInstance = ::GetModuleHandleW(nullptr);
    windowClass.lpszClassName = className;
    ::RegisterClassW(&windowClass);
    m_window =
        ::CreateWindowExW(0, className, L"", 0, 0, 0, 0, 0, HWND_MESSAGE, nullptr, windowClass.hInstance, nullptr);
    if (!m_window)
        throw std::runtime_error("the system gives no window");
    ::SetWindowLongPtrW(m_window, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(this));
}

CheckWindow::~CheckWindow()
{
    ::DestroyWindow(m_window);
}

std::optional<bool> CheckWindow::next()
{
    const std::lock_guard lock(m_mutex);
    if (m_reports.empty())
        return std::nullopt;
    const bool found = m_reports.front();
    m_reports.pop_front();
    return found;
}

LRESULT CALLBACK CheckWindow::procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam)
{
    if (message != printerChecked)
        return ::DefWindowProcW(window, message, wParam, lParam);
    auto* self = reinterpret_cast<CheckWindow*>(::GetWindowLongPtrW(window, GWLP_USERDATA));
    const std::lock_guard lock(self->m_mutex);
    self->m_reports.push_back(wParam != 0);
    return 0;
}
} // namespace editordriver
