#include "tests/support/operator/CheckWindow.h"

#include <stdexcept>

namespace editordriver
{
namespace
{
constexpr UINT printerChecked = WM_USER + 101;
} // namespace

CheckWindow::CheckWindow()
{
    if (!m_window.handle())
        throw std::runtime_error("cannot create a window");
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

std::optional<LRESULT> CheckWindow::handle(UINT message, WPARAM first)
{
    if (message != printerChecked)
        return std::nullopt;
    const std::lock_guard lock(m_mutex);
    m_reports.push_back(first != 0);
    return 0;
}
} // namespace editordriver
