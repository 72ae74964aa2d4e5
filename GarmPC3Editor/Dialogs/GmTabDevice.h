#pragma once

#include "GarmPC3Editor/Dialogs/GmBaseTab.h"
#include "GarmPC3Editor/Dialogs/GmDeviceSubDlg.h"
#include "mfc/Mfc.h"

#include <cstdint>
#include <map>
#include <memory>

// The editor's second tab: a tree of the device and document settings, and beside it the page of the selected entry.
//
// An entry's label shows the setting's value. Entries whose label changed while the sheet is open carry a check mark,
// which is never taken away again, not even when the value is changed back.
class GmTabDevice : public CPropertyPage, public GmBaseTab
{
public:
    GmTabDevice();
    ~GmTabDevice() override;

    void attach(GmPCfgDlg& sheet) override;
    GmPCfgDlg& parentDlg() override;

    BOOL OnInitDialog() override;

    // What the pages need.

    // Where pages are put: with its top left corner, and in the order of the Tab key right after it.
    const CStatic& frame() const noexcept { return m_frame; }

    // Takes the selected entry's page over into the configuration. Every change of a page's control comes here.
    void commitSelected();

    // Shows the configuration's present values in all labels and marks those that differ from what was shown.
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
    // The page of a kind of entry; none when it was not made yet, or the kind has none.
    GmDeviceSubDlg* findPage(std::int32_t type) const;
    GmDeviceSubDlg* findOrCreatePage(std::int32_t type);
    void commit(GmDeviceSubDlg& page, HTREEITEM item);

    CStatic m_frame;
    CTreeCtrl m_tree;
    CImageList m_images;
    // By kind of entry, made when the entry is first selected; null for a kind without a page.
    std::map<std::int32_t, std::unique_ptr<GmDeviceSubDlg>> m_pages;
    // What the labels say, by kind of entry: they may show less of it.
    std::map<std::int32_t, OdString> m_labels;
    GmPCfgDlg* m_sheet = nullptr;
};
