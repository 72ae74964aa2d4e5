#include "GarmPC3Editor/Dialogs/GmTabDevice.h"

#include "GarmPC3Editor/Decisions/ShownText.h"
#include "GarmPC3Editor/Dialogs/DevicePages.h"
#include "GarmPC3Editor/Dialogs/GmPCfgDlg.h"
#include "GarmPC3Editor/Dialogs/LanguageResources.h"
#include "kernel/OdAssert.h"
#include "resources/Resource.h"

namespace
{
constexpr int checkOverlay = 1;

void verify(bool held, const char* text, int line)
{
    if (!held)
        odReportAssert(text, "GarmPC3Editor/Dialogs/GmTabDevice", line);
}
} // namespace

GmTabDevice::GmTabDevice() : CPropertyPage(IDD_DEVICE, IDS_TAB_DEVICE) {}

GmTabDevice::~GmTabDevice() = default;

void GmTabDevice::attach(GmPCfgDlg& sheet)
{
    m_sheet = &sheet;
}

GmPCfgDlg& GmTabDevice::parentDlg()
{
    return parentSheet(*this);
}

void GmTabDevice::DoDataExchange(CDataExchange* pDX)
{
    CPropertyPage::DoDataExchange(pDX);
    DDX_Control(pDX, IDC_PAGE_FRAME, m_frame);
    DDX_Control(pDX, IDC_TREE, m_tree);
}

BOOL GmTabDevice::OnInitDialog()
{
    CPropertyPage::OnInitDialog();
    // 16 pixels, more on screens of a higher resolution. With 32-bit colour the check mark would not be drawn over the
    // icons, and with the mask alone they would have 16 colours.
    const int size = ::GetSystemMetrics(SM_CXSMICON);
    if (const BOOL created = m_images.Create(size, size, ILC_MASK | ILC_COLOR24, 0, 1); !created)
        return created;
    loadImages();
    m_tree.SetImageList(m_images, TVSIL_NORMAL);
    return insertEntries() ? TRUE : FALSE;
}

// The number of a kind is the place of its icon, even if one is missing: quirk 65.
void GmTabDevice::loadImages()
{
    int width = 0;
    int height = 0;
    ::ImageList_GetIconSize(m_images, &width, &height);
    for (std::int32_t type = 0; type < deviceRowCount; ++type)
    {
        const GmDeviceRow& row = *deviceRow(type);
        const IconHandle icon = loadIcon(row.icon, width);
        verify(static_cast<bool>(icon), "hIcon", __LINE__);
        const int index = icon ? m_images.Add(icon.get()) : -1;
        verify(index == type, row.iconAssertion, __LINE__);
        if (type == eChecked)
            m_images.SetOverlayImage(eChecked, checkOverlay);
    }
}

bool GmTabDevice::insertEntries()
{
    std::map<GmDeviceEntry, HTREEITEM> handles;
    for (const GmDeviceTreeItem& entry : deviceTree(m_sheet->cfg()))
    {
        // Media is complete and is expanded before the rest is added.
        if (entry.type == eGraphics)
            m_tree.Expand(handles[eMedia], TVE_EXPAND);

        WCHAR noText[] = L"";
        TVINSERTSTRUCTW insert = {};
        insert.hParent = entry.parent ? handles[*entry.parent] : TVI_ROOT;
        insert.hInsertAfter = TVI_LAST;
        insert.itemex.mask = TVIF_TEXT | TVIF_IMAGE | TVIF_SELECTEDIMAGE | TVIF_PARAM | TVIF_CHILDREN;
        insert.itemex.pszText = noText;
        insert.itemex.iImage = entry.type;
        insert.itemex.iSelectedImage = entry.type;
        insert.itemex.lParam = entry.type;
        insert.itemex.cChildren = entry.hasChildren ? 1 : 0;
        const HTREEITEM item = m_tree.InsertItem(insert);
        if (!item)
            return false;
        handles[entry.type] = item;
        refreshItem(item, false, false);
    }
    // Creates the custom properties page, so that there is a page when the tab is shown.
    m_tree.SelectItem(handles[eCustomProp]);
    m_tree.Expand(handles[eRoot], TVE_EXPAND);
    return true;
}

void GmTabDevice::refreshItem(HTREEITEM item, bool mark, bool recurse)
{
    const std::int32_t type = typeOf(item);
    OdString newLabel = deviceLabel(type, {m_sheet->cfg(), m_sheet->fileTitle(), languageTexts()});
    if (!newLabel.isEmpty())
    {
        m_tree.SetItemText(item, shownLine(newLabel).c_str());
        if (mark && newLabel != m_labels[type])
            m_tree.SetItemState(item, INDEXTOOVERLAYMASK(checkOverlay), TVIS_OVERLAYMASK);
        m_labels[type] = std::move(newLabel);
    }
    if (!recurse)
        return;
    for (HTREEITEM child = m_tree.GetChildItem(item); child; child = m_tree.GetNextSiblingItem(child))
        refreshItem(child, mark, recurse);
}

void GmTabDevice::refreshAll()
{
    if (const HTREEITEM root = m_tree.GetRootItem())
        refreshItem(root, true, true);
}

std::int32_t GmTabDevice::typeOf(HTREEITEM item) const
{
    return static_cast<std::int32_t>(m_tree.GetItemData(item));
}

GmDeviceSubDlg* GmTabDevice::findPage(std::int32_t type) const
{
    const auto found = m_pages.find(type);
    return found == m_pages.end() ? nullptr : found->second.get();
}

GmDeviceSubDlg* GmTabDevice::findOrCreatePage(std::int32_t type)
{
    // That a kind has no page is stored too.
    if (const auto found = m_pages.find(type); found != m_pages.end())
        return found->second.get();
    return m_pages.emplace(type, createDevicePage(type, *this)).first->second.get();
}

void GmTabDevice::commit(GmDeviceSubDlg& page, HTREEITEM item)
{
    // A flag that is still set is a change that has not been handled yet.
    verify(!page.bModified, "bModified == false", __LINE__);
    page.UpdateData(TRUE);
    if (!page.bModified)
        return;
    // That page notifies the sheet itself.
    verify(page.eType() != eCustomProp, "dlg->eType() != eCustomProp", __LINE__);
    refreshItem(item, true, false);
    page.bModified = false;
    parentDlg().m_modified = true;
}

void GmTabDevice::commitSelected()
{
    const HTREEITEM item = m_tree.GetSelectedItem();
    verify(item != nullptr, "0", __LINE__);
    if (!item)
        return;
    GmDeviceSubDlg* const page = findPage(typeOf(item));
    verify(page != nullptr, "0", __LINE__);
    if (page)
        commit(*page, item);
}

void GmTabDevice::OnSelChanged(NMHDR* header, LRESULT* result)
{
    *result = 0;
    const auto& change = *reinterpret_cast<const NMTREEVIEWW*>(header);
    GmDeviceSubDlg* const before = findPage(static_cast<std::int32_t>(change.itemOld.lParam));
    // Before the old page is committed: quirk 63.
    GmDeviceSubDlg* const now = findOrCreatePage(static_cast<std::int32_t>(change.itemNew.lParam));
    if (before)
    {
        commit(*before, change.itemOld.hItem);
        before->EnableWindow(FALSE);
        before->ShowWindow(SW_HIDE);
    }
    if (now)
        now->activate();
}

void GmTabDevice::OnSaveAs()
{
    m_sheet->saveAs();
}

// Quirk 60 and quirk 61.
void GmTabDevice::OnDefaults()
{
    CString title;
    m_sheet->GetWindowText(title);
    const CString question(languageTexts()(IDS_RESET_QUESTION));
    if (m_sheet->MessageBox(question, title, MB_YESNO | MB_ICONEXCLAMATION) == IDYES && m_sheet->cfg().setToDefault())
        refreshAll();
}

BEGIN_MESSAGE_MAP(GmTabDevice, CPropertyPage)
ON_NOTIFY(TVN_SELCHANGEDW, IDC_TREE, &GmTabDevice::OnSelChanged)
ON_BN_CLICKED(IDC_SAVE_AS, &GmTabDevice::OnSaveAs)
ON_BN_CLICKED(IDC_DEFAULTS, &GmTabDevice::OnDefaults)
END_MESSAGE_MAP()
