#include "plothost/windows/Display.h"

#include <windows.h>

namespace plothost
{
bool canShowWindows()
{
    const HWND window = ::CreateWindowExW(0, L"Static", L"", WS_POPUP, 0, 0, 1, 1, nullptr, nullptr,
                                          ::GetModuleHandleW(nullptr), nullptr);
    if (!window)
        return false;
    ::DestroyWindow(window);
    return true;
}
} // namespace plothost
