#include "win32/Handles.h"

PrinterHandle openPrinter(const WCHAR* name)
{
    static constexpr WCHAR nameless[] = {0};
    // A failed open may still have written to its out parameter, so the value is taken over only on success; otherwise
    // we would close a stranger's handle.
    HANDLE raw = nullptr;
    if (!::OpenPrinterW(const_cast<WCHAR*>(name ? name : nameless), &raw, nullptr))
        return {};
    return PrinterHandle(raw);
}

DeviceContext createDeviceContext(const WCHAR* driver, const WCHAR* printer, const DEVMODEW* devMode)
{
    return DeviceContext(::CreateDCW(driver, printer, nullptr, devMode));
}
