#include "GarmPC3Editor/Commands/EditedConfiguration.h"

#include "GarmPC3Editor/Commands/Editor.h"
#include "GarmPC3Editor/Decisions/ConfigurationNames.h"
#include "GarmPC3Editor/Model/AnswerOnThrow.h"
#include "GarmPC3Editor/PC3ResourceSentry.h"
#include "GarmPC3Editor/ThisModule.h"
#include "host/CGarmPath.h"
#include "host/GarmInterfaces.h"
#include "host/LocalSearch.h"
#include "kernel/OdAssert.h"
#include "resources/Resource.h"
#include "spooler/Handles.h"
#include "spooler/PrinterQueries.h"

#include <iterator>
#include <new>
#include <optional>
#include <span>
#include <utility>

namespace
{
EditedConfiguration open(const OdString& name, const OdString& paperName)
{
    EditedConfiguration edited;
    if (!LocalSearch::SearchPC3File(name, edited.path))
        return {};
    // Another printer found while reading counts as no change: nothing is saved that the user did not ask for.
    bool modified = false;
    edited.cfg = GmPlotCfg3::read(edited.path, modified);
    if (!edited.cfg)
        return {};
    if (!paperName.isEmpty())
        edited.cfg->m_media.m_size.m_name = paperName;
    return edited;
}

// False when the driver does not take the configuration's settings or gives back what does not fit them.
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

// Takes no memory, which may be what saving failed for.
void reportFailedSave() noexcept
{
    OdChar text[512] = {};
    // A null library would mean the program's own string table.
    if (const HINSTANCE library = garmPC3EditorResourceInstance())
        ::LoadStringW(library, IDS_SAVE_FAILED, text, static_cast<int>(std::size(text)));
    // Quirk 51.
    ::MessageBoxW(nullptr, text, OD_T(""), MB_ICONWARNING);
}

// Lets the user name what came out of the editor, and writes it. The name of the file; none when it was not written.
std::optional<OdString> save(const EditorOutcome& outcome)
{
    const OdSharedPtr<GmPlotCfg3>& pCfg = outcome.cfg;
    const OdString searchPath = getMainInternalInterface()->plotCfgSearchPath();
    const std::optional<OdString> name =
        askForName(pCfg ? proposedPath(outcome.path, searchPath, *pCfg) : outcome.path);
    if (!name)
        return std::nullopt;
    if (!OD_VERIFY(pCfg, "GarmPC3Editor/Commands/PC3EditCommand"))
        return std::nullopt;

    const OdString target = savePath(searchPath, *name);
    // Before the file is there: afterwards nothing may fail.
    OdString fileName = CGarmPath(target).fileName();
    if (!pCfg->write(target))
    {
        reportFailedSave();
        return std::nullopt;
    }
    return fileName;
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

EditResult editAndSave(EditedConfiguration edited)
{
    // For everything shown here: the sheet, the name dialog and the message.
    const PC3ResourceSentry sentry;

    EditorOutcome outcome = runEditor(edited.cfg, edited.path);
    const OdSharedPtr<GmPlotCfg3>& cfg = outcome.cfg ? outcome.cfg : edited.cfg;
    // Whether Save As already wrote the configuration makes no difference: quirk 50.
    if (!outcome.confirmed || !(outcome.modified || outcome.replaced))
        return {cfg, std::move(outcome.fileTitle), false};
    try
    {
        // Moved, because with the file written nothing may fail any more.
        if (std::optional<OdString> fileName = save(outcome))
            return {cfg, std::move(*fileName), true};
    }
    catch (const std::bad_alloc&)
    {
        reportFailedSave();
    }
    return {cfg, std::move(edited.path), false};
}
