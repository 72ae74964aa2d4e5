#pragma once

#include "GarmPC3Editor/Dialogs/GmDeviceSubDlg.h"

// Whether lines overwrite or merge with what is under them. Disabled for a configuration that cannot say so: its
// printer was exchanged while the tree has the entry of the one before.
class CMergeCtrl : public GmDeviceSubDlg
{
public:
    explicit CMergeCtrl(GmTabDevice& tab);

    BOOL OnInitDialog() override;
    void activate() override;

protected:
    void DoDataExchange(CDataExchange* pDX) override;
    afx_msg void OnChoice();
    DECLARE_MESSAGE_MAP()

private:
    void enableIfThereIsAValue() const;

    int m_choice; // 0 overwrite, 1 merge
};
