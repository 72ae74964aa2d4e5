#include "GarmPC3Editor/Dialogs/DevicePages.h"

#include "GarmPC3Editor/Dialogs/GmTabDevice.h"
#include "resources/Resource.h"

namespace
{
constexpr int bestQuality = 6;
constexpr int largestPreference = 100;
constexpr int preferencePerTick = 10;
} // namespace

CRasterGraphics::CRasterGraphics(GmTabDevice& tab) : GmDeviceSubDlg(tab, eRasterGraphics), m_values(rasterValues(cfg()))
{
}

BOOL CRasterGraphics::OnInitDialog()
{
    // Before the base class shows the values: a slider places its thumb by the range it has at that moment, and neither
    // a new range nor setting the same value again moves it.
    m_ismMax.SubclassDlgItem(IDC_ISM_MAX, this);
    m_ismMax.SetRange(0, bestQuality);
    m_oleMax.SubclassDlgItem(IDC_OLE_MAX, this);
    m_oleMax.SetRange(0, bestQuality);
    m_preference.SubclassDlgItem(IDC_PREFERENCE, this);
    m_preference.SetRange(0, largestPreference);
    m_preference.SetTicFreq(preferencePerTick);
    return GmDeviceSubDlg::OnInitDialog();
}

void CRasterGraphics::showValues() const
{
    m_ismMax.SetPos(m_values.ismMax);
    m_oleMax.SetPos(m_values.oleMax);
    m_preference.SetPos(m_values.preference);
}

void CRasterGraphics::DoDataExchange(CDataExchange* pDX)
{
    GmDeviceSubDlg::DoDataExchange(pDX);
    DDX_Control(pDX, IDC_ISM_MAX, m_ismMax);
    DDX_Control(pDX, IDC_OLE_MAX, m_oleMax);
    DDX_Control(pDX, IDC_PREFERENCE, m_preference);
    if (!pDX->m_bSaveAndValidate)
        showValues();
    else if (storeRaster(cfg(), m_values, {m_ismMax.GetPos(), m_oleMax.GetPos(), m_preference.GetPos()}))
        bModified = true;
}

void CRasterGraphics::OnHScroll(UINT code, UINT position, CScrollBar* scrollBar)
{
    m_dlg.commitSelected();
    GmDeviceSubDlg::OnHScroll(code, position, scrollBar);
}

BEGIN_MESSAGE_MAP(CRasterGraphics, GmDeviceSubDlg)
ON_WM_HSCROLL()
END_MESSAGE_MAP()
