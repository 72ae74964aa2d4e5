#include "GarmPC3Editor/Dialogs/DevicePages.h"

#include "GarmPC3Editor/Decisions/PageValues.h"
#include "GarmPC3Editor/Dialogs/GmTabDevice.h"
#include "resources/Resource.h"

CMergeCtrl::CMergeCtrl(GmTabDevice& tab) : GmDeviceSubDlg(tab, eMergeCtrl), m_choice(mergeChoice(cfg())) {}

BOOL CMergeCtrl::OnInitDialog()
{
    GmDeviceSubDlg::OnInitDialog();
    enableIfThereIsAValue();
    return TRUE;
}

void CMergeCtrl::activate()
{
    enableIfThereIsAValue();
    show();
}

void CMergeCtrl::enableIfThereIsAValue() const
{
    EnableWindow(cfg().m_res_color_mem.m_lines_overwrite ? TRUE : FALSE);
}

void CMergeCtrl::DoDataExchange(CDataExchange* pDX)
{
    GmDeviceSubDlg::DoDataExchange(pDX);
    int choice = m_choice;
    DDX_Radio(pDX, IDC_LINES_OVERWRITE, choice);
    if (pDX->m_bSaveAndValidate && storeMerge(cfg(), m_choice, choice))
        bModified = true;
}

void CMergeCtrl::OnChoice()
{
    m_dlg.commitSelected();
}

BEGIN_MESSAGE_MAP(CMergeCtrl, GmDeviceSubDlg)
ON_BN_CLICKED(IDC_LINES_OVERWRITE, &CMergeCtrl::OnChoice)
ON_BN_CLICKED(IDC_LINES_MERGE, &CMergeCtrl::OnChoice)
END_MESSAGE_MAP()
