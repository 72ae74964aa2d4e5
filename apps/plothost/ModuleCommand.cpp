#include "plothost/ModuleCommand.h"

#include "host/GarmInterfaces.h"
#include "kernel/OdEdCommandStack.h"
#include "kernel/OdError.h"
#include "kernel/OdText.h"

#include <exception>

namespace plothost
{
GmServicesManagerInterface& namedValues()
{
    return *getServicesManagerInterface(getGarmInterfaces().get());
}

std::string runModuleCommand(const OdChar* name)
{
    try
    {
        if (odedRegCmds()->executeCommand(name, getGarmInterfaces().get()))
            return {};
        return "the module has no command '" + odToUtf8(name) + "'";
    }
    catch (const std::exception& error)
    {
        return "the command '" + odToUtf8(name) + "' failed: " + error.what();
    }
}

OdResBufPtr namedAnswer(const OdChar* name)
{
    const OdRxObjectPtr value = namedValues().get(name);
    OdResBufPtr buffer = OdResBuf::cast(value.get());
    if (!buffer)
        throw OdError_NotThatKindOfClass();
    return buffer;
}

std::string incompleteAnswer(const OdChar* name)
{
    return "the command '" + odToUtf8(name) + "' returned an incomplete answer";
}
} // namespace plothost
