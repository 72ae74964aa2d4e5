#pragma once

#include "GarmPC3Editor/Decisions/PageValues.h"
#include "GarmPC3Editor/Dialogs/GmDeviceSubDlg.h"

// Quality of raster images and embedded objects, and what plots are to be optimised for.
//
// A slider cuts a value to its range, so one that a file has outside of it is changed when the page is left.
class CRasterGraphics : public GmDeviceSubDlg
{
public:
    explicit CRasterGraphics(GmTabDevice& tab);

    BOOL OnInitDialog() override;

protected:
    void DoDataExchange(CDataExchange* pDX) override;
    afx_msg void OnHScroll(UINT code, UINT position, CScrollBar* scrollBar);
    DECLARE_MESSAGE_MAP()

private:
    void showValues() const;

    GmRasterValues m_values;
    CSliderCtrl m_ismMax;
    CSliderCtrl m_oleMax;
    CSliderCtrl m_preference;
};
