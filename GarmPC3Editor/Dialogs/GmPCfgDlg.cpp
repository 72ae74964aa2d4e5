#include "GarmPC3Editor/Dialogs/GmPCfgDlg.h"

#include "GarmPC3Editor/Decisions/ConfigurationNames.h"
#include "GarmPC3Editor/Decisions/GeneralTab.h"
#include "GarmPC3Editor/Decisions/ShownText.h"
#include "GarmPC3Editor/Dialogs/LanguageResources.h"
#include "kernel/OdError.h"
#include "resources/Resource.h"

// The caption is replaced before it is shown.
GmPCfgDlg::GmPCfgDlg() : CPropertySheet(L"Caption", nullptr, 0)
{
    AddPage(&m_generalTab);
    AddPage(&m_deviceTab);
    m_tabs = {&m_generalTab, &m_deviceTab};
    // Every change takes effect at once, so there is nothing to apply.
    m_psh.dwFlags |= PSH_NOAPPLYNOW;
}

void GmPCfgDlg::setConfig(const OdSharedPtr<GmPlotCfg3>& cfg, const CString& path, const CString& initialDir)
{
    m_cfg = cfg;
    m_path = path;
    m_initialDir = initialDir;
    // The other flags stay: they cover the whole life of the sheet.
    m_modified = false;
    for (GmBaseTab* tab : m_tabs)
        tab->attach(*this);
}

void GmPCfgDlg::changeCfg(GmPlotCfg3* newCfg)
{
    m_cfg = exchangedForPrinter(m_cfg, OdSharedPtr<GmPlotCfg3>(newCfg));
    OnInitDialog();
    m_replaced = true;
}

OdString GmPCfgDlg::fileTitle() const
{
    return ::fileTitle(m_path.toOdString(), cfg());
}

void GmPCfgDlg::updateCaption()
{
    SetWindowText(formatText(languageTexts()(IDS_SHEET_TITLE), {shownLine(fileTitle())}).c_str());
}

void GmPCfgDlg::saveAs()
{
    const GmTexts texts = languageTexts();
    CFileDialog dialog(FALSE, L"pc3", m_path, OFN_HIDEREADONLY | OFN_OVERWRITEPROMPT, texts(IDS_SAVE_FILTER).c_str(),
                       this, 0, TRUE);
    if (m_path.IsEmpty())
        dialog.m_ofn.lpstrInitialDir = m_initialDir;
    if (dialog.DoModal() != IDOK)
        return;

    const CString path = dialog.GetPathName();
    if (!cfg().write(path.toOdString()))
    {
        CString title;
        GetWindowText(title);
        MessageBox(texts(IDS_SAVE_FAILED).c_str(), title, MB_ICONEXCLAMATION);
        return;
    }
    m_saved = true;
    m_path = path;
    updateCaption();
    CPropertyPage* firstPage = GetPage(0);
    m_generalTab.setFileName(fileTitle());
    firstPage->UpdateData(FALSE);
}

BOOL GmPCfgDlg::OnInitDialog()
{
    CPropertySheet::OnInitDialog();
    m_helpButton.setPicture(*this);
    // Highlights only. The right page is shown already: the first when the sheet opens, the current one later.
    ::SendMessageW(tabControl(), TCM_SETCURSEL, static_cast<WPARAM>(m_curTab), 0);
    updateCaption();
    return TRUE;
}

HWND GmPCfgDlg::tabControl() const
{
    return m_hWnd ? reinterpret_cast<HWND>(SendMessage(PSM_GETTABCONTROL)) : nullptr;
}

std::int32_t GmPCfgDlg::selectedTab() const
{
    return static_cast<std::int32_t>(::SendMessageW(tabControl(), TCM_GETCURSEL, 0, 0));
}

// The system's procedure switches the pages, so it gets both notifications too.

void GmPCfgDlg::OnTabSelChange(NMHDR* /*header*/, LRESULT* result)
{
    m_curTab = selectedTab();
    Default();
    *result = 0;
}

void GmPCfgDlg::OnTabSelChanging(NMHDR* /*header*/, LRESULT* result)
{
    UpdateData(TRUE);
    if (GetPage(selectedTab())->UpdateData(TRUE))
        *result = Default();
    else
        *result = TRUE;
}

BEGIN_MESSAGE_MAP(GmPCfgDlg, CPropertySheet)
ON_NOTIFY(TCN_SELCHANGE, AFX_IDC_TAB_CONTROL, &GmPCfgDlg::OnTabSelChange)
ON_NOTIFY(TCN_SELCHANGING, AFX_IDC_TAB_CONTROL, &GmPCfgDlg::OnTabSelChanging)
ON_COMMAND(IDHELP, &GmPCfgDlg::OnHelpButton)
ON_WM_DESTROY()
END_MESSAGE_MAP()

GmPCfgDlg& parentSheet(const CWnd& tab)
{
    auto* sheet = dynamic_cast<GmPCfgDlg*>(tab.m_hWnd ? CWnd::FromHandlePermanent(::GetParent(tab)) : nullptr);
    if (!sheet)
        throw OdError(eNullObjectPointer);
    return *sheet;
}
