#include "GarmPC3Editor/Dialogs/GmDeviceSubDlg.h"

#include "GarmPC3Editor/Dialogs/GmPCfgDlg.h"
#include "GarmPC3Editor/Dialogs/GmTabDevice.h"
#include "kernel/OdAssert.h"

#include <uxtheme.h>

GmDeviceSubDlg::GmDeviceSubDlg(GmTabDevice& tab, GmDeviceEntry type)
    : CDialog(deviceRow(type)->dialog, &tab), m_dlg(tab), m_type(type)
{
}

GmPlotCfg3& GmDeviceSubDlg::cfg() const
{
    return m_dlg.parentDlg().cfg();
}

bool GmDeviceSubDlg::createInFrame()
{
    // A page that already has a window stays as it is.
    if (!OD_VERIFY(!*this, "GarmPC3Editor/Dialogs/GmDeviceSubDlg"))
        return true;
    if (!Create(m_lpszTemplateName, &m_dlg))
        return false;
    // On a tab with another background than a dialog's the page would stand out as a box.
    ::EnableThemeDialogTexture(*this, ETDT_ENABLETAB);
    activate();
    placeInFrame();
    RedrawWindow();
    return true;
}

void GmDeviceSubDlg::placeInFrame() const
{
    RECT tab = {};
    m_dlg.GetWindowRect(&tab);
    RECT frame = {};
    m_dlg.frame().GetWindowRect(&frame);
    RECT own = {};
    GetClientRect(&own);
    MoveWindow(frame.left - tab.left, frame.top - tab.top, own.right, own.bottom);
    // A new child is last in the tab order, after the tab's buttons; it belongs right after the tree.
    SetWindowPos(m_dlg.frame(), 0, 0, 0, 0, SWP_NOMOVE | SWP_NOSIZE | SWP_NOACTIVATE);
}

void GmDeviceSubDlg::activate()
{
    EnableWindow(TRUE);
    show();
}

void GmDeviceSubDlg::show() const
{
    ShowWindow(SW_SHOW);
    RedrawWindow(nullptr, nullptr, RDW_INVALIDATE | RDW_ERASE | RDW_ALLCHILDREN | RDW_UPDATENOW);
}
