#pragma once

#include "kernel/OdString.h"
#include "plothost/EditQuery.h"

#include <string>

// Why the module's answer was no, in one line of UTF-8 without line end, as far as a host can find out afterwards.
namespace plothost
{
// Whether the module takes a device name for a configuration's.
bool isConfigurationName(const OdString& name);

// Why there is no printer behind a device name.
std::string whyNoPrinterFor(const OdString& deviceName, const OdString& searchPath);

// Why the editor did not open.
std::string whyNotEdited(const EditQuestion& question, const OdString& searchPath);
} // namespace plothost
