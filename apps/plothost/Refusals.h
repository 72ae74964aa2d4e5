#pragma once

#include "kernel/OdString.h"
#include "plothost/EditQuery.h"

#include <string>

// Why the module failed, in one line of UTF-8 without line end, including what the host knows: its search path and the
// names that were probably meant.
namespace plothost
{
// Whether the module treats a device name as a configuration.
bool isConfigurationName(const OdString& name);

// Why a configuration file was not read.
std::string whyNotShown(const OdString& path);

// Why no configuration could be made for a printer.
std::string whyNotCreated(const OdString& printer);

// Why no printer was found for a device name.
std::string whyNoPrinterFor(const OdString& deviceName, const OdString& searchPath);

// Why the editor did not open.
std::string whyNotEdited(const EditQuestion& question, const OdString& searchPath);
} // namespace plothost
