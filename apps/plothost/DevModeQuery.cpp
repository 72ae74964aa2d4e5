#include "plothost/DevModeQuery.h"

#include "host/GarmInterfaces.h"
#include "host/GmResBufExtention.h"
#include "kernel/OdEdCommandStack.h"
#include "kernel/OdResBuf.h"
#include "kernel/OdText.h"

#include <exception>

namespace plothost
{
namespace
{
const OdChar* const commandName = OD_T("PC3GETDEVMODE");

GmServicesManagerInterface& namedValues()
{
    return *getServicesManagerInterface(getGarmInterfaces().get());
}

void setArguments(const OdString& deviceName)
{
    // A value of an earlier question must not look like an answer.
    namedValues().clear();
    namedValues().set(OD_T("deviceName"), OdResBuf::newRb(kRtString, deviceName));
    namedValues().set(OD_T("printerName"), OdResBuf::newRb(kRtString, OdString()));
}

std::string runCommand()
{
    try
    {
        if (odedRegCmds()->executeCommand(commandName, getGarmInterfaces().get()))
            return {};
        return "the module has no command '" + odToUtf8(commandName) + "'";
    }
    catch (const std::exception& error)
    {
        return "the command '" + odToUtf8(commandName) + "' failed: " + error.what();
    }
}

// The value as a result buffer. Throws what the reader of a missing or other value deserves.
OdResBufPtr answer(const OdChar* name)
{
    const OdRxObjectPtr value = namedValues().get(name);
    OdResBufPtr buffer = OdResBuf::cast(value.get());
    if (!buffer)
        throw OdError_NotThatKindOfClass();
    return buffer;
}

DevModeReport readAnswers(const OdString& deviceName)
{
    DevModeReport report;
    report.deviceName = deviceName;
    report.printerName = answer(OD_T("printerName"))->getString();
    const OdBinaryData& bytes = answer(OD_T("devMode"))->getBinaryChunk();
    report.devMode.assign(bytes.begin(), bytes.end());
    report.result = answer(OD_T("result"))->getBool();
    report.paperName = answer(OD_T("paperName"))->getString();
    report.driverType = answer(OD_T("driverType"))->getInt16();
    report.canonicalModelName = answer(OD_T("canonicalModelName"))->getString();
    return report;
}
} // namespace

DevModeAnswer askDevMode(const OdString& deviceName)
{
    DevModeAnswer result;
    setArguments(deviceName);
    result.problem = runCommand();
    if (!result.problem.empty())
        return result;
    try
    {
        result.report = readAnswers(deviceName);
    }
    catch (const OdError&)
    {
        result.problem = "the command '" + odToUtf8(commandName) + "' gave no complete answer";
    }
    return result;
}

std::string startBackgroundCheck(const OdString& deviceName, HWND window)
{
    setArguments(deviceName);
    namedValues().set(OD_T("hwndPost"), GmResBufExtention::newVoid(window));
    return runCommand();
}
} // namespace plothost
