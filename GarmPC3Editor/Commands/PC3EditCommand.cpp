#include "GarmPC3Editor/Commands/PC3EditCommand.h"

#include "GarmPC3Editor/Commands/EditedConfiguration.h"
#include "GarmPC3Editor/Commands/NamedValues.h"
#include "resources/Resource.h"

PC3EditCommand::PC3EditCommand()
{
    loadLocalName(IDS_COMMAND_PC3EDIT, OD_T("PC3EDIT"));
    setGlobalName(OD_T("_PC3EDIT"));
}

void PC3EditCommand::execute(OdEdCommandContext* context)
{
    const NamedValues values(context);
    const OdResBufPtr nameValue = values.get(OD_T("plotCfgName"));
    const OdResBufPtr isPrinterValue = values.get(OD_T("bSystemPrinter"));
    const OdResBufPtr paperValue = values.get(OD_T("paperName"));
    if (!nameValue || !isPrinterValue)
        return;

    const OdString name = nameValue->getString();
    const bool isPrinter = isPrinterValue->getBool();
    const OdString paperName = paperValue ? paperValue->getString() : OdString();

    // A printer's new configuration starts with the driver's paper; the paper asked for selects in files only.
    const EditedConfiguration edited = isPrinter ? createForEditing(name) : openForEditing(name, paperName);
}
