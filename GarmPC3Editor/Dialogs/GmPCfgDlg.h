#pragma once

#include "GarmPC3Editor/Dialogs/DialogParts.h"
#include "GarmPC3Editor/Dialogs/GmTabDevice.h"
#include "GarmPC3Editor/Dialogs/GmTabGeneral.h"
#include "GarmPC3Editor/GmPlotCfg3.h"
#include "mfc/Mfc.h"

#include <cstdint>
#include <vector>

// The editor of one plotter configuration: a modal sheet with the General tab and the device tab.
//
// The pages write each change into the configuration at once, so it keeps the changes even after Cancel. The sheet
// itself writes a file only on Save As; the flags tell the caller what to write after OK. Call setConfig once between
// construction and DoModal. The language library must be the current place of resources.
class GmPCfgDlg : public CPropertySheet
{
public:
    GmPCfgDlg();

    // cfg must not be null. path is its file, or empty if it has none; Save As then starts in initialDir.
    void setConfig(const OdSharedPtr<GmPlotCfg3>& cfg, const CString& path, const CString& initialDir);

    // The configuration as it is now: choosing another printer replaces it, so ask again instead of keeping it.
    GmPlotCfg3& cfg() const noexcept { return *m_cfg; }
    const OdSharedPtr<GmPlotCfg3>& sharedCfg() const noexcept { return m_cfg; }

    // Takes ownership of a configuration created for another printer (not null). If it has the same driver, the current
    // configuration only gets the new printer's name and keeps the user's edits; otherwise the new one replaces it.
    void changeCfg(GmPlotCfg3* newCfg);

    // Asks for a file and writes the configuration. A failure is reported to the user and changes nothing.
    void saveAs();

    // File name and extension, or the Windows printer's name if there is no file.
    OdString fileTitle() const;

    void updateCaption();

    // Runs before the sheet is shown, and again after the configuration is replaced.
    BOOL OnInitDialog() override;

private:
    GmTabGeneral m_generalTab;
    GmTabDevice m_deviceTab;
    std::int32_t m_curTab = 0;
    std::vector<GmBaseTab*> m_tabs;

public:
    CString m_path;
    bool m_modified = false; // a page changed a value since setConfig
    bool m_saved = false;    // Save As wrote the configuration

private:
    OdSharedPtr<GmPlotCfg3> m_cfg;
    CString m_initialDir;

public:
    bool m_replaced = false; // another printer was chosen

protected:
    // The Help button was pressed. There is no help to show yet.
    virtual void onHelp() {}

    afx_msg void OnHelpButton() { onHelp(); }
    afx_msg void OnTabSelChange(NMHDR* header, LRESULT* result);
    afx_msg void OnTabSelChanging(NMHDR* header, LRESULT* result);
    DECLARE_MESSAGE_MAP()

private:
    HWND tabControl() const;
    std::int32_t selectedTab() const;

    HelpButton m_helpButton;
};

// The sheet that a tab's window is in. Throws OdError (eNullObjectPointer) if there is none.
GmPCfgDlg& parentSheet(const CWnd& tab);
