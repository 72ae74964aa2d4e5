#pragma once

#include "kernel/OdString.h"

#include <cstdint>
#include <optional>

class DevModeView;
class GmPrinterInfo;

// The names under which a configuration stores papers.

// The name of a paper with only a code: "User300".
OdString userPaperName(std::int16_t code);
// The code in such a name, ignoring case; returns false and leaves code untouched for any other name.
bool userPaperCode(OdStringView name, std::int32_t& code);

// The name of the paper in a driver's default device mode; nothing if it has none. A form name takes precedence over
// the code; a code that the driver does not list gives a name like "User300". An import of the same device mode has its
// own rule.
std::optional<OdString> proposedPaper(const DevModeView& devMode, GmPrinterInfo& printer);

// The name of the paper that is imported with a device mode; "" if the device mode flags no paper (quirk 18). Nothing
// for a code of the system's own (below 256) that the printer does not list.
std::optional<OdString> importedPaper(const DevModeView& devMode, GmPrinterInfo& printer);
