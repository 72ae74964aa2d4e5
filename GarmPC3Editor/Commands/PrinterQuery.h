#pragma once

#include "kernel/OdArray.h"
#include "kernel/OdString.h"

#include <cstdint>

// The printer of a plot device.
struct PrinterAnswer
{
    OdString printerName;           // empty when no printer could be determined
    OdArray<unsigned char> devMode; // dmSize + dmDriverExtra bytes; empty when there is none
    OdString paperName;             // the last three only for a configuration that could be read
    std::int16_t driverType = 0;
    OdString canonicalModelName;
};

// Determines the printer of a device name: that of a configuration for a name that ends in ".pc3", otherwise the
// Windows printer of that name, if it opens. True when answer holds a printer name. The previous contents of answer are
// dropped; when the configuration was read and names no printer, its other values are still in answer.
//
// Uses no object of the host but its search path, so any thread may call it. False for any failure on the way, an
// exception of a driver included.
bool queryPrinter(const OdString& deviceName, PrinterAnswer& answer) noexcept;
