#include "GarmPC3Editor/Dialogs/DevicePages.h"

#include "GarmPC3Editor/Decisions/PageValues.h"
#include "GarmPC3Editor/Decisions/VirtualPrinter.h"
#include "GarmPC3Editor/Dialogs/CPDFPrintDlg.h"
#include "GarmPC3Editor/Dialogs/GmPCfgDlg.h"
#include "GarmPC3Editor/Dialogs/GmTabDevice.h"
#include "GarmPC3Editor/Model/AnswerOnThrow.h"
#include "mfc/AfxModalLoop.h"
#include "resources/Resource.h"
#include "spooler/Handles.h"
#include "spooler/PrinterQueries.h"

namespace
{
constexpr DWORD silently = DM_IN_BUFFER | DM_OUT_BUFFER;

// An exception in a driver counts as a failure: it must not close the editor and lose the user's changes.
DevModeMerge merged(HWND owner, HANDLE printer, const OdString& name, std::span<const BYTE> devMode, DWORD mode)
{
    return answerOnThrow(DevModeMerge{}, [&] { return mergeDevMode(owner, printer, name.c_str(), devMode, mode); });
}

// Disables the whole sheet while someone else's dialog is open. Afterwards the sheet is active again and the focus is
// where it was.
class DisabledSheet
{
public:
    explicit DisabledSheet(HWND sheet) : m_focus(::GetFocus()), m_sheet(sheet) {}
    DisabledSheet(const DisabledSheet&) = delete;
    DisabledSheet& operator=(const DisabledSheet&) = delete;
    ~DisabledSheet()
    {
        m_sheet.enable();
        m_sheet.activate();
        if (::IsWindow(m_focus))
            ::SetFocus(m_focus);
    }

private:
    HWND m_focus;
    AfxDisabledOwner m_sheet;
};
} // namespace

CCustomProp::CCustomProp(GmTabDevice& tab) : GmDeviceSubDlg(tab, eCustomProp) {}

void CCustomProp::OnDriverSettings()
{
    // The button does nothing for the file formats: quirk 66.
    if (driverSettings(cfg().m_meta) == GmDriverSettings::windowsDriver)
        editDevMode();
}

void CCustomProp::editDevMode()
{
    GmPCfgDlg& sheet = m_dlg.parentDlg();
    const OdArray<unsigned char> bytes = sheet.cfg().toDevMode();
    if (bytes.isEmpty())
        return;
    const std::span<const BYTE> devMode(bytes.getPtr(), bytes.size());
    const OdString name = sheet.cfg().m_meta.m_win_device_name;
    const PrinterHandle printer = answerOnThrow(PrinterHandle(), [&] { return openPrinter(name.c_str()); });
    if (!printer)
        return;

    const DevModeMerge merge = isVirtualPrinter(name) ? showVirtualPrinterDialog(printer.get(), name, devMode)
                                                      : showDriverDialog(printer.get(), name, devMode);
    // A driver's dialog may return this even if it was cancelled: quirk 67.
    if (merge.result != IDOK)
        return;
    // Quirk 27.
    bool modified = false;
    sheet.cfg().updateFromDevMode(merge.block.view(), name, modified);
    if (modified)
        sheet.m_modified = true;
    m_dlg.refreshAll();
}

DevModeMerge CCustomProp::showDriverDialog(HANDLE printer, const OdString& name, std::span<const BYTE> devMode)
{
    const DisabledSheet sheet(m_dlg.parentDlg());
    return merged(m_hWnd, printer, name, devMode, silently | DM_IN_PROMPT);
}

DevModeMerge CCustomProp::showVirtualPrinterDialog(HANDLE printer, const OdString& name, std::span<const BYTE> devMode)
{
    DevModeMerge merge = merged(m_hWnd, printer, name, devMode, silently);
    // If the driver damaged the block or threw, the user edits the configuration's own block.
    if (!merge.block.view())
        merge.block = DevModeBlock::copyOf(DevModeView(devMode));
    if (!merge.block)
        return merge;
    CPDFPrintDlg dialog(cfg().m_meta, this);
    dialog.m_devMode = merge.block.get();
    dialog.m_printerName = name;
    dialog.DoModal();
    return merge;
}

BEGIN_MESSAGE_MAP(CCustomProp, GmDeviceSubDlg)
ON_BN_CLICKED(IDC_DRIVER_SETTINGS, &CCustomProp::OnDriverSettings)
END_MESSAGE_MAP()
