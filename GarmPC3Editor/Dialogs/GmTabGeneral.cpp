#include "GarmPC3Editor/Dialogs/GmTabGeneral.h"

#include "GarmPC3Editor/Decisions/GeneralTab.h"
#include "GarmPC3Editor/Dialogs/GmPCfgDlg.h"
#include "GarmPC3Editor/Dialogs/LanguageResources.h"
#include "kernel/OdAssert.h"
#include "resources/Resource.h"

namespace
{
// Whether the system is Wine, by the registry key of its settings, whatever the key contains.
bool runsUnderWine() noexcept
{
    HKEY key = nullptr;
    const LSTATUS opened = ::RegOpenKeyExW(HKEY_LOCAL_MACHINE, L"Software\\Wine\\Wine\\Config", 0, KEY_READ, &key);
    return static_cast<bool>(RegistryKey(opened == ERROR_SUCCESS ? key : nullptr));
}
} // namespace

GmTabGeneral::GmTabGeneral() : CPropertyPage(IDD_GENERAL, IDS_TAB_GENERAL) {}

bool GmTabGeneral::isModified()
{
    return m_hWnd && SendDlgItemMessage(IDC_DESCRIPTION, EM_GETMODIFY) == 1;
}

void GmTabGeneral::attach(GmPCfgDlg& sheet)
{
    m_sheet = &sheet;
    const GmPlotCfg3& cfg = sheet.cfg();
    const GmTexts texts = languageTexts();
    m_description = EditedText(cfg.m_meta.m_config_description);
    setFileName(sheet.fileTitle());
    m_driver = shownLine(driverLine(cfg.m_meta, texts));
    m_driverFile = shownLine(driverFile(cfg.m_meta));
    m_version = shownLine(versionLine(cfg.m_meta, texts));
    m_port = shownLine(portLine(cfg, texts));
}

GmPCfgDlg& GmTabGeneral::parentDlg()
{
    return parentSheet(*this);
}

void GmTabGeneral::DoDataExchange(CDataExchange* pDX)
{
    CPropertyPage::DoDataExchange(pDX);
    CString description(m_description.shown());
    DDX_Text(pDX, IDC_DESCRIPTION, description);
    DDX_Text(pDX, IDC_FILE_NAME, m_fileName);
    DDX_Control(pDX, IDC_DRIVER_ICON, m_icon);
    DDX_Text(pDX, IDC_DRIVER, m_driver);
    DDX_Text(pDX, IDC_DRIVER_FILE, m_driverFile);
    DDX_Text(pDX, IDC_VERSION, m_version);
    DDX_Text(pDX, IDC_PORT, m_port);
    DDX_Control(pDX, IDC_PRINTERS, m_printers);
    DDX_Control(pDX, IDC_DESCRIPTION, m_descriptionEdit);
    if (!pDX->m_bSaveAndValidate)
    {
        showWhetherEditable();
        m_tips.setTexts(*this, {IDC_FILE_NAME, IDC_DRIVER, IDC_DRIVER_FILE, IDC_VERSION, IDC_PORT});
        return;
    }

    m_description.takeFrom(description.toOdString());
    OdString& stored = m_sheet->cfg().m_meta.m_config_description;
    if (m_description.whole() == stored)
        return;
    stored = m_description.whole();
    m_sheet->m_modified = true;
}

void GmTabGeneral::showWhetherEditable() const
{
    const bool isCut = m_description.isCut();
    m_descriptionEdit.SetReadOnly(isCut ? TRUE : FALSE);
    SetDlgItemText(IDC_DESCRIPTION_NOTE, isCut ? CString(languageTexts()(IDS_DESCRIPTION_CUT)) : CString());
}

BOOL GmTabGeneral::OnInitDialog()
{
    CPropertyPage::OnInitDialog();
    // More than the default, but no more than the field shows when the file is opened again.
    m_descriptionEdit.LimitText(longestShownText);
    showDriverIcon();
    fillPrinters();
    selectPrinter();
    // Quirk 53.
    m_printers.EnableWindow(FALSE);
    return TRUE;
}

void GmTabGeneral::showDriverIcon()
{
    const bool isSystemPrinter = !m_sheet->cfg().m_meta.m_win_device_name.isEmpty();
    IconHandle icon = loadIcon(isSystemPrinter ? IDI_SYSTEM_PRINTER : IDI_FILE_PRINTER, ::GetSystemMetrics(SM_CXICON));
    m_icon.SetIcon(icon.get());
    m_driverIcon = std::move(icon);
}

void GmTabGeneral::fillPrinters()
{
    for (const OdString& name : printerNames(&runsUnderWine))
        m_printers.AddString(shownLine(name).c_str());
}

void GmTabGeneral::selectPrinter()
{
    // The name as shown: cut at its first NUL, it might match another printer.
    const OdString name = shownLine(m_sheet->cfg().m_meta.m_win_device_name);
    if (name.isEmpty())
        return;
    m_selection = m_printers.FindStringExact(-1, name.c_str());
    if (m_selection == CB_ERR)
    {
        m_selection = m_printers.InsertString(0, notInstalledEntry(name, languageTexts()).c_str());
        m_placeholder = true;
    }
    m_printers.SetCurSel(m_selection);
}

void GmTabGeneral::OnPrinterChange()
{
    std::int32_t selection = m_printers.GetCurSel();
    if (selection == m_selection)
        return;
    if (m_placeholder)
    {
        // The entries after it move up, and there is no selection left to go back to: quirk 54.
        m_printers.DeleteString(0);
        m_placeholder = false;
        m_selection = CB_ERR;
        selection = m_printers.GetCurSel();
    }
    CString name;
    m_printers.GetLBText(selection, name);
    const OdSharedPtr<GmPlotCfg3> created = GmPlotCfg3::create(name.toOdString());
    if (!created)
    {
        odReportAssert("0", "GarmPC3Editor/Dialogs/GmTabGeneral", __LINE__);
        m_printers.SetCurSel(m_selection);
        return;
    }
    m_selection = selection;
    // A copy: the sheet takes ownership, and this one has an owner.
    parentDlg().changeCfg(new GmPlotCfg3(*created));
}

BOOL GmTabGeneral::PreTranslateMessage(MSG* pMsg)
{
    // Before the description field handles the key, wherever the focus is on this tab.
    if (pMsg->message == WM_KEYDOWN && pMsg->wParam == VK_ESCAPE)
    {
        parentDlg().EndDialog(IDCANCEL);
        return TRUE;
    }
    return CPropertyPage::PreTranslateMessage(pMsg);
}

BEGIN_MESSAGE_MAP(GmTabGeneral, CPropertyPage)
ON_CBN_SELCHANGE(IDC_PRINTERS, &GmTabGeneral::OnPrinterChange)
ON_WM_DESTROY()
END_MESSAGE_MAP()
