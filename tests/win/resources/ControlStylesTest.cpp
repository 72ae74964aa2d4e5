// What the editor's code relies on in the templates: kinds, styles and order of controls.
#include "tests/win/resources/OpenedDialog.h"

#include "resources/Resource.h"

#include <gtest/gtest.h>

#include <commctrl.h>

#include <algorithm>
#include <string>

namespace
{
const BOOL scaleAware = ::SetProcessDPIAware();

class ControlStyles : public ::testing::TestWithParam<const wchar_t*>
{
protected:
    ControlStyles() : m_library(loadLanguage(GetParam())) {}

    void SetUp() override { ASSERT_TRUE(m_library); }

    void expectStyle(UINT dialogId, int controlId, const wchar_t* className, LONG mask, LONG style) const
    {
        const OpenedDialog dialog(m_library.get(), dialogId);
        const HWND control = dialog.control(controlId);
        ASSERT_NE(control, nullptr) << controlId;
        EXPECT_EQ(classOf(control), className) << controlId;
        EXPECT_EQ(styleOf(control) & mask, style) << controlId;
    }

    void expectStyles(UINT dialogId, std::initializer_list<int> controls, const wchar_t* className, LONG style) const
    {
        for (const int control : controls)
            expectStyle(dialogId, control, className, style, style);
    }

    // The radio buttons are all of one group, in this order, and the group holds no other button.
    void expectGroup(UINT dialogId, int first, int second) const
    {
        const OpenedDialog dialog(m_library.get(), dialogId);
        const HWND one = dialog.control(first);
        const HWND two = dialog.control(second);
        ASSERT_NE(one, nullptr);
        EXPECT_NE(styleOf(one) & WS_GROUP, 0) << first;
        EXPECT_EQ(styleOf(two) & WS_GROUP, 0) << second;
        EXPECT_EQ(::GetNextDlgGroupItem(dialog.window(), one, FALSE), two) << first;
        EXPECT_EQ(::GetNextDlgGroupItem(dialog.window(), two, FALSE), one) << second;
    }

    LibraryHandle m_library;
};

INSTANTIATE_TEST_SUITE_P(All, ControlStyles, ::testing::ValuesIn(languageTags));

// The index of an entry is what the code keeps, so no list may order its entries itself.
TEST_P(ControlStyles, listsAreUnsorted)
{
    expectStyle(IDD_GENERAL, IDC_PRINTERS, L"ComboBox", CBS_SORT | CBS_DROPDOWNLIST, CBS_DROPDOWNLIST);
    expectStyle(IDD_COLLATING, IDC_COLLATING, L"ComboBox", CBS_SORT | CBS_DROPDOWNLIST, CBS_DROPDOWNLIST);
    expectStyle(IDD_VIRTUAL_PRINTER, IDC_PAPER, L"ComboBox", CBS_SORT | CBS_DROPDOWNLIST, CBS_DROPDOWNLIST);
    expectStyle(IDD_VIRTUAL_PRINTER, IDC_QUALITY, L"ComboBox", CBS_SORT | CBS_DROPDOWNLIST, CBS_DROPDOWNLIST);
}

TEST_P(ControlStyles, descriptionHasLinesAndScrollsInsteadOfWrapping)
{
    expectStyles(IDD_GENERAL, {IDC_DESCRIPTION}, L"Edit",
                 ES_MULTILINE | ES_WANTRETURN | ES_AUTOVSCROLL | ES_AUTOHSCROLL | WS_TABSTOP);
}

TEST_P(ControlStyles, namesAreShownAsTheyAre)
{
    expectStyles(IDD_GENERAL, {IDC_FILE_NAME, IDC_DRIVER, IDC_DRIVER_FILE, IDC_VERSION, IDC_PORT}, L"Static",
                 SS_NOPREFIX | SS_PATHELLIPSIS | SS_NOTIFY);
    expectStyle(IDD_GENERAL, IDC_DRIVER_ICON, L"Static", SS_TYPEMASK, SS_ICON);
    expectStyle(IDD_CHANGE_CFG, IDC_EXTENSION_NOTE, L"Static", SS_NOPREFIX, SS_NOPREFIX);
}

TEST_P(ControlStyles, treeShowsItsSelectionAlways)
{
    expectStyles(IDD_DEVICE, {IDC_TREE}, WC_TREEVIEWW,
                 TVS_SHOWSELALWAYS | TVS_HASBUTTONS | TVS_LINESATROOT | WS_TABSTOP);
}

// Only its place matters: it must be hidden behind a page.
TEST_P(ControlStyles, frameOfThePagesIsInvisible)
{
    expectStyle(IDD_DEVICE, IDC_PAGE_FRAME, L"Static", WS_VISIBLE, 0);
}

TEST_P(ControlStyles, tabKeyVisitsTreePageAndButtons)
{
    const OpenedDialog dialog(m_library.get(), IDD_DEVICE);
    const std::vector<HWND> controls = dialog.controls();
    const auto at = [&](int id) { return std::ranges::find(controls, dialog.control(id)) - controls.begin(); };
    EXPECT_LT(at(IDC_TREE), at(IDC_PAGE_FRAME));
    EXPECT_EQ(at(IDC_PAGE_FRAME) + 1, at(IDC_SAVE_AS));
    EXPECT_LT(at(IDC_SAVE_AS), at(IDC_DEFAULTS));
}

TEST_P(ControlStyles, slidersHaveTicks)
{
    expectStyles(IDD_RASTER_GRAPHICS, {IDC_ISM_MAX, IDC_OLE_MAX, IDC_PREFERENCE}, TRACKBAR_CLASSW,
                 TBS_AUTOTICKS | WS_TABSTOP);
}

TEST_P(ControlStyles, radioButtonsComeInPairs)
{
    expectGroup(IDD_VECTOR_GRAPHICS, IDC_MONOCHROME, IDC_COLOR);
    expectGroup(IDD_TRUETYPE, IDC_TRUETYPE_AS_TEXT, IDC_TRUETYPE_AS_GRAPHICS);
    expectGroup(IDD_MERGE_CTRL, IDC_LINES_OVERWRITE, IDC_LINES_MERGE);
    expectGroup(IDD_VIRTUAL_PRINTER, IDC_PORTRAIT, IDC_LANDSCAPE);
    expectGroup(IDD_VIRTUAL_PRINTER, IDC_MILLIMETRES, IDC_INCHES);
}

TEST_P(ControlStyles, valuesOfTheVectorPageTakeAText)
{
    expectStyles(IDD_VECTOR_GRAPHICS, {IDC_COLOR_DEPTH, IDC_RESOLUTION, IDC_DITHERING}, L"Edit", ES_READONLY);
    for (const int label : {IDC_VECTOR_LABEL_1, IDC_VECTOR_LABEL_3, IDC_VECTOR_LABEL_4})
        expectStyle(IDD_VECTOR_GRAPHICS, label, L"Static", SS_TYPEMASK, SS_LEFT);
}

// Each control that a user can reach is labelled: a list, an edit, a tree or a slider comes right after its label.
TEST_P(ControlStyles, everyInputHasItsLabelBeforeIt)
{
    for (const UINT id : {IDD_GENERAL, IDD_DEVICE, IDD_VECTOR_GRAPHICS, IDD_RASTER_GRAPHICS, IDD_COLLATING,
                          IDD_CHANGE_CFG, IDD_VIRTUAL_PRINTER})
    {
        const OpenedDialog dialog(m_library.get(), id);
        for (const HWND control : dialog.controls())
        {
            const std::wstring name = classOf(control);
            if (name == L"Static" || name == L"Button")
                continue;
            const HWND label = ::GetWindow(control, GW_HWNDPREV);
            ASSERT_NE(label, nullptr) << id;
            EXPECT_EQ(classOf(label), L"Static") << id << ", control " << ::GetDlgCtrlID(control);
            EXPECT_FALSE(textOf(label).empty()) << id << ", control " << ::GetDlgCtrlID(control);
        }
    }
}

// The control would copy a picture with alpha and leak the copy.
TEST_P(ControlStyles, orientationPicturesHaveNoAlphaAndFit)
{
    const OpenedDialog dialog(m_library.get(), IDD_VIRTUAL_PRINTER);
    for (const auto& [bitmapId, controlId] :
         {std::pair(IDB_PORTRAIT, IDC_PORTRAIT_IMAGE), std::pair(IDB_LANDSCAPE, IDC_LANDSCAPE_IMAGE)})
    {
        const BitmapHandle bitmap(static_cast<HBITMAP>(
            ::LoadImageW(m_library.get(), MAKEINTRESOURCEW(bitmapId), IMAGE_BITMAP, 0, 0, LR_CREATEDIBSECTION)));
        ASSERT_TRUE(bitmap) << bitmapId;
        BITMAP shape = {};
        ASSERT_NE(::GetObjectW(bitmap.get(), sizeof(shape), &shape), 0);
        EXPECT_EQ(shape.bmBitsPixel, 24) << bitmapId;
        const HWND control = dialog.control(controlId);
        EXPECT_EQ(styleOf(control) & SS_TYPEMASK, SS_BITMAP);
        EXPECT_LE(shape.bmWidth, clientSize(control).cx);
        EXPECT_LE(shape.bmHeight, clientSize(control).cy);
    }
}

TEST_P(ControlStyles, iconsLoadAtEverySizeAskedFor)
{
    for (const int id : {IDI_SYSTEM_PRINTER, IDI_MEDIA, IDI_CUSTOM_PROP, IDI_GRAPHICS, IDI_FILE_PRINTER,
                         IDI_SOURCE_SIZE, IDI_MEDIA_DEST, IDI_CHECKED, IDI_VECTOR_GRAPHICS, IDI_RASTER_GRAPHICS,
                         IDI_COLLATING, IDI_TRUETYPE, IDI_MERGE_CTRL, IDI_HELP})
        for (const int size : {16, 24, 32, 48})
        {
            const IconHandle icon(static_cast<HICON>(
                ::LoadImageW(m_library.get(), MAKEINTRESOURCEW(id), IMAGE_ICON, size, size, LR_DEFAULTCOLOR)));
            ASSERT_TRUE(icon) << id << " at " << size;
            ICONINFO parts = {};
            ASSERT_TRUE(::GetIconInfo(icon.get(), &parts));
            const BitmapHandle maskBitmap(parts.hbmMask);
            const BitmapHandle colorBitmap(parts.hbmColor);
            BITMAP mask = {};
            EXPECT_NE(::GetObjectW(maskBitmap.get(), sizeof(mask), &mask), 0);
            EXPECT_EQ(mask.bmWidth, size) << id;
        }
}
} // namespace
