#pragma once

#include "GarmPC3Editor/Dialogs/DialogParts.h"
#include "mfc/Mfc.h"

// Asks for the name to save a changed configuration under.
class GmChangeCfgDlg : public CDialog
{
public:
    // proposedPath: folder, extension and even the name may be missing.
    explicit GmChangeCfgDlg(const OdString& proposedPath);

    // The proposed path with its extension; after IDOK what the user typed, without white space around it: a bare name.
    CString m_path;
    bool m_extensionAdded = false; // the proposed path had none
    CString m_name;                // control 900

    BOOL OnInitDialog() override;

protected:
    void DoDataExchange(CDataExchange* pDX) override;
    void OnOK() override;

private:
    HelpButton m_helpButton;
};
