#include "GarmPC3Editor/Commands/PC3GetDevModeCommand.h"

#include "GarmPC3Editor/Commands/BackgroundCheck.h"
#include "GarmPC3Editor/Commands/NamedValues.h"
#include "GarmPC3Editor/Commands/PrinterQuery.h"
#include "resources/Resource.h"

PC3GetDevModeCommand::PC3GetDevModeCommand()
{
    loadLocalName(IDS_COMMAND_PC3GETDEVMODE, OD_T("PC3GETDEVMODE"));
    setGlobalName(OD_T("_PC3GETDEVMODE"));
}

void PC3GetDevModeCommand::execute(OdEdCommandContext* context)
{
    const NamedValues values(context);
    const OdResBufPtr deviceNameValue = values.get(OD_T("deviceName"));
    const OdResBufPtr printerNameValue = values.get(OD_T("printerName"));
    const auto window = static_cast<HWND>(values.getPointer(OD_T("hwndPost")));
    // Fetched so that a value of a wrong class is an error here too; the paper asked for has no influence.
    values.get(OD_T("paperName"));
    if (!deviceNameValue || !printerNameValue)
        return;

    const OdString deviceName = deviceNameValue->getString();
    // Its text is ignored, but a value that is no text is the caller's error.
    printerNameValue->getString();

    if (window)
    {
        if (!deviceName.isEmpty())
            startBackgroundCheck(deviceName, window);
        return;
    }

    PrinterAnswer answer;
    const bool found = queryPrinter(deviceName, answer);
    values.setString(OD_T("printerName"), answer.printerName);
    values.setBinaryChunk(OD_T("devMode"), answer.devMode);
    values.setBool(OD_T("result"), found);
    values.setString(OD_T("paperName"), answer.paperName);
    values.setInt16(OD_T("driverType"), answer.driverType);
    values.setString(OD_T("canonicalModelName"), answer.canonicalModelName);
}
