#include "GarmPC3Editor/Dialogs/DevicePages.h"

#include "GarmPC3Editor/Decisions/PageValues.h"
#include "GarmPC3Editor/Dialogs/GmTabDevice.h"
#include "resources/Resource.h"

CTrueType::CTrueType(GmTabDevice& tab) : GmDeviceSubDlg(tab, eTrueType), m_choice(trueTypeChoice(cfg())) {}

void CTrueType::DoDataExchange(CDataExchange* pDX)
{
    GmDeviceSubDlg::DoDataExchange(pDX);
    int choice = m_choice;
    DDX_Radio(pDX, IDC_TRUETYPE_AS_TEXT, choice);
    if (pDX->m_bSaveAndValidate && storeTrueType(cfg(), m_choice, choice))
        bModified = true;
}

void CTrueType::OnChoice()
{
    m_dlg.commitSelected();
}

BEGIN_MESSAGE_MAP(CTrueType, GmDeviceSubDlg)
ON_BN_CLICKED(IDC_TRUETYPE_AS_TEXT, &CTrueType::OnChoice)
ON_BN_CLICKED(IDC_TRUETYPE_AS_GRAPHICS, &CTrueType::OnChoice)
END_MESSAGE_MAP()
