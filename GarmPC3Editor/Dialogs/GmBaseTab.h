#pragma once

class GmPCfgDlg;

// What the editor's sheet asks of its tabs.
class GmBaseTab
{
public:
    virtual ~GmBaseTab() = default;

    // Whether the tab holds edits that are not in the configuration yet.
    virtual bool isModified() { return false; }

    // The sheet has got a configuration. No window need exist.
    virtual void attach(GmPCfgDlg& sheet) = 0;

    // The sheet that the tab's window is in. Throws OdError (eNullObjectPointer) when there is none.
    virtual GmPCfgDlg& parentDlg() = 0;

protected:
    GmBaseTab() = default;
    GmBaseTab(const GmBaseTab&) = default;
    GmBaseTab& operator=(const GmBaseTab&) = default;
};
