#pragma once

#include "kernel/OdArray.h"
#include "kernel/OdString.h"

#include <cstdint>

// The printer and settings of a plot device.
struct PrinterAnswer
{
    OdString printerName;           // empty when no printer could be determined
    OdArray<unsigned char> devMode; // dmSize + dmDriverExtra bytes; empty when there is none
    OdString paperName;             // the last three only for a configuration that could be read
    std::int16_t driverType = 0;
    OdString canonicalModelName;
};

// Determines the printer of a device name: a configuration's printer if the name ends in ".pc3", otherwise the Windows
// printer of that name, if it opens. Returns true if answer has a printer name. The answer's old content is discarded;
// if the configuration was read but names no printer, the other values are still set from it.
//
// Uses nothing of the host but its search path, so any thread may call it. Any failure, including an exception in a
// driver, returns false.
bool queryPrinter(const OdString& deviceName, PrinterAnswer& answer) noexcept;
