#pragma once

#include "host/GmServicesManagerInterface.h"
#include "kernel/OdResBuf.h"

#include <string>

// How the host runs a command of the module: by name, with arguments and results as named values of its own context.
namespace plothost
{
GmServicesManagerInterface& namedValues();

// Runs the command with the named values as they are. "" or, in one line of UTF-8, why it did not run to its end.
std::string runModuleCommand(const OdChar* name);

// What a command left under a name. Throws OdError_NotThatKindOfClass when there is nothing, or something else than a
// result buffer.
OdResBufPtr namedAnswer(const OdChar* name);

// The line for a command that left only some of its results.
std::string incompleteAnswer(const OdChar* name);
} // namespace plothost
