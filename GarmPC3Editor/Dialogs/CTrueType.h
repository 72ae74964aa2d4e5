#pragma once

#include "GarmPC3Editor/Dialogs/GmDeviceSubDlg.h"

// Whether TrueType text is plotted as text or as graphics.
class CTrueType : public GmDeviceSubDlg
{
public:
    explicit CTrueType(GmTabDevice& tab);

protected:
    void DoDataExchange(CDataExchange* pDX) override;
    afx_msg void OnChoice();
    DECLARE_MESSAGE_MAP()

private:
    int m_choice; // 0 as text, 1 as graphics
};
