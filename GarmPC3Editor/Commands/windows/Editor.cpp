#include "GarmPC3Editor/Commands/Editor.h"

#include "GarmPC3Editor/Dialogs/GmChangeCfgDlg.h"
#include "GarmPC3Editor/Dialogs/GmPCfgDlg.h"

EditorOutcome runEditor(const OdSharedPtr<GmPlotCfg3>& cfg, const OdString& path)
{
    GmPCfgDlg sheet;
    sheet.setConfig(cfg, path, {});
    EditorOutcome outcome;
    outcome.confirmed = sheet.DoModal() == IDOK;
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
    if (dialog.DoModal() != IDOK)
        return std::nullopt;
    return dialog.m_path.toOdString();
}
