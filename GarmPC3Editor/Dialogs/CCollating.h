#pragma once

#include "GarmPC3Editor/Dialogs/GmDeviceSubDlg.h"

// Whether several copies are collated.
class CCollating : public GmDeviceSubDlg
{
public:
    explicit CCollating(GmTabDevice& tab);

    BOOL OnInitDialog() override;

protected:
    void DoDataExchange(CDataExchange* pDX) override;
    afx_msg void OnSelChange();
    DECLARE_MESSAGE_MAP()

private:
    int m_choice; // 0 off, 1 on: also the entry of the list
    CComboBox m_list;
};
