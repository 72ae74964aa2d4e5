#include "GarmPC3Editor/Commands/PC3EditCommand.h"

#include "GarmPC3Editor/Commands/EditedConfiguration.h"
#include "GarmPC3Editor/Commands/NamedValues.h"
#include "GarmPC3Editor/ThisModule.h"
#include "resources/Resource.h"

#include <new>
#include <utility>

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

    // A printer's new configuration starts with the driver's paper; the requested paper only applies to files.
    EditedConfiguration edited = isPrinter ? createForEditing(name) : openForEditing(name, paperName);
    if (!edited.cfg)
        return;
    const EditResult result = editAndSave(std::move(edited));

    const GmPlotCfg3& cfg = *result.cfg;
    NamedResults results;
    results.addString(OD_T("fileName"), result.fileName);
    results.addString(OD_T("paperName"), cfg.m_media.m_size.m_name);
    results.addBool(OD_T("result"), result.saved);
    // Deliberately under the same name: hosts read the driver type there, and the flag before it is seen only by hosts
    // that watch each write. The value has 16 bits; the upper bits of the type are lost.
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
    // While windows are open the host's messages are dispatched, and one of them may try to unload the module, whose
    // code and resources are in use here.
    const OdRxModulePtr inUse(garmPC3EditorModule());
    try
    {
        edit(NamedValues(context));
    }
    catch (const std::bad_alloc&)
    {
        // No results, as whenever a configuration cannot be edited.
    }
}
