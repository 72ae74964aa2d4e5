#pragma once

class GmPCfgDlg;

// What the editor's sheet needs from its tabs.
class GmBaseTab
{
public:
    virtual ~GmBaseTab() = default;

    // Whether the tab has edits that are not in the configuration yet.
    virtual bool isModified() { return false; }

    // The sheet has a new configuration. The window need not exist.
    virtual void attach(GmPCfgDlg& sheet) = 0;

    // The sheet that the tab's window is in. Throws OdError (eNullObjectPointer) if there is none.
    virtual GmPCfgDlg& parentDlg() = 0;

protected:
    GmBaseTab() = default;
    GmBaseTab(const GmBaseTab&) = default;
    GmBaseTab& operator=(const GmBaseTab&) = default;
};
