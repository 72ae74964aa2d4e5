#include "GarmPC3Editor/Commands/EditedConfiguration.h"

#include "GarmPC3Editor/Model/AnswerOnThrow.h"
#include "host/LocalSearch.h"
#include "spooler/Handles.h"
#include "spooler/PrinterQueries.h"

#include <span>

namespace
{
EditedConfiguration open(const OdString& name, const OdString& paperName)
{
    EditedConfiguration edited;
    if (!LocalSearch::SearchPC3File(name, edited.path))
        return {};
    // Being bound to another printer while reading does not count as a change: nothing is saved unless the user asks.
    bool modified = false;
    edited.cfg = GmPlotCfg3::read(edited.path, modified);
    if (!edited.cfg)
        return {};
    if (!paperName.isEmpty())
        edited.cfg->m_media.m_size.m_name = paperName;
    return edited;
}

// Returns false if the driver rejects the configuration's settings or returns a block that does not match them.
bool passThroughDriver(GmPlotCfg3& cfg)
{
    const OdArray<unsigned char> bytes = cfg.toDevMode();
    if (bytes.isEmpty())
        return false;
    const OdString printerName = cfg.m_meta.m_win_device_name;
    const PrinterHandle printer = openPrinter(printerName.c_str());
    if (!printer)
        return false;
    const DevModeMerge merge = mergeDevMode(nullptr, printer.get(), printerName.c_str(),
                                            std::span(bytes.getPtr(), bytes.size()), DM_IN_BUFFER | DM_OUT_BUFFER);
    if (merge.result != IDOK)
        return false;
    bool changed = false;
    return cfg.updateFromDevMode(merge.block.view(), printerName, changed);
}

EditedConfiguration create(const OdString& printerName)
{
    const OdSharedPtr<GmPlotCfg3> cfg = GmPlotCfg3::create(printerName);
    if (!cfg || !passThroughDriver(*cfg))
        return {};
    return {cfg, {}};
}
} // namespace

EditedConfiguration openForEditing(const OdString& name, const OdString& paperName) noexcept
{
    return answerOnThrow(EditedConfiguration(), [&name, &paperName] { return open(name, paperName); });
}

EditedConfiguration createForEditing(const OdString& printerName) noexcept
{
    return answerOnThrow(EditedConfiguration(), [&printerName] { return create(printerName); });
}
