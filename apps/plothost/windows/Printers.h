#pragma once

#include "kernel/OdString.h"
#include "plothost/Reports.h"

#include <vector>

namespace plothost
{
// The printers of this machine in the system's order, each once.
std::vector<ListReport::Printer> installedPrinterList();

// The plot devices: the printers, and the configurations on the search path. unreadable receives the folders that
// cannot be read.
ListReport plotterList(const OdString& searchPath, std::vector<OdString>& unreadable);
} // namespace plothost
