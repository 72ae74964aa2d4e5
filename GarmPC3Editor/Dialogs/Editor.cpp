#include "GarmPC3Editor/Commands/Editor.h"

#include "GarmPC3Editor/Dialogs/GmChangeCfgDlg.h"
#include "GarmPC3Editor/Dialogs/GmPCfgDlg.h"

namespace
{
// If a language library has other dialogs under our numbers, the window library throws; the window then closes as if
// cancelled, because a host need not know such exceptions. Everything else passes through.
template <class Window>
bool isConfirmed(Window& window)
{
    try
    {
        return window.DoModal() == IDOK;
    }
    catch (CException* exception) // NOLINT(misc-throw-by-value-catch-by-reference): it throws pointers
    {
        exception->Delete();
        return false;
    }
}
} // namespace

EditorOutcome runEditor(const OdSharedPtr<GmPlotCfg3>& cfg, const OdString& path)
{
    GmPCfgDlg sheet;
    sheet.setConfig(cfg, path, {});
    EditorOutcome outcome;
    outcome.confirmed = isConfirmed(sheet);
    outcome.modified = sheet.m_modified;
    outcome.replaced = sheet.m_replaced;
    outcome.cfg = sheet.sharedCfg();
    outcome.path = sheet.m_path.toOdString();
    outcome.fileTitle = sheet.fileTitle();
    return outcome;
}

std::optional<OdString> askForName(const OdString& proposedPath)
{
    GmChangeCfgDlg dialog(proposedPath);
    if (!isConfirmed(dialog))
        return std::nullopt;
    return dialog.m_path.toOdString();
}
