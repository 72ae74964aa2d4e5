// The pages of the device tab that show and change values.

#include "tests/win/editor/DeviceTabTest.h"

#include "GarmPC3Editor/Dialogs/DevicePages.h"
#include "resources/Resource.h"

namespace
{
using Types = std::vector<GmDeviceEntry>;

class DevicePages : public DeviceTabTest
{
protected:
    GmDestinationNode& destination() { return *m_cfg->m_media.m_destination; }
    GmResColorMemNode& color() { return m_cfg->m_res_color_mem; }
    bool overwrites() { return *m_cfg->m_res_color_mem.m_lines_overwrite; }
};

// Where the middle of a slider's thumb is drawn: 0 at the left end of its way, 1 at the right one.
double drawnAt(HWND slider)
{
    RECT thumb = {};
    RECT channel = {};
    ::SendMessageW(slider, TBM_GETTHUMBRECT, 0, reinterpret_cast<LPARAM>(&thumb));
    ::SendMessageW(slider, TBM_GETCHANNELRECT, 0, reinterpret_cast<LPARAM>(&channel));
    const int way = channel.right - channel.left - (thumb.right - thumb.left);
    return way > 0 ? static_cast<double>(thumb.left - channel.left) / way : -1.0;
}

void expectDrawn(HWND page, int ismMax, int oleMax, int preference)
{
    constexpr double aPixel = 0.01;
    EXPECT_NEAR(drawnAt(::GetDlgItem(page, IDC_ISM_MAX)), ismMax / 6.0, aPixel) << ismMax;
    EXPECT_NEAR(drawnAt(::GetDlgItem(page, IDC_OLE_MAX)), oleMax / 6.0, aPixel) << oleMax;
    EXPECT_NEAR(drawnAt(::GetDlgItem(page, IDC_PREFERENCE)), preference / 100.0, aPixel) << preference;
}
} // namespace

// --- Collating ---

TEST_F(DevicePages, collatingOffersOffAndOnWithTheirNumbers)
{
    run(
        [this](DeviceTabUser& tab)
        {
            tab.select(eCollating);
            const HWND list = tab.control(IDC_COLLATING);
            ASSERT_EQ(tab.user.send(list, CB_GETCOUNT), 2);
            for (const WPARAM i : {0U, 1U})
            {
                WCHAR entry[256] = {};
                tab.user.send(list, CB_GETLBTEXT, i, reinterpret_cast<LPARAM>(entry));
                EXPECT_EQ(entry, libraryText(i == 0 ? IDS_COLLATING_OFF : IDS_COLLATING_ON));
                EXPECT_EQ(tab.user.send(list, CB_GETITEMDATA, i), static_cast<LRESULT>(i));
            }
            EXPECT_EQ(tab.selectionOf(IDC_COLLATING), 0);
        });
}

TEST_F(DevicePages, collatingShowsTheStoredChoice)
{
    destination().setCollating(true);
    run(
        [](DeviceTabUser& tab)
        {
            tab.select(eCollating);
            EXPECT_EQ(tab.selectionOf(IDC_COLLATING), 1);
        });
}

TEST_F(DevicePages, collatingIsWrittenWhenItIsChosen)
{
    run(
        [this](DeviceTabUser& tab)
        {
            tab.select(eCollating);
            tab.key(IDC_COLLATING, VK_DOWN);
            EXPECT_EQ(destination().m_collating_type, 1);
            EXPECT_EQ(destination().m_collating_name, OD_T("Regular"));
            EXPECT_EQ(tab.label(eCollating), libraryText(IDS_COLLATING) + L" <" + libraryText(IDS_COLLATING_ON) + L">");
            EXPECT_EQ(tab.markedEntries(), Types{eCollating});
            EXPECT_TRUE(m_sheet.m_modified);

            tab.key(IDC_COLLATING, VK_UP);
            EXPECT_EQ(destination().m_collating_type, 0);
            EXPECT_EQ(destination().m_collating_name, OD_T("None"));
            EXPECT_EQ(tab.markedEntries(), Types{eCollating});
        });
}

TEST_F(DevicePages, sameCollatingChosenAgainRewritesItsTextOnly)
{
    destination().m_collating_name = OD_T("by hand");
    run(
        [this](DeviceTabUser& tab)
        {
            tab.select(eCollating);
            const HWND list = tab.control(IDC_COLLATING);
            tab.user.send(::GetParent(list), WM_COMMAND, MAKEWPARAM(IDC_COLLATING, CBN_SELCHANGE),
                          reinterpret_cast<LPARAM>(list));
            EXPECT_EQ(destination().m_collating_name, OD_T("None"));
            EXPECT_TRUE(tab.markedEntries().empty());
        });
    EXPECT_FALSE(m_sheet.m_modified);
}

TEST_F(DevicePages, collatingWithNothingSelectedIsOff)
{
    destination().setCollating(true);
    run(
        [this](DeviceTabUser& tab)
        {
            tab.select(eCollating);
            const HWND page = tab.shownPage();
            tab.user.send(tab.control(IDC_COLLATING), CB_SETCURSEL, static_cast<WPARAM>(-1));
            tab.select(eRoot);
            EXPECT_EQ(destination().m_collating_type, 0);
            // Loaded again, the page shows the choice it holds.
            onSheetsThread(tab, [page] { pageObject(page).UpdateData(FALSE); });
            EXPECT_EQ(tab.selectionOf(IDC_COLLATING), 0);
        });
}

TEST_F(DevicePages, collatingWithoutDestinationShowsOffAndWritesNothing)
{
    destination().setCollating(true);
    run(
        [this](DeviceTabUser& tab)
        {
            m_cfg->m_media.m_destination = nullptr;
            tab.select(eCollating);
            EXPECT_EQ(tab.selectionOf(IDC_COLLATING), 0);
            tab.key(IDC_COLLATING, VK_DOWN);
            EXPECT_TRUE(m_cfg->m_media.m_destination.isNull());
        });
    EXPECT_FALSE(m_sheet.m_modified);
}

// --- Raster graphics ---

TEST_F(DevicePages, rasterSlidersHaveTheirRangesAndShowValues)
{
    color().m_ism_max = 2;
    color().m_ole_max = 0;
    color().m_preference = 99;
    run(
        [](DeviceTabUser& tab)
        {
            tab.select(eRasterGraphics);
            const auto range = [&tab](int id) {
                return std::pair(tab.user.send(tab.control(id), TBM_GETRANGEMIN),
                                 tab.user.send(tab.control(id), TBM_GETRANGEMAX));
            };
            EXPECT_EQ(range(IDC_ISM_MAX), (std::pair<LRESULT, LRESULT>(0, 6)));
            EXPECT_EQ(range(IDC_OLE_MAX), (std::pair<LRESULT, LRESULT>(0, 6)));
            EXPECT_EQ(range(IDC_PREFERENCE), (std::pair<LRESULT, LRESULT>(0, 100)));
            EXPECT_EQ(tab.sliderAt(IDC_ISM_MAX), 2);
            EXPECT_EQ(tab.sliderAt(IDC_OLE_MAX), 0);
            EXPECT_EQ(tab.sliderAt(IDC_PREFERENCE), 99);
        });
}

// A slider whose position is set before its range draws the thumb elsewhere, and setting the same position again does
// not move it. Dragged from there, it jumps to another value.
TEST_F(DevicePages, everyRasterValueIsDrawnWhereItBelongs)
{
    run(
        [this](DeviceTabUser& user)
        {
            const auto makeEveryPage = [this]
            {
                auto& tab = dynamic_cast<GmTabDevice&>(*m_sheet.GetPage(1));
                for (int value = 0; value <= 100; ++value)
                {
                    color().m_ism_max = value % 7;
                    color().m_ole_max = 6 - value % 7;
                    color().m_preference = value;
                    CRasterGraphics page(tab);
                    ASSERT_TRUE(page.createInFrame());
                    expectDrawn(page, value % 7, 6 - value % 7, value);
                }
            };
            onSheetsThread(user, makeEveryPage);
        });
}

TEST_F(DevicePages, rasterValuesAreDrawnRightAfterSwitching)
{
    color().m_ism_max = 6;
    color().m_ole_max = 5;
    color().m_preference = 1;
    run(
        [](DeviceTabUser& tab)
        {
            tab.select(eRasterGraphics);
            tab.select(eTrueType);
            tab.select(eRasterGraphics);
            expectDrawn(tab.shownPage(), 6, 5, 1);
            tab.user.selectTab(tab.sheet, 0);
            tab.user.selectTab(tab.sheet, 1);
            expectDrawn(tab.shownPage(), 6, 5, 1);
            tab.key(IDC_ISM_MAX, VK_LEFT);
            tab.key(IDC_OLE_MAX, VK_HOME);
            tab.key(IDC_PREFERENCE, VK_END);
            expectDrawn(tab.shownPage(), 5, 0, 100);
            tab.select(eRoot);
            tab.select(eRasterGraphics);
            expectDrawn(tab.shownPage(), 5, 0, 100);
        });
}

TEST_F(DevicePages, movingARasterSliderIsWrittenAtOnce)
{
    color().m_ism_max = 2;
    run(
        [this](DeviceTabUser& tab)
        {
            tab.select(eRasterGraphics);
            tab.key(IDC_ISM_MAX, VK_RIGHT);
            EXPECT_EQ(color().m_ism_max, 3);
            tab.key(IDC_OLE_MAX, VK_LEFT);
            EXPECT_EQ(color().m_ole_max, 5);
            tab.key(IDC_PREFERENCE, VK_HOME);
            EXPECT_EQ(color().m_preference, 0);
            EXPECT_EQ(tab.label(eRasterGraphics), libraryText(IDS_RASTER_GRAPHICS) + L" " +
                                                      libraryText(IDS_PREFERENCE_VALUE, {OD_T("0")}) + L" " +
                                                      libraryText(IDS_ISM_MAX_VALUE, {OD_T("3")}) + L" " +
                                                      libraryText(IDS_OLE_MAX_VALUE, {OD_T("5")}));
            EXPECT_EQ(tab.markedEntries(), Types{eRasterGraphics});
        });
    EXPECT_TRUE(m_sheet.m_modified);
}

TEST_F(DevicePages, rasterSlidersLoadedAgainShowTheHeldValues)
{
    m_cfg->m_res_color_mem.m_ism_max = 2;
    run(
        [this](DeviceTabUser& tab)
        {
            tab.select(eRasterGraphics);
            const HWND page = tab.shownPage();
            for (const int id : {IDC_ISM_MAX, IDC_OLE_MAX, IDC_PREFERENCE})
                tab.user.send(tab.control(id), TBM_SETPOS, TRUE, 4);
            onSheetsThread(tab, [page] { pageObject(page).UpdateData(FALSE); });
            EXPECT_EQ(tab.sliderAt(IDC_ISM_MAX), 2);
            EXPECT_EQ(tab.sliderAt(IDC_OLE_MAX), 6);
            EXPECT_EQ(tab.sliderAt(IDC_PREFERENCE), 50);
        });
}

TEST_F(DevicePages, restoredRasterSliderWritesNothing)
{
    run(
        [this](DeviceTabUser& tab)
        {
            tab.select(eRasterGraphics);
            const HWND slider = tab.control(IDC_PREFERENCE);
            tab.user.send(slider, TBM_SETPOS, TRUE, 3);
            tab.user.send(slider, TBM_SETPOS, TRUE, 50);
            color().m_preference = 77; // whatever is written would replace it
            tab.user.send(::GetParent(slider), WM_HSCROLL, TB_ENDTRACK, reinterpret_cast<LPARAM>(slider));
            EXPECT_EQ(color().m_preference, 77);
        });
    EXPECT_FALSE(m_sheet.m_modified);
}

TEST_F(DevicePages, oneMovedRasterSliderWritesAllThreeValues)
{
    run(
        [this](DeviceTabUser& tab)
        {
            tab.select(eRasterGraphics);
            color().m_ole_max = 1;
            color().m_preference = 2;
            tab.key(IDC_ISM_MAX, VK_LEFT);
            EXPECT_EQ(color().m_ism_max, 5);
            EXPECT_EQ(color().m_ole_max, 6);
            EXPECT_EQ(color().m_preference, 50);
        });
}

TEST_F(DevicePages, leavingThePageCutsValuesToTheirRange)
{
    color().m_ism_max = 9;
    color().m_ole_max = -3;
    color().m_preference = 2147483647;
    run(
        [this](DeviceTabUser& tab)
        {
            tab.select(eRasterGraphics);
            EXPECT_EQ(tab.sliderAt(IDC_ISM_MAX), 6);
            EXPECT_EQ(tab.sliderAt(IDC_OLE_MAX), 0);
            EXPECT_EQ(tab.sliderAt(IDC_PREFERENCE), 100);
            EXPECT_EQ(color().m_ism_max, 9);
            EXPECT_FALSE(m_sheet.m_modified);
            tab.select(eRoot);
            EXPECT_EQ(color().m_ism_max, 6);
            EXPECT_EQ(color().m_ole_max, 0);
            EXPECT_EQ(color().m_preference, 100);
            EXPECT_EQ(tab.markedEntries(), Types{eRasterGraphics});
        });
    EXPECT_TRUE(m_sheet.m_modified);
}

// --- TrueType ---

TEST_F(DevicePages, trueTypeIsWrittenByItsButtons)
{
    run(
        [this](DeviceTabUser& tab)
        {
            tab.select(eTrueType);
            EXPECT_TRUE(tab.isChecked(IDC_TRUETYPE_AS_TEXT));
            tab.click(IDC_TRUETYPE_AS_TEXT);
            EXPECT_FALSE(m_sheet.m_modified);
            tab.click(IDC_TRUETYPE_AS_GRAPHICS);
            EXPECT_FALSE(m_cfg->m_meta.m_truetype_as_text);
            EXPECT_EQ(tab.label(eTrueType),
                      libraryText(IDS_TRUETYPE) + L" <" + libraryText(IDS_TRUETYPE_AS_GRAPHICS) + L">");
            EXPECT_EQ(tab.markedEntries(), Types{eTrueType});
            EXPECT_TRUE(m_sheet.m_modified);
            tab.click(IDC_TRUETYPE_AS_TEXT);
            EXPECT_TRUE(m_cfg->m_meta.m_truetype_as_text);
            // The mark shows that the label was different in between.
            EXPECT_EQ(tab.markedEntries(), Types{eTrueType});
        });
}

TEST_F(DevicePages, trueTypeShowsTheStoredChoice)
{
    m_cfg->m_meta.m_truetype_as_text = false;
    run(
        [](DeviceTabUser& tab)
        {
            tab.select(eTrueType);
            EXPECT_TRUE(tab.isChecked(IDC_TRUETYPE_AS_GRAPHICS));
            EXPECT_FALSE(tab.isChecked(IDC_TRUETYPE_AS_TEXT));
        });
}

// --- Merge control ---

TEST_F(DevicePages, mergeControlIsWrittenByItsButtons)
{
    run(
        [this](DeviceTabUser& tab)
        {
            tab.select(eMergeCtrl);
            EXPECT_TRUE(tab.isChecked(IDC_LINES_OVERWRITE));
            tab.click(IDC_LINES_MERGE);
            EXPECT_FALSE(overwrites());
            EXPECT_EQ(tab.label(eMergeCtrl), libraryText(IDS_MERGE_CTRL) + L" <" + libraryText(IDS_LINES_MERGE) + L">");
            EXPECT_EQ(tab.markedEntries(), Types{eMergeCtrl});
            tab.click(IDC_LINES_OVERWRITE);
            EXPECT_TRUE(overwrites());
        });
    EXPECT_TRUE(m_sheet.m_modified);
}

TEST_F(DevicePages, mergeControlShowsTheStoredChoice)
{
    *m_cfg->m_res_color_mem.m_lines_overwrite = false;
    run(
        [](DeviceTabUser& tab)
        {
            tab.select(eMergeCtrl);
            EXPECT_TRUE(tab.isChecked(IDC_LINES_MERGE));
        });
}

TEST_F(DevicePages, mergeControlWithoutAValueStaysDisabled)
{
    run(
        [this](DeviceTabUser& tab)
        {
            // The tree is still that of a configuration with the value.
            color().m_lines_overwrite = nullptr;
            tab.select(eMergeCtrl);
            const HWND page = tab.shownPage();
            ASSERT_NE(page, nullptr);
            EXPECT_FALSE(::IsWindowEnabled(page));
            EXPECT_FALSE(tab.isUsable(IDC_LINES_MERGE));
            EXPECT_TRUE(tab.isChecked(IDC_LINES_OVERWRITE));
            tab.select(eRoot);
            tab.select(eMergeCtrl);
            EXPECT_EQ(tab.shownPage(), page);
            EXPECT_FALSE(::IsWindowEnabled(page));
        });
    EXPECT_FALSE(m_sheet.m_modified);
}

TEST_F(DevicePages, lostMergeValueIsAssertedAndNotWritten)
{
    m_expectedAsserts = {"m_dlg.cfg().m_res_color_mem.m_lines_overwrite | GarmPC3Editor/Dialogs/GmDeviceSubDlg"};
    run(
        [this](DeviceTabUser& tab)
        {
            tab.select(eMergeCtrl);
            color().m_lines_overwrite = nullptr;
            tab.click(IDC_LINES_MERGE);
            EXPECT_EQ(RecordedAsserts::reports(), m_expectedAsserts);
            EXPECT_TRUE(color().m_lines_overwrite.isNull());
            EXPECT_TRUE(tab.markedEntries().empty());
        });
    EXPECT_FALSE(m_sheet.m_modified);
}

// --- Vector graphics ---

TEST_F(DevicePages, vectorValuesAreShownInDisabledControls)
{
    color().m_num_colors = 16777216;
    color().m_color_depth = 24;
    color().m_resolution.m_name = OD_T("600 x 600_Draft");
    run(
        [this](DeviceTabUser& tab)
        {
            tab.select(eVectorGraphics);
            for (const int id : {516, 502, 601, 602, 503, 515, 504, 509})
                EXPECT_FALSE(::IsWindowEnabled(tab.control(id))) << id;
            EXPECT_EQ(tab.user.textOf(tab.tab, IDC_COLOR_DEPTH),
                      libraryText(IDS_COLORS_AND_DEPTH, {OD_T("16777216"), OD_T("24")}));
            EXPECT_TRUE(tab.isChecked(IDC_COLOR));
            EXPECT_FALSE(tab.isChecked(IDC_MONOCHROME));
            EXPECT_EQ(tab.user.textOf(tab.tab, IDC_RESOLUTION), L"600 x 600");
            EXPECT_EQ(tab.user.textOf(tab.tab, IDC_DITHERING), L"Draft");
        });
}

TEST_F(DevicePages, vectorValuesAreReadOnceAtCreation)
{
    color().m_color_depth = 1;
    color().m_resolution.m_name = OD_T("300");
    run(
        [this](DeviceTabUser& tab)
        {
            tab.select(eVectorGraphics);
            EXPECT_TRUE(tab.isChecked(IDC_MONOCHROME));
            color().m_color_depth = 24;
            color().m_resolution.m_name = OD_T("600");
            tab.select(eRoot);
            tab.select(eVectorGraphics);
            EXPECT_TRUE(tab.isChecked(IDC_MONOCHROME));
            EXPECT_EQ(tab.user.textOf(tab.tab, IDC_RESOLUTION), L"300");
            EXPECT_EQ(tab.user.textOf(tab.tab, IDC_DITHERING), L"");
        });
    EXPECT_FALSE(m_sheet.m_modified);
}
