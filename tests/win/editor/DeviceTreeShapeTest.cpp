// The tree of the device tab as it is built.

#include "tests/support/operator/SentMessages.h"
#include "tests/win/editor/DeviceTabTest.h"

#include "kernel/OdError.h"
#include "resources/Resource.h"

using DeviceTreeShape = DeviceTabTest;

namespace
{
using Types = std::vector<GmDeviceEntry>;

const Types allEntries = {eRoot,           eMedia,          eSourceSize, eMediaDest, eCollating, eGraphics,
                          eVectorGraphics, eRasterGraphics, eTrueType,   eMergeCtrl, eCustomProp};

// The pixels of pictures drawn over each other.
std::vector<DWORD> drawn(HIMAGELIST list, const std::vector<std::pair<int, UINT>>& picturesAndStyles)
{
    int width = 0;
    int height = 0;
    ::ImageList_GetIconSize(list, &width, &height);
    BITMAPINFO info = {};
    info.bmiHeader.biSize = sizeof info.bmiHeader;
    info.bmiHeader.biWidth = width;
    info.bmiHeader.biHeight = height;
    info.bmiHeader.biPlanes = 1;
    info.bmiHeader.biBitCount = 32;
    void* bits = nullptr;
    const HBITMAP bitmap = ::CreateDIBSection(nullptr, &info, DIB_RGB_COLORS, &bits, nullptr, 0);
    const HDC dc = ::CreateCompatibleDC(nullptr);
    const HGDIOBJ before = ::SelectObject(dc, bitmap);
    for (const auto& [picture, style] : picturesAndStyles)
        ::ImageList_Draw(list, picture, dc, 0, 0, style);
    ::GdiFlush();
    const auto* const first = static_cast<const DWORD*>(bits);
    std::vector<DWORD> pixels(first, first + width * height);
    ::SelectObject(dc, before);
    // The room replaces DeleteDC, and this context is not one of its own.
    const auto deleteDC = reinterpret_cast<BOOL(WINAPI*)(HDC)>(
        reinterpret_cast<void*>(::GetProcAddress(::GetModuleHandleW(L"gdi32.dll"), "DeleteDC")));
    deleteDC(dc);
    ::DeleteObject(bitmap);
    return pixels;
}

int refusedInsertion = 0; // the n-th fails; 0 is none

LRESULT CALLBACK refuseInsertion(HWND window, UINT message, WPARAM wParam, LPARAM lParam, UINT_PTR, DWORD_PTR)
{
    if (message == TVM_INSERTITEMW && --refusedInsertion == 0)
        return 0;
    return ::DefSubclassProc(window, message, wParam, lParam);
}
} // namespace

TEST_F(DeviceTreeShape, entriesStandInOrderUnderTheirParents)
{
    run(
        [](DeviceTabUser& tab)
        {
            EXPECT_EQ(tab.entries(), allEntries);
            const auto parentOf = [&tab](GmDeviceEntry type)
            { return tab.typeOf(tab.next(tab.item(type), TVGN_PARENT)); };
            EXPECT_EQ(tab.next(tab.item(eRoot), TVGN_PARENT), nullptr);
            for (const GmDeviceEntry type : {eMedia, eGraphics, eCustomProp})
                EXPECT_EQ(parentOf(type), eRoot);
            for (const GmDeviceEntry type : {eSourceSize, eMediaDest})
                EXPECT_EQ(parentOf(type), eMedia);
            EXPECT_EQ(parentOf(eCollating), eMediaDest);
            for (const GmDeviceEntry type : {eVectorGraphics, eRasterGraphics, eTrueType, eMergeCtrl})
                EXPECT_EQ(parentOf(type), eGraphics);
        });
}

TEST_F(DeviceTreeShape, anEntrysPicturesAndDataAreItsKind)
{
    run(
        [](DeviceTabUser& tab)
        {
            for (const HTREEITEM item : tab.items())
            {
                const TVITEMW details = tab.details(item);
                EXPECT_EQ(details.iImage, details.lParam);
                EXPECT_EQ(details.iSelectedImage, details.lParam);
                const bool hasChildren = details.lParam == eRoot || details.lParam == eMedia ||
                                         details.lParam == eMediaDest || details.lParam == eGraphics;
                EXPECT_EQ(details.cChildren, hasChildren ? 1 : 0) << details.lParam;
                EXPECT_EQ(details.state & TVIS_OVERLAYMASK, 0U) << details.lParam;
            }
        });
}

TEST_F(DeviceTreeShape, withoutDestinationThereIsNeitherItNorCollating)
{
    m_cfg->m_media.m_destination = nullptr;
    run(
        [](DeviceTabUser& tab)
        {
            EXPECT_EQ(tab.item(eMediaDest), nullptr);
            EXPECT_EQ(tab.item(eCollating), nullptr);
            EXPECT_EQ(tab.items().size(), 9U);
        });
}

TEST_F(DeviceTreeShape, noLinesOverwriteValueMeansNoMergeControl)
{
    m_cfg->m_res_color_mem.m_lines_overwrite = nullptr;
    run(
        [](DeviceTabUser& tab)
        {
            EXPECT_EQ(tab.item(eMergeCtrl), nullptr);
            EXPECT_EQ(tab.items().size(), 10U);
        });
}

TEST_F(DeviceTreeShape, onlyRootAndMediaAreExpanded)
{
    run(
        [](DeviceTabUser& tab)
        {
            EXPECT_TRUE(tab.isExpanded(eRoot));
            EXPECT_TRUE(tab.isExpanded(eMedia));
            EXPECT_FALSE(tab.isExpanded(eMediaDest));
            EXPECT_FALSE(tab.isExpanded(eGraphics));
        });
}

TEST_F(DeviceTreeShape, mediaIsExpandedWhenItIsComplete)
{
    std::vector<std::wstring> steps;
    const SentMessages watch(
        [&steps](HWND, UINT message, WPARAM wParam, LPARAM lParam)
        {
            if (message == TVM_INSERTITEMW)
                steps.push_back(L"+" + std::to_wstring(reinterpret_cast<const TVINSERTSTRUCTW*>(lParam)->item.lParam));
            if (message == TVM_EXPAND && wParam == TVE_EXPAND)
                steps.emplace_back(L"expand");
            if (message == TVM_SELECTITEM && wParam == TVGN_CARET)
                steps.emplace_back(L"select");
        });
    run([](DeviceTabUser&) {});
    EXPECT_EQ(steps, (std::vector<std::wstring>{L"+1", L"+2", L"+4", L"+3", L"+5", L"expand", L"+6", L"+7", L"+8",
                                                L"+9", L"+10", L"+11", L"select", L"expand"}));
}

TEST_F(DeviceTreeShape, entryGetsItsLabelRightAfterInsertion)
{
    std::vector<bool> insertions; // true: an empty text was inserted; false: a text was set
    const SentMessages watch(
        [&insertions](HWND, UINT message, WPARAM, LPARAM lParam)
        {
            if (message == TVM_INSERTITEMW)
            {
                const TVITEMW& item = reinterpret_cast<const TVINSERTSTRUCTW*>(lParam)->item;
                EXPECT_STREQ(item.pszText, L"");
                insertions.push_back(true);
            }
            if (message == TVM_SETITEMW && reinterpret_cast<const TVITEMW*>(lParam)->mask & TVIF_TEXT)
                insertions.push_back(false);
        });
    run([](DeviceTabUser&) {});
    ASSERT_EQ(insertions.size(), 2 * allEntries.size());
    for (std::size_t i = 0; i < insertions.size(); ++i)
        EXPECT_EQ(insertions[i], i % 2 == 0);
}

TEST_F(DeviceTreeShape, customPropertiesAreSelectedBeforeTheTabShows)
{
    std::vector<bool> tabWasVisible;
    const SentMessages watch(
        [&](HWND window, UINT message, WPARAM, LPARAM)
        {
            if (message == WM_INITDIALOG && ::GetDlgItem(window, IDC_DRIVER_SETTINGS))
                tabWasVisible.push_back(::IsWindowVisible(::GetParent(window)) != FALSE);
        });
    run(
        [](DeviceTabUser& tab)
        {
            EXPECT_EQ(tab.typeOf(tab.next(nullptr, TVGN_CARET)), eCustomProp);
            EXPECT_EQ(tab.pages().size(), 1U);
            EXPECT_NE(::GetDlgItem(tab.shownPage(), IDC_DRIVER_SETTINGS), nullptr);
        });
    EXPECT_EQ(tabWasVisible, std::vector<bool>{false});
}

TEST_F(DeviceTreeShape, checkMarkIsDrawnOverColouredPictures)
{
    run(
        [](DeviceTabUser& tab)
        {
            const auto list = reinterpret_cast<HIMAGELIST>(tab.user.send(tab.tree, TVM_GETIMAGELIST, TVSIL_NORMAL));
            EXPECT_EQ(::ImageList_GetImageCount(list), 12);
            int width = 0;
            int height = 0;
            EXPECT_TRUE(::ImageList_GetIconSize(list, &width, &height));
            EXPECT_EQ(width, ::GetSystemMetrics(SM_CXSMICON));
            EXPECT_EQ(height, width);
            EXPECT_EQ(::ImageList_GetBkColor(list), CLR_NONE);
            IMAGEINFO info = {};
            ASSERT_TRUE(::ImageList_GetImageInfo(list, 0, &info));
            BITMAP bitmap = {};
            ASSERT_NE(::GetObjectW(info.hbmImage, sizeof bitmap, &bitmap), 0);
            EXPECT_EQ(bitmap.bmBitsPixel, 24);
            EXPECT_NE(info.hbmMask, nullptr);

            const auto plain = drawn(list, {{eRasterGraphics, ILD_NORMAL}});
            const auto marked = drawn(list, {{eRasterGraphics, ILD_NORMAL | INDEXTOOVERLAYMASK(1)}});
            EXPECT_NE(marked, plain);
            EXPECT_EQ(marked, drawn(list, {{eRasterGraphics, ILD_NORMAL}, {eChecked, ILD_TRANSPARENT}}));
        });
}

TEST_F(DeviceTreeShape, labelsShowTheValues)
{
    m_cfg->m_meta.m_truetype_as_text = false;
    m_cfg->m_media.m_destination->setCollating(true);
    run(
        [this](DeviceTabUser& tab)
        {
            EXPECT_EQ(tab.label(eRoot), L"plotter.pc3");
            EXPECT_EQ(tab.label(eMedia), libraryText(IDS_MEDIA));
            EXPECT_EQ(tab.label(eMediaDest), libraryText(IDS_MEDIA_DEST) + L" <Default>");
            EXPECT_EQ(tab.label(eSourceSize), libraryText(IDS_SOURCE_SIZE) + L" <Size: A4>");
            EXPECT_EQ(tab.label(eCollating), libraryText(IDS_COLLATING) + L" <" + libraryText(IDS_COLLATING_ON) + L">");
            EXPECT_EQ(tab.label(eTrueType),
                      libraryText(IDS_TRUETYPE) + L" <" + libraryText(IDS_TRUETYPE_AS_GRAPHICS) + L">");
            EXPECT_EQ(tab.label(eMergeCtrl),
                      libraryText(IDS_MERGE_CTRL) + L" <" + libraryText(IDS_LINES_OVERWRITE) + L">");
            EXPECT_EQ(tab.label(eCustomProp), libraryText(IDS_CUSTOM_PROP));
        });
}

TEST_F(DeviceTreeShape, configurationWithoutFileIsCalledByItsPrinter)
{
    m_sheet.setConfig(m_cfg, L"", L"");
    run([](DeviceTabUser& tab) { EXPECT_EQ(tab.label(eRoot), L"Plotter A"); });
}

TEST_F(DeviceTreeShape, hostileNamesAreShownAsTheyAre)
{
    const std::wstring name = std::wstring(900, L'x') + L"&%s\xD800<>";
    m_cfg->m_media.m_destination->m_name = OdString(name.c_str());
    run([&](DeviceTabUser& tab)
        { EXPECT_EQ(tab.label(eMediaDest), libraryText(IDS_MEDIA_DEST) + L" <" + name + L">"); });
}

TEST_F(DeviceTreeShape, aSecondInitialisationBuildsNoSecondTree)
{
    run(
        [](DeviceTabUser& tab)
        {
            tab.user.send(tab.tab, WM_INITDIALOG);
            EXPECT_EQ(tab.entries(), allEntries);
            EXPECT_EQ(tab.pages().size(), 1U);
        });
}

TEST_F(DeviceTreeShape, aRefusedInsertionEndsTheInitialisation)
{
    for (int n = 1; n <= static_cast<int>(allEntries.size()); ++n)
    {
        refusedInsertion = n;
        EditorSheet sheet;
        sheet.setConfig(m_cfg, L"C:\\plotter.pc3", L"");
        const SentMessages watch(
            [](HWND window, UINT message, WPARAM, LPARAM)
            {
                if (message == WM_CREATE && classOf(window) == WC_TREEVIEWW)
                    ::SetWindowSubclass(window, &refuseInsertion, 1, 0);
            });
        EXPECT_EQ(sheet.show(
                      [n](SheetDriver& user, HWND window)
                      {
                          const DeviceTabUser tab(user, window);
                          EXPECT_EQ(tab.items().size(), static_cast<std::size_t>(n - 1));
                          EXPECT_TRUE(tab.pages().empty());
                          tab.pressOk();
                      }),
                  IDOK);
    }
}

TEST_F(DeviceTreeShape, missingIconsAreAssertedButTheTabWorks)
{
    const HINSTANCE full = library();
    const SentMessages watch(
        [](HWND window, UINT message, WPARAM, LPARAM)
        {
            // From here on nothing is found. The tab's own template has been used by then.
            if (message == WM_CREATE && classOf(window) == WC_TREEVIEWW)
                AfxSetResourceHandle(::GetModuleHandleW(nullptr));
        });
    EXPECT_EQ(run(
                  [&](DeviceTabUser& tab)
                  {
                      EXPECT_EQ(tab.entries(), allEntries);
                      // No page can be made either, and the frame stays empty.
                      EXPECT_TRUE(tab.pages().empty());
                      tab.select(eRasterGraphics);
                      EXPECT_TRUE(tab.pages().empty());
                      // That there is none was noted: it is not tried again.
                      onSheetsThread(tab, [full] { AfxSetResourceHandle(full); });
                      tab.select(eTrueType);
                      EXPECT_EQ(tab.pages().size(), 1U);
                      tab.select(eRasterGraphics);
                      EXPECT_EQ(tab.shownPage(), nullptr);
                  }),
              IDOK);

    for (const char* name : {"eChecked", "eRoot", "eMedia", "eMediaDest", "eSourceSize", "eCollating", "eGraphics",
                             "eVectorGraphics", "eRasterGraphics", "eTrueType", "eMergeCtrl", "eCustomProp"})
    {
        m_expectedAsserts.emplace_back("hIcon | GarmPC3Editor/Dialogs/GmTabDevice");
        m_expectedAsserts.push_back(std::string("iIcon == ") + name + " | GarmPC3Editor/Dialogs/GmTabDevice");
    }
}

TEST(DeviceTab, withoutASheetItHasNoParent)
{
    GmTabDevice tab;
    try
    {
        tab.parentDlg();
        ADD_FAILURE();
    }
    catch (const OdError& e)
    {
        EXPECT_EQ(static_cast<int>(e.code()), 5);
    }
    EXPECT_FALSE(tab.isModified());
}
