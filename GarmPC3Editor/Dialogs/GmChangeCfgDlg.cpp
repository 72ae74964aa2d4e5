#include "GarmPC3Editor/Dialogs/GmChangeCfgDlg.h"

#include "GarmPC3Editor/Decisions/ConfigurationNames.h"
#include "GarmPC3Editor/Decisions/ShownText.h"
#include "GarmPC3Editor/Dialogs/LanguageResources.h"
#include "resources/Resource.h"

GmChangeCfgDlg::GmChangeCfgDlg(const OdString& proposedPath) : CDialog(IDD_CHANGE_CFG)
{
    const GmNameProposal proposal = nameProposal(proposedPath);
    m_path = proposal.path;
    m_extensionAdded = proposal.extensionAdded;
    // The field's content is the name itself, so it is cut only beyond the length of any file name.
    m_name = EditedText(proposal.name).shown();
}

void GmChangeCfgDlg::DoDataExchange(CDataExchange* pDX)
{
    CDialog::DoDataExchange(pDX);
    DDX_Text(pDX, IDC_CFG_NAME, m_name);
}

BOOL GmChangeCfgDlg::OnInitDialog()
{
    const BOOL result = CDialog::OnInitDialog();
    m_helpButton.setPicture(*this);
    if (m_extensionAdded)
        SetDlgItemText(IDC_EXTENSION_NOTE, languageTexts()(IDS_EXTENSION_ADDED).c_str());
    return result;
}

void GmChangeCfgDlg::OnOK()
{
    CString text;
    GetDlgItemText(IDC_CFG_NAME, text);
    const OdString name = trimmed(text.toOdString());
    if (name.isEmpty())
        return;
    m_path = name;
    CDialog::OnOK();
}
