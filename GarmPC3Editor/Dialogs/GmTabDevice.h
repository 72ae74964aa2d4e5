#pragma once

#include "GarmPC3Editor/Dialogs/GmBaseTab.h"
#include "GarmPC3Editor/Dialogs/GmDeviceSubDlg.h"
#include "mfc/Mfc.h"

#include <cstdint>
#include <map>
#include <memory>

// The editor's second tab: a tree of the device and document settings, and beside it the page of the selected entry.
//
// An entry's label shows the setting's value. Entries whose label changed while the sheet is open have a check mark,
// which stays even if the value is changed back.
class GmTabDevice : public CPropertyPage, public GmBaseTab
{
public:
    GmTabDevice();
    ~GmTabDevice() override;

    void attach(GmPCfgDlg& sheet) override;
    GmPCfgDlg& parentDlg() override;

    BOOL OnInitDialog() override;

    // What the pages need.

    // Where pages are placed: at its top left corner, and right after it in the tab order.
    const CStatic& frame() const noexcept { return m_frame; }

    // Writes the selected entry's page into the configuration. Called for every change in a page's controls.
    void commitSelected();

    // Updates all labels to the configuration's values and marks those that change.
    void refreshAll();

protected:
    void DoDataExchange(CDataExchange* pDX) override;

    afx_msg void OnSelChanged(NMHDR* header, LRESULT* result);
    afx_msg void OnSaveAs();
    afx_msg void OnDefaults();
    DECLARE_MESSAGE_MAP()

private:
    void loadImages();
    bool insertEntries();
    void refreshItem(HTREEITEM item, bool mark, bool recurse);

    std::int32_t typeOf(HTREEITEM item) const;
    // The page of a kind of entry; null if it does not exist yet or the kind has none.
    GmDeviceSubDlg* findPage(std::int32_t type) const;
    GmDeviceSubDlg* findOrCreatePage(std::int32_t type);
    void commit(GmDeviceSubDlg& page, HTREEITEM item);

    CStatic m_frame;
    CTreeCtrl m_tree;
    CImageList m_images;
    // By kind of entry, created when the entry is first selected; null for a kind without a page.
    std::map<std::int32_t, std::unique_ptr<GmDeviceSubDlg>> m_pages;
    // The full text of the labels, by kind of entry; a label may show only part of it.
    std::map<std::int32_t, OdString> m_labels;
    GmPCfgDlg* m_sheet = nullptr;
};
