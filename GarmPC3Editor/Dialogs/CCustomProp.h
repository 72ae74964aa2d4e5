#pragma once

#include "GarmPC3Editor/Dialogs/GmDeviceSubDlg.h"

#include <span>

class OdString;
struct DevModeMerge;

// Opens the settings of the printer's driver, or for the product family's own printers the dialog that stands in for
// them. What was set goes into the configuration right away and not through the tab's commit.
class CCustomProp : public GmDeviceSubDlg
{
public:
    explicit CCustomProp(GmTabDevice& tab);

protected:
    afx_msg void OnDriverSettings();
    DECLARE_MESSAGE_MAP()

private:
    void editDevMode();
    DevModeMerge showDriverDialog(HANDLE printer, const OdString& name, std::span<const BYTE> devMode);
    DevModeMerge showVirtualPrinterDialog(HANDLE printer, const OdString& name, std::span<const BYTE> devMode);
};
