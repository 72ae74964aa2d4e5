#pragma once

#include "kernel/OdString.h"
#include "win32/Win32.h"

#include <vector>

// What the host itself asks the drivers of installed printers. A driver that fails or throws gives nothing.
namespace plothost
{
struct DriverPaper
{
    OdString name; // at most 64 units
    WORD code = 0; // as in dmPaperSize; 0 when the driver gives none

    friend bool operator==(const DriverPaper&, const DriverPaper&) = default;
};

// A printer's papers in the driver's order; those without a name are left out.
std::vector<DriverPaper> driverPapers(const OdString& printer);

// The default device mode of a printer's driver; empty when there is none.
std::vector<BYTE> driverDefaults(const OdString& printer);

// Undoes what device modes passed through the drivers of the local printers left behind: on some systems the last one
// stays the driver's default for the rest of the process, so "the driver's defaults" would be what was edited before.
// Passing the block through that the spooler keeps for the printer sets it back.
void resetDriverDefaults();
} // namespace plothost
