#include "GarmPC3Editor/Commands/EditorRun.h"

#include "GarmPC3Editor/Commands/Editor.h"
#include "GarmPC3Editor/Dialogs/SaveProposal.h"
#include "GarmPC3Editor/PC3ResourceSentry.h"
#include "GarmPC3Editor/ResourceInstance.h"
#include "host/CGarmPath.h"
#include "host/GarmInterfaces.h"
#include "host/GmString.h"
#include "kernel/OdAssert.h"
#include "resources/Resource.h"

namespace
{
void tellThatSavingFailed()
{
    const OdString text = GmString::loadString(IDS_SAVE_FAILED, OD_T(""), garmPC3EditorResourceInstance());
    // An empty caption, not none: without one the system puts its own word for "Error" there.
    ::MessageBoxW(nullptr, text.c_str(), OD_T(""), MB_ICONWARNING);
}
} // namespace

bool editAndSave(OdSharedPtr<GmPlotCfg3>& cfg, OdString& path)
{
    // For everything shown here: the sheet, the name dialog and the message.
    const PC3ResourceSentry sentry;

    const EditorOutcome outcome = runEditor(cfg, path);
    const OdSharedPtr<GmPlotCfg3>& pCfg = outcome.cfg;
    if (pCfg)
        cfg = pCfg;
    // Whether Save As wrote the configuration meanwhile is not asked: what was changed is kept under the name that is
    // confirmed here.
    if (!outcome.confirmed || !(outcome.modified || outcome.replaced))
    {
        path = outcome.fileTitle;
        return false;
    }

    const OdString searchPath = getMainInternalInterface()->plotCfgSearchPath();
    const std::optional<OdString> name =
        askForName(pCfg ? proposedPath(outcome.path, searchPath, *pCfg) : outcome.path);
    if (!name)
        return false;
    if (!OD_VERIFY(pCfg, "GarmPC3Editor/Commands/PC3EditCommand"))
        return false;

    const OdString target = savePath(searchPath, *name);
    if (!pCfg->write(target))
    {
        tellThatSavingFailed();
        return false;
    }
    path = CGarmPath(target).fileName();
    return true;
}
