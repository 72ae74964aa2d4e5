#pragma once

#include "kernel/OdString.h"

#include <cstdint>
#include <optional>

class DevModeView;
class GmPrinterInfo;

// Under which names a configuration keeps papers.

// A paper that is known by its code only: "User300".
OdString userPaperName(std::int16_t code);
// The code in such a name; false, and code untouched, for another name. The letter case does not matter.
bool userPaperCode(OdStringView name, std::int32_t& code);

// The name of the paper that a driver's default device mode proposes; nothing when it proposes none. A form's name goes
// before the code; a code that the driver does not list gives a name of the form "User300". An import of the same
// device mode has its own rule.
std::optional<OdString> proposedPaper(const DevModeView& devMode, GmPrinterInfo& printer);

// The name of the paper that is imported with a device mode; "" when the device mode flags no paper (quirk 18). Nothing
// for a code of the system's own (below 256) that the printer does not list.
std::optional<OdString> importedPaper(const DevModeView& devMode, GmPrinterInfo& printer);
