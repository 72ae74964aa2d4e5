#pragma once

#include "host/GmServicesManagerInterface.h"
#include "kernel/OdResBuf.h"

#include <string>

// How the host runs a command of the module: by name, with arguments and results as named values of its own context.
namespace plothost
{
GmServicesManagerInterface& namedValues();

// Runs the command with the named values as they are. Returns "" or, in one line of UTF-8, why it did not finish.
std::string runModuleCommand(const OdChar* name);

// The result that a command left under a name. Throws OdError_NotThatKindOfClass if there is none or it is not a result
// buffer.
OdResBufPtr namedAnswer(const OdChar* name);

// The message for a command that left only some of its results.
std::string incompleteAnswer(const OdChar* name);
} // namespace plothost
