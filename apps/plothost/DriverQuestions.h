#pragma once

#include "kernel/OdString.h"
#include "win32/Win32.h"

#include <vector>

// The host's own queries to the drivers of installed printers. If a driver fails or throws, the result is empty.
namespace plothost
{
struct DriverPaper
{
    OdString name; // at most 64 units
    WORD code = 0; // as in dmPaperSize; 0 if the driver has none

    friend bool operator==(const DriverPaper&, const DriverPaper&) = default;
};

// A printer's papers in the driver's order; those without a name are left out.
std::vector<DriverPaper> driverPapers(const OdString& printer);

// The default device mode of a printer's driver; empty when there is none.
std::vector<BYTE> driverDefaults(const OdString& printer);

// Resets the drivers of the local printers after device modes have been passed through them: on some systems the last
// one stays the driver's default for the rest of the process, so "the driver's defaults" would be the previous edits.
// Passing the spooler's own block for the printer through the driver resets it.
void resetDriverDefaults();
} // namespace plothost
