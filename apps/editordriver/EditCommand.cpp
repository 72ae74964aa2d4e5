#include "editordriver/EditCommand.h"

#include "host/GarmInterfaces.h"
#include "kernel/OdEdCommandStack.h"
#include "kernel/OdResBuf.h"
#include "kernel/OdText.h"

#include <exception>
#include <stdexcept>

namespace editordriver
{
namespace
{
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
    default:
        throw std::runtime_error("a value of an unexpected kind");
    }
}

std::string runAndTell(const EditRequest& request)
{
    GmServicesManagerInterface& values = *getServicesManagerInterface(getGarmInterfaces().get());
    values.clear();
    values.set(OD_T("plotCfgName"), OdResBuf::newRb(kRtString, request.name));
    values.set(OD_T("bSystemPrinter"), OdResBuf::newRb(kRtBool, request.isPrinter));
    if (request.paper)
        values.set(OD_T("paperName"), OdResBuf::newRb(kRtString, *request.paper));
    if (!odedRegCmds()->executeCommand(OD_T("PC3EDIT"), getGarmInterfaces().get()))
        return "problem: there is no such command\n";

    std::string report;
    for (const OdString& name : values.names())
    {
        if (name == OD_T("plotCfgName") || name == OD_T("bSystemPrinter"))
            continue;
        const OdResBufPtr value = OdResBuf::cast(values.get(name).get());
        report += "output " + odToUtf8(name) + ": " + (value ? shown(*value) : "no result buffer") + "\n";
    }
    return report.empty() ? "outputs: none\n" : report;
}
} // namespace

void EditCommand::run(const EditRequest& request) noexcept
{
    try
    {
        m_report = runAndTell(request);
    }
    catch (const std::exception& error)
    {
        m_report = std::string("problem: ") + error.what() + "\n";
    }
    m_ended = true;
}
} // namespace editordriver
