#include "GarmPC3Editor/Commands/PC3EditCommand.h"

#include "GarmPC3Editor/Commands/EditedConfiguration.h"
#include "GarmPC3Editor/Commands/EditorRun.h"
#include "GarmPC3Editor/Commands/NamedValues.h"
#include "GarmPC3Editor/ModuleObject.h"
#include "resources/Resource.h"

#include <new>

namespace
{
void edit(const NamedValues& values)
{
    const OdResBufPtr nameValue = values.get(OD_T("plotCfgName"));
    const OdResBufPtr isPrinterValue = values.get(OD_T("bSystemPrinter"));
    const OdResBufPtr paperValue = values.get(OD_T("paperName"));
    if (!nameValue || !isPrinterValue)
        return;

    const OdString name = nameValue->getString();
    const bool isPrinter = isPrinterValue->getBool();
    const OdString paperName = paperValue ? paperValue->getString() : OdString();

    // A printer's new configuration starts with the driver's paper; the paper asked for selects in files only.
    EditedConfiguration edited = isPrinter ? createForEditing(name) : openForEditing(name, paperName);
    if (!edited.cfg)
        return;
    const bool saved = editAndSave(edited.cfg, edited.path);

    const GmPlotCfg3& cfg = *edited.cfg;
    NamedResults results;
    results.addString(OD_T("fileName"), edited.path);
    results.addString(OD_T("paperName"), cfg.m_media.m_size.m_name);
    results.addBool(OD_T("result"), saved);
    // The same name again: quirk 37.
    results.addInt16(OD_T("result"), static_cast<OdInt16>(cfg.m_meta.m_driver_type));
    results.addString(OD_T("canonicalModelName"), cfg.m_meta.m_canonical_model_name);
    values.write(results);
}
} // namespace

PC3EditCommand::PC3EditCommand()
{
    loadLocalName(IDS_COMMAND_PC3EDIT, OD_T("PC3EDIT"));
    setGlobalName(OD_T("_PC3EDIT"));
}

void PC3EditCommand::execute(OdEdCommandContext* context)
{
    // While windows are open the host's messages run, and one of them may ask for the end of the module, whose code and
    // resources are in use here.
    const OdRxModulePtr inUse(garmPC3EditorModule());
    try
    {
        edit(NamedValues(context));
    }
    catch (const std::bad_alloc&)
    {
        // Without results, like whatever else keeps a configuration from being edited.
    }
}
