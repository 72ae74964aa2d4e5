#pragma once

#include "GarmPC3Editor/Decisions/ShownText.h"
#include "GarmPC3Editor/Dialogs/DialogParts.h"
#include "GarmPC3Editor/Dialogs/GmBaseTab.h"
#include "GarmPC3Editor/Dialogs/LanguageResources.h"
#include "mfc/Mfc.h"

#include <cstdint>

// The editor's first tab: what the configuration is, its description (edited here only) and the installed printers.
class GmTabGeneral : public CPropertyPage, public GmBaseTab
{
public:
    GmTabGeneral();

    // Whether the description was edited since it was last shown. False without a window.
    bool isModified() override;

    // Reads the texts from the sheet's configuration; the controls show them at the next UpdateData(FALSE).
    void attach(GmPCfgDlg& sheet) override;
    GmPCfgDlg& parentDlg() override;

    void setFileName(const OdString& fileName) { m_fileName = shownLine(fileName); }

    BOOL OnInitDialog() override;
    BOOL PreTranslateMessage(MSG* pMsg) override;

protected:
    void DoDataExchange(CDataExchange* pDX) override;
    afx_msg void OnPrinterChange();
    DECLARE_MESSAGE_MAP()

private:
    void showWhetherEditable() const;
    void showDriverIcon();
    void fillPrinters();
    void selectPrinter();

    EditedText m_description;
    CString m_fileName;
    CStatic m_icon;
    CString m_driver;
    CString m_driverFile;
    CString m_version;
    CString m_port;
    CComboBox m_printers;
    std::int32_t m_selection = -1; // of the configuration's printer; 0 while the placeholder is shown
    bool m_placeholder = false;    // entry 0 is a printer that is not installed
    GmPCfgDlg* m_sheet = nullptr;

    IconHandle m_driverIcon; // what m_icon shows
    DescriptionEdit m_descriptionEdit;
    FullTextTips m_tips;
};
