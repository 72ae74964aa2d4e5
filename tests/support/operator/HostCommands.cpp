#include "tests/support/operator/HostCommands.h"

#include "host/GarmInterfaces.h"
#include "host/GmResBufExtention.h"
#include "kernel/OdEdCommandStack.h"
#include "kernel/OdResBuf.h"
#include "kernel/OdText.h"

#include <algorithm>
#include <exception>
#include <stdexcept>
#include <vector>

namespace editordriver
{
namespace
{
GmServicesManagerInterface& namedValues()
{
    return *getServicesManagerInterface(getGarmInterfaces().get());
}

std::string shown(const OdResBuf& value)
{
    switch (value.restype())
    {
    case kRtString:
        return odToUtf8(value.getString());
    case kRtBool:
        return value.getBool() ? "true" : "false";
    case kRtInt16:
        return std::to_string(value.getInt16());
    case kRtBinaryChunk:
        return std::to_string(value.getBinaryChunk().size()) + " bytes";
    default:
        throw std::runtime_error("a value of an unexpected kind");
    }
}

// Runs the command on the named values and reports those that it left, except for arguments that only go in.
std::string runAndTell(const OdChar* command, const std::vector<OdString>& arguments)
{
    GmServicesManagerInterface& values = namedValues();
    if (!odedRegCmds()->executeCommand(command, getGarmInterfaces().get()))
        return "problem: there is no such command\n";

    std::string report;
    for (const OdString& name : values.names())
    {
        if (std::ranges::find(arguments, name) != arguments.end())
            continue;
        const OdResBufPtr value = OdResBuf::cast(values.get(name).get());
        report += "output " + odToUtf8(name) + ": " + (value ? shown(*value) : "no result buffer") + "\n";
    }
    return report.empty() ? "outputs: none\n" : report;
}
} // namespace

std::string runEdit(const EditRequest& request)
{
    GmServicesManagerInterface& values = namedValues();
    values.clear();
    values.set(OD_T("plotCfgName"), OdResBuf::newRb(kRtString, request.name));
    values.set(OD_T("bSystemPrinter"), OdResBuf::newRb(kRtBool, request.isPrinter));
    if (request.paper)
        values.set(OD_T("paperName"), OdResBuf::newRb(kRtString, *request.paper));
    return runAndTell(OD_T("PC3EDIT"), {OD_T("plotCfgName"), OD_T("bSystemPrinter")});
}

std::string runGetDevMode(const OdString& device)
{
    GmServicesManagerInterface& values = namedValues();
    values.clear();
    values.set(OD_T("deviceName"), OdResBuf::newRb(kRtString, device));
    values.set(OD_T("printerName"), OdResBuf::newRb(kRtString, OdString()));
    return runAndTell(OD_T("PC3GETDEVMODE"), {OD_T("deviceName")});
}

std::string startCheck(const OdString& device, void* window)
{
    GmServicesManagerInterface& values = namedValues();
    values.clear();
    values.set(OD_T("deviceName"), OdResBuf::newRb(kRtString, device));
    values.set(OD_T("printerName"), OdResBuf::newRb(kRtString, OdString()));
    values.set(OD_T("hwndPost"), GmResBufExtention::newVoid(window));
    return runAndTell(OD_T("PC3GETDEVMODE"), {OD_T("deviceName"), OD_T("printerName"), OD_T("hwndPost")});
}

void CommandRun::run(const std::function<std::string()>& command) noexcept
{
    try
    {
        m_report = command();
    }
    catch (const std::exception& error)
    {
        m_report = std::string("problem: ") + error.what() + "\n";
    }
    m_ended = true;
}
} // namespace editordriver
