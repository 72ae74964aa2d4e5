#include "GarmPC3Editor/Commands/EditorRun.h"

#include "GarmPC3Editor/Commands/Editor.h"
#include "GarmPC3Editor/Decisions/SaveProposal.h"
#include "GarmPC3Editor/PC3ResourceSentry.h"
#include "GarmPC3Editor/ResourceInstance.h"
#include "host/CGarmPath.h"
#include "host/GarmInterfaces.h"
#include "kernel/OdAssert.h"
#include "resources/Resource.h"

#include <iterator>
#include <new>
#include <utility>

namespace
{
// Takes no memory, which may be what saving failed for.
void tellThatSavingFailed() noexcept
{
    OdChar text[512] = {};
    // A null library would mean the program's own string table.
    if (const HINSTANCE library = garmPC3EditorResourceInstance())
        ::LoadStringW(library, IDS_SAVE_FAILED, text, static_cast<int>(std::size(text)));
    // Quirk 51.
    ::MessageBoxW(nullptr, text, OD_T(""), MB_ICONWARNING);
}

// Lets the user name and keeps what came out of the editor. path as in editAndSave.
bool save(const EditorOutcome& outcome, OdString& path)
{
    const OdSharedPtr<GmPlotCfg3>& pCfg = outcome.cfg;
    const OdString searchPath = getMainInternalInterface()->plotCfgSearchPath();
    const std::optional<OdString> name =
        askForName(pCfg ? proposedPath(outcome.path, searchPath, *pCfg) : outcome.path);
    if (!name)
        return false;
    if (!OD_VERIFY(pCfg, "GarmPC3Editor/Commands/PC3EditCommand"))
        return false;

    const OdString target = savePath(searchPath, *name);
    // Before the file is there: afterwards nothing may fail.
    OdString fileName = CGarmPath(target).fileName();
    if (!pCfg->write(target))
    {
        tellThatSavingFailed();
        return false;
    }
    path = std::move(fileName);
    return true;
}
} // namespace

bool editAndSave(OdSharedPtr<GmPlotCfg3>& cfg, OdString& path)
{
    // For everything shown here: the sheet, the name dialog and the message.
    const PC3ResourceSentry sentry;

    EditorOutcome outcome = runEditor(cfg, path);
    if (outcome.cfg)
        cfg = outcome.cfg;
    // Whether Save As already wrote the configuration makes no difference: quirk 50.
    if (!outcome.confirmed || !(outcome.modified || outcome.replaced))
    {
        path = std::move(outcome.fileTitle);
        return false;
    }
    try
    {
        return save(outcome, path);
    }
    catch (const std::bad_alloc&)
    {
        tellThatSavingFailed();
        return false;
    }
}
