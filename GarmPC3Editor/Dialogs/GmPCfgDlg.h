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
// The pages write each change into the configuration when it happens, so it keeps the changes after Cancel too. The
// sheet itself writes a file only on Save As; what has to be written after OK the caller finds out from the flags. Call
// setConfig once between construction and DoModal. The language library must be the current place of resources.
class GmPCfgDlg : public CPropertySheet
{
public:
    GmPCfgDlg();

    // cfg must not be null. path is that of its file, empty when it has none; initialDir is where Save As then starts.
    void setConfig(const OdSharedPtr<GmPlotCfg3>& cfg, const CString& path, const CString& initialDir);

    // The configuration as it is now: another printer may exchange it at any time, so ask again instead of keeping it.
    GmPlotCfg3& cfg() const noexcept { return *m_cfg; }
    const OdSharedPtr<GmPlotCfg3>& sharedCfg() const noexcept { return m_cfg; }

    // Takes ownership of a configuration made for another printer (not null). A printer on the same driver gives its
    // name to the present configuration, which keeps the user's edits; otherwise the new one takes its place.
    void changeCfg(GmPlotCfg3* newCfg);

    // Asks where to and writes the configuration. A failure is reported to the user and changes nothing.
    void saveAs();

    // File name and extension; without a file the Windows printer's name.
    OdString fileTitle() const;

    void updateCaption();

    // Run before the sheet is shown, and again after an exchange of the configuration.
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

// The sheet that a tab's window is in. Throws OdError (eNullObjectPointer) when there is none.
GmPCfgDlg& parentSheet(const CWnd& tab);
