#pragma once

#include "kernel/OdString.h"

#include <optional>

class DevModeView;
class GmPrinterInfo;

// The name of the paper that a driver's default device mode proposes; nothing when it proposes none. A form's name goes
// before the code; a code that the driver does not list is "User" followed by the decimal code. What a takeover makes
// of the name later is its own rule.
std::optional<OdString> proposedPaper(const DevModeView& devMode, GmPrinterInfo& printer);
