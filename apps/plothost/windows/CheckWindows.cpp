#include "plothost/windows/CheckWindows.h"

#include "plothost/DevModeQuery.h"

#include <algorithm>
#include <utility>

namespace plothost
{
HWND CheckWindows::open(unsigned question)
{
    const auto handle = [this, question](UINT message, WPARAM first, LPARAM) -> std::optional<LRESULT>
    {
        if (message != backgroundMessage)
            return std::nullopt;
        m_windows.remove_if([question](const Window& window) { return window.question == question; });
        m_answered(question, first != 0);
        return 0;
    };
    const HWND window = m_windows.emplace_back(question, handle).window.handle();
    if (!window)
        m_windows.pop_back();
    return window;
}

void CheckWindows::close(HWND window)
{
    m_windows.remove_if([window](const Window& open) { return open.window.handle() == window; });
}
} // namespace plothost
