#pragma once

#include "GarmPC3Editor/Decisions/DeviceTree.h"
#include "mfc/Mfc.h"

class GmTabDevice;

// The base of the pages that the device tab shows beside its tree, each for one kind of entry.
//
// A page reads its values when it is created and writes them into the configuration in its data exchange, which the tab
// runs at every change. It keeps what it read: if the configuration changes elsewhere (reset to defaults), the page
// still shows the old value and writes it back when it is left.
class GmDeviceSubDlg : public CDialog
{
public:
    GmDeviceSubDlg(GmTabDevice& tab, GmDeviceEntry type);

    GmDeviceEntry eType() const noexcept { return m_type; }

    // Creates the window as a child of the tab, shown and enabled, in the place of the tab's frame. Returns false if
    // the system refuses.
    bool createInFrame();

    // Enables, shows and repaints the page.
    virtual void activate();

protected:
    // Inside the tab's dialog: no button of the page closes anything.
    void OnOK() override {}
    void OnCancel() override {}

    GmPlotCfg3& cfg() const;
    void show() const;

    GmTabDevice& m_dlg;

private:
    void placeInFrame() const;

    GmDeviceEntry m_type;

public:
    // Set by a data exchange that changed a stored value, cleared by the tab once it has handled that.
    bool bModified = false;
};
