#include "spooler/Handles.h"

#include <algorithm>
#include <string>

PrinterHandle openPrinter(const WCHAR* name)
{
    static constexpr WCHAR nameless[] = {0};
    // A failed open may still have written to its out parameter, so the handle is taken only on success; otherwise we
    // would close one that belongs to other code.
    HANDLE raw = nullptr;
    if (!::OpenPrinterW(const_cast<WCHAR*>(name ? name : nameless), &raw, nullptr))
        return {};
    return PrinterHandle(raw);
}

DeviceContext createDeviceContext(const WCHAR* driver, const WCHAR* printer, const DEVMODEW* devMode)
{
    // Copies, because drivers have been seen to write into texts they must not change.
    std::basic_string<WCHAR> driverText(driver);
    std::basic_string<WCHAR> printerText(printer);
    return DeviceContext(::CreateDCW(driverText.c_str(), printerText.c_str(), nullptr, devMode));
}

int dotsPerInch(HDC dc, int index)
{
    return std::max(::GetDeviceCaps(dc, index), 0);
}
