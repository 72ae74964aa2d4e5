#pragma once

#include "win32/UniqueHandle.h"

using PrinterHandle = UniqueHandle<HANDLE, &::ClosePrinter>;
using DeviceContext = UniqueHandle<HDC, &::DeleteDC>;

// An open printer, or no handle. A null name is passed on as "": null would open the print server instead.
PrinterHandle openPrinter(const WCHAR* name);

// The device context of a printer, or no handle. The driver gets copies of the texts. devMode may be null; otherwise
// its private bytes follow it.
DeviceContext createDeviceContext(const WCHAR* driver, const WCHAR* printer, const DEVMODEW* devMode);

// LOGPIXELSX or LOGPIXELSY of a device context; 0 if it does not know, which some drivers report as a negative number.
int dotsPerInch(HDC dc, int index);
