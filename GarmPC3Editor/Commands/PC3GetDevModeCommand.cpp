#include "GarmPC3Editor/Commands/PC3GetDevModeCommand.h"

#include "GarmPC3Editor/Commands/BackgroundCheck.h"
#include "GarmPC3Editor/Commands/NamedValues.h"
#include "GarmPC3Editor/Commands/PrinterQuery.h"
#include "resources/Resource.h"

#include <new>

namespace
{
// Created with the command, so nothing is allocated between the host's call and the background check: a window waiting
// for the check's message gets it even if memory runs out.
struct ArgumentNames
{
    OdString deviceName = OD_T("deviceName");
    OdString printerName = OD_T("printerName");
    OdString window = OD_T("hwndPost");
    OdString paperName = OD_T("paperName");
};

const ArgumentNames& argumentNames()
{
    static const ArgumentNames names;
    return names;
}

void answer(const NamedValues& values, const OdString& deviceName)
{
    PrinterAnswer answer;
    const bool found = queryPrinter(deviceName, answer);
    NamedResults results;
    results.addString(OD_T("printerName"), answer.printerName);
    results.addBinaryChunk(OD_T("devMode"), answer.devMode);
    results.addBool(OD_T("result"), found);
    results.addString(OD_T("paperName"), answer.paperName);
    results.addInt16(OD_T("driverType"), answer.driverType);
    results.addString(OD_T("canonicalModelName"), answer.canonicalModelName);
    values.write(results);
}
} // namespace

PC3GetDevModeCommand::PC3GetDevModeCommand()
{
    loadLocalName(IDS_COMMAND_PC3GETDEVMODE, OD_T("PC3GETDEVMODE"));
    setGlobalName(OD_T("_PC3GETDEVMODE"));
    argumentNames();
}

void PC3GetDevModeCommand::execute(OdEdCommandContext* context)
{
    const ArgumentNames& names = argumentNames();
    const NamedValues values(context);
    const OdResBufPtr deviceNameValue = values.get(names.deviceName);
    const OdResBufPtr printerNameValue = values.get(names.printerName);
    const auto window = static_cast<HWND>(values.getPointer(names.window));
    // Fetched so that a value of the wrong class is an error here too; the requested paper has no effect.
    values.get(names.paperName);
    if (!deviceNameValue || !printerNameValue)
        return;

    const OdString& deviceName = deviceNameValue->getString();
    // Its text is ignored, but a value that is not text is the caller's error.
    printerNameValue->getString();

    if (window)
    {
        if (!deviceName.isEmpty())
            startBackgroundCheck(deviceName, window);
        return;
    }
    try
    {
        answer(values, deviceName);
    }
    catch (const std::bad_alloc&)
    {
        // There is not even memory for the results, so none is written.
    }
}
