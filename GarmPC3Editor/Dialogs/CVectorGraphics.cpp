#include "GarmPC3Editor/Dialogs/DevicePages.h"

#include "GarmPC3Editor/Decisions/DeviceLabels.h"
#include "GarmPC3Editor/Decisions/ShownText.h"
#include "GarmPC3Editor/Dialogs/LanguageResources.h"
#include "GarmPC3Editor/GmPlotCfg3.h"
#include "resources/Resource.h"

CVectorGraphics::CVectorGraphics(GmTabDevice& tab) : GmDeviceSubDlg(tab, eVectorGraphics) {}

BOOL CVectorGraphics::OnInitDialog()
{
    GmDeviceSubDlg::OnInitDialog();
    for (const int id : {IDC_VECTOR_LABEL_1, IDC_COLOR_DEPTH, IDC_MONOCHROME, IDC_COLOR, IDC_RESOLUTION,
                         IDC_VECTOR_LABEL_3, IDC_DITHERING, IDC_VECTOR_LABEL_4})
        ::EnableWindow(::GetDlgItem(m_hWnd, id), FALSE);
    showValues();
    return TRUE;
}

// Once: the tree's label shows later changes.
void CVectorGraphics::showValues() const
{
    const GmResColorMemNode& color = cfg().m_res_color_mem;
    const GmResolutionParts resolution = resolutionParts(color.m_resolution.m_name);
    SetDlgItemText(IDC_COLOR_DEPTH, CString(colorsText(color, languageTexts())));
    CheckRadioButton(IDC_MONOCHROME, IDC_COLOR, isMonochrome(color) ? IDC_MONOCHROME : IDC_COLOR);
    SetDlgItemText(IDC_RESOLUTION, CString(shownLine(resolution.resolution)));
    SetDlgItemText(IDC_DITHERING, CString(shownLine(resolution.dithering)));
}
