#include "plothost/DevModeQuery.h"

#include "host/GmResBufExtention.h"
#include "kernel/OdError.h"
#include "plothost/ModuleCommand.h"

namespace plothost
{
namespace
{
const OdChar* const devModeCommand = OD_T("PC3GETDEVMODE");

void setArguments(const OdString& deviceName)
{
    // A value left from an earlier call must not look like a result.
    namedValues().clear();
    namedValues().set(OD_T("deviceName"), OdResBuf::newRb(kRtString, deviceName));
    namedValues().set(OD_T("printerName"), OdResBuf::newRb(kRtString, OdString()));
}

DevModeReport readAnswers(const OdString& deviceName)
{
    DevModeReport report;
    report.deviceName = deviceName;
    report.printerName = namedAnswer(OD_T("printerName"))->getString();
    const OdBinaryData& bytes = namedAnswer(OD_T("devMode"))->getBinaryChunk();
    report.devMode.assign(bytes.begin(), bytes.end());
    report.result = namedAnswer(OD_T("result"))->getBool();
    report.paperName = namedAnswer(OD_T("paperName"))->getString();
    report.driverType = namedAnswer(OD_T("driverType"))->getInt16();
    report.canonicalModelName = namedAnswer(OD_T("canonicalModelName"))->getString();
    return report;
}
} // namespace

DevModeAnswer askDevMode(const OdString& deviceName)
{
    DevModeAnswer result;
    setArguments(deviceName);
    result.problem = runModuleCommand(devModeCommand);
    if (!result.problem.empty())
        return result;
    try
    {
        result.report = readAnswers(deviceName);
    }
    catch (const OdError&)
    {
        result.problem = incompleteAnswer(devModeCommand);
    }
    return result;
}

std::string startBackgroundCheck(const OdString& deviceName, HWND window)
{
    setArguments(deviceName);
    namedValues().set(OD_T("hwndPost"), GmResBufExtention::newVoid(window));
    return runModuleCommand(devModeCommand);
}
} // namespace plothost
