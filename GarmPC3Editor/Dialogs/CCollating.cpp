#include "GarmPC3Editor/Dialogs/DevicePages.h"

#include "GarmPC3Editor/Decisions/PageValues.h"
#include "GarmPC3Editor/Dialogs/GmTabDevice.h"
#include "GarmPC3Editor/Dialogs/LanguageResources.h"
#include "resources/Resource.h"

CCollating::CCollating(GmTabDevice& tab) : GmDeviceSubDlg(tab, eCollating), m_choice(collatingChoice(cfg())) {}

BOOL CCollating::OnInitDialog()
{
    GmDeviceSubDlg::OnInitDialog();
    constexpr UINT names[] = {IDS_COLLATING_OFF, IDS_COLLATING_ON};
    for (const UINT id : names)
    {
        const int index = m_list.AddString(CString(languageTexts()(id)));
        m_list.SetItemData(index, static_cast<DWORD_PTR>(index));
    }
    m_list.SetCurSel(m_choice);
    return TRUE;
}

void CCollating::DoDataExchange(CDataExchange* pDX)
{
    GmDeviceSubDlg::DoDataExchange(pDX);
    DDX_Control(pDX, IDC_COLLATING, m_list);
    if (!pDX->m_bSaveAndValidate)
    {
        m_list.SetCurSel(m_choice);
        return;
    }
    m_choice = m_list.GetCurSel() == 1 ? 1 : 0;
    if (storeCollating(cfg(), m_choice))
        bModified = true;
}

void CCollating::OnSelChange()
{
    m_dlg.commitSelected();
}

BEGIN_MESSAGE_MAP(CCollating, GmDeviceSubDlg)
ON_CBN_SELCHANGE(IDC_COLLATING, &CCollating::OnSelChange)
END_MESSAGE_MAP()
