#pragma once

#include "kernel/OdString.h"
#include "plothost/Reports.h"
#include "plothost/WhyNot.h"

#include <string>
#include <vector>

namespace plothost
{
// The printers of this machine in the system's order, each once.
std::vector<ListReport::Printer> installedPrinterList();

// What can be plotted on: the printers, and the configurations of the search path. unreadable gets the folders that
// cannot be read.
ListReport plotterList(const OdString& searchPath, std::vector<OdString>& unreadable);

InstalledDrivers installedDrivers();

// 0 when the printer opens, otherwise what the system answered.
unsigned long openError(const OdString& printer);

// Why a printer does not open, with the nearest name that is installed.
std::string whyNoPrinter(const OdString& printer, unsigned long error);

// Why no configuration can be made for a printer, as far as its driver tells.
std::string whyNotCreated(const OdString& printer);
} // namespace plothost
