#pragma once

#include "GarmPC3Editor/Model/Fault.h"

#include <string>

namespace apps
{
// Why something failed, in one line of UTF-8 without line end: "key 'type' is missing in block 'io'". "" for no fault.
std::string textOf(const Fault& fault);

// The same for a printer that the system cannot open: "printer 'X' cannot be opened: access is denied (error 5)".
std::string whyNotOpened(OdStringView printer, unsigned long systemError);
} // namespace apps
