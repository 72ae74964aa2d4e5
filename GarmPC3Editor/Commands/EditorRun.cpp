// The run of the editor. Apart from what opens a configuration, so that a program can link that without any window.

#include "GarmPC3Editor/Commands/EditedConfiguration.h"
#include "GarmPC3Editor/Commands/Editor.h"
#include "GarmPC3Editor/Decisions/ConfigurationNames.h"
#include "GarmPC3Editor/PC3ResourceSentry.h"
#include "GarmPC3Editor/ThisModule.h"
#include "host/CGarmPath.h"
#include "host/GarmInterfaces.h"
#include "kernel/OdAssert.h"
#include "resources/Resource.h"

#include <iterator>
#include <new>
#include <optional>
#include <utility>

namespace
{
// Allocates nothing: saving may have failed because memory ran out.
void reportFailedSave() noexcept
{
    OdChar text[512] = {};
    // A null library would mean the program's own string table.
    if (const HINSTANCE library = garmPC3EditorResourceInstance())
        ::LoadStringW(library, IDS_SAVE_FAILED, text, static_cast<int>(std::size(text)));
    // Quirk 51.
    ::MessageBoxW(nullptr, text, OD_T(""), MB_ICONWARNING);
}

// Asks the user for a name and writes the edited configuration. Returns the file's name, or nothing if it was not
// written.
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
    // Before the file is written: nothing may fail after that.
    OdString fileName = CGarmPath(target).fileName();
    if (!pCfg->write(target))
    {
        reportFailedSave();
        return std::nullopt;
    }
    return fileName;
}
} // namespace

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
        // Moved, because nothing may fail once the file is written.
        if (std::optional<OdString> fileName = save(outcome))
            return {cfg, std::move(*fileName), true};
    }
    catch (const std::bad_alloc&)
    {
        reportFailedSave();
    }
    return {cfg, std::move(edited.path), false};
}
