// Switching between the entries of the device tab, and what happens to their pages.

#include "tests/support/operator/SentMessages.h"
#include "tests/win/editor/DeviceTabTest.h"

#include "GarmPC3Editor/Dialogs/DevicePages.h"
#include "resources/Resource.h"

using DeviceTabSwitch = DeviceTabTest;

TEST_F(DeviceTabSwitch, headingsHaveNoPage)
{
    run(
        [](DeviceTabUser& tab)
        {
            for (const GmDeviceEntry type : {eRoot, eMedia, eSourceSize, eMediaDest, eGraphics})
            {
                tab.select(type);
                EXPECT_EQ(tab.shownPage(), nullptr) << type;
                EXPECT_EQ(tab.pages().size(), 1U) << type;
            }
        });
}

TEST_F(DeviceTabSwitch, eachSettingHasItsOwnPageCreatedOnce)
{
    run(
        [](DeviceTabUser& tab)
        {
            const std::pair<GmDeviceEntry, int> pages[] = {
                {eCollating, IDC_COLLATING},       {eVectorGraphics, IDC_COLOR_DEPTH},
                {eRasterGraphics, IDC_ISM_MAX},    {eTrueType, IDC_TRUETYPE_AS_TEXT},
                {eMergeCtrl, IDC_LINES_OVERWRITE}, {eCustomProp, IDC_DRIVER_SETTINGS},
            };
            for (const auto& [type, control] : pages)
            {
                tab.select(type);
                const HWND page = tab.shownPage();
                ASSERT_NE(page, nullptr) << type;
                EXPECT_NE(::GetDlgItem(page, control), nullptr) << type;
                EXPECT_TRUE(::IsWindowEnabled(page)) << type;
                tab.select(eRoot);
                EXPECT_FALSE(::IsWindowVisible(page)) << type;
                EXPECT_FALSE(::IsWindowEnabled(page)) << type;
                tab.select(type);
                EXPECT_EQ(tab.shownPage(), page) << type;
            }
            EXPECT_EQ(tab.pages().size(), 6U);
        });
}

TEST_F(DeviceTabSwitch, pageKeepsItsSizeInTheFramesCorner)
{
    run(
        [](DeviceTabUser& tab)
        {
            tab.select(eRasterGraphics);
            const HWND page = tab.shownPage();
            const HWND frame = ::GetDlgItem(tab.tab, IDC_PAGE_FRAME);
            RECT pagePlace = {};
            RECT framePlace = {};
            RECT inside = {};
            ::GetWindowRect(page, &pagePlace);
            ::GetWindowRect(frame, &framePlace);
            ::GetClientRect(page, &inside);
            EXPECT_EQ(pagePlace.left, framePlace.left);
            EXPECT_EQ(pagePlace.top, framePlace.top);
            EXPECT_EQ(pagePlace.right - pagePlace.left, inside.right);
            EXPECT_EQ(pagePlace.bottom - pagePlace.top, inside.bottom);
            EXPECT_EQ(::GetParent(page), tab.tab);
        });
}

TEST_F(DeviceTabSwitch, tabKeyVisitsTreePageAndButtons)
{
    run(
        [](DeviceTabUser& tab)
        {
            tab.select(eTrueType);
            const auto after = [&tab](HWND control) { return ::GetNextDlgTabItem(tab.sheet, control, FALSE); };
            EXPECT_EQ(after(tab.tree), tab.control(IDC_TRUETYPE_AS_TEXT));
            EXPECT_EQ(after(tab.control(IDC_TRUETYPE_AS_TEXT)), tab.control(IDC_SAVE_AS));
            EXPECT_EQ(after(tab.control(IDC_SAVE_AS)), tab.control(IDC_DEFAULTS));
        });
}

TEST_F(DeviceTabSwitch, newPageExistsBeforeTheOldIsCommitted)
{
    std::vector<std::string> steps;
    HWND raster = nullptr;
    HWND trueType = nullptr;
    const auto nameOf = [&](HWND window) -> std::string {
        return window == raster ? "raster" : window == trueType ? "truetype" : "";
    };
    const SentMessages watch(
        [&](HWND window, UINT message, WPARAM wParam, LPARAM)
        {
            const std::string name = nameOf(window);
            if (message == WM_INITDIALOG && ::GetDlgItem(window, IDC_TRUETYPE_AS_TEXT))
            {
                trueType = window;
                steps.emplace_back("new page");
            }
            else if (message == TBM_GETPOS && ::GetDlgCtrlID(window) == IDC_ISM_MAX)
                steps.emplace_back("commit");
            else if (message == WM_ENABLE && !name.empty())
                steps.push_back((wParam ? "enable " : "disable ") + name);
            else if (message == WM_SHOWWINDOW && !name.empty())
                steps.push_back((wParam ? "show " : "hide ") + name);
        });
    run(
        [&](DeviceTabUser& tab)
        {
            tab.select(eRasterGraphics);
            raster = tab.shownPage();
            steps.clear();
            tab.select(eTrueType);
            // The factory shows a page; a template makes it enabled.
            EXPECT_EQ(steps, (std::vector<std::string>{"new page", "show truetype", "commit", "disable raster",
                                                       "hide raster"}));
            tab.select(eRasterGraphics);
            steps.clear();
            tab.select(eTrueType);
            EXPECT_EQ(steps, (std::vector<std::string>{"commit", "disable raster", "hide raster", "enable truetype",
                                                       "show truetype"}));
            steps.clear();
        });
}

TEST_F(DeviceTabSwitch, activatedPageIsRepaintedAtOnce)
{
    run(
        [this](DeviceTabUser& tab)
        {
            for (const GmDeviceEntry type : {eTrueType, eMergeCtrl})
            {
                tab.select(type);
                const HWND page = tab.shownPage();
                tab.user.settle();
                bool isPainted = false;
                bool isErased = false;
                const auto activate = [&]
                {
                    const SentMessages watch(
                        [&](HWND window, UINT message, WPARAM, LPARAM)
                        {
                            isPainted |= window == page && message == WM_PAINT;
                            isErased |= window == page && message == WM_ERASEBKGND;
                        });
                    pageObject(page).activate();
                };
                onSheetsThread(tab, activate);
                EXPECT_TRUE(isPainted) << type;
                EXPECT_TRUE(isErased) << type;
            }
        });
}

TEST_F(DeviceTabSwitch, aNewPageIsPaintedInItsPlace)
{
    run(
        [this](DeviceTabUser& tab)
        {
            std::string last;
            const auto create = [&]
            {
                const SentMessages watch(
                    [&](HWND window, UINT message, WPARAM, LPARAM)
                    {
                        if (!::GetDlgItem(window, IDC_ISM_MAX))
                            return;
                        if (message == WM_WINDOWPOSCHANGED)
                            last = "placed";
                        if (message == WM_PAINT)
                            last = "painted";
                    });
                CRasterGraphics page(dynamic_cast<GmTabDevice&>(*m_sheet.GetPage(1)));
                EXPECT_TRUE(page.createInFrame());
                EXPECT_EQ(last, "painted");
            };
            onSheetsThread(tab, create);
        });
}

TEST_F(DeviceTabSwitch, pageReadsItsValuesOnlyWhenCreated)
{
    run(
        [this](DeviceTabUser& tab)
        {
            m_cfg->m_meta.m_truetype_as_text = false;
            tab.select(eTrueType);
            EXPECT_TRUE(tab.isChecked(IDC_TRUETYPE_AS_GRAPHICS));
        });
}

TEST_F(DeviceTabSwitch, leavingAPageUnchangedIsNoChange)
{
    run(
        [](DeviceTabUser& tab)
        {
            for (const GmDeviceEntry type :
                 {eCollating, eVectorGraphics, eRasterGraphics, eTrueType, eMergeCtrl, eCustomProp, eRoot})
                tab.select(type);
            EXPECT_TRUE(tab.markedEntries().empty());
        });
    EXPECT_FALSE(m_sheet.m_modified);
}

TEST_F(DeviceTabSwitch, pageThatHasWindowIsNotMadeAgain)
{
    run(
        [this](DeviceTabUser& tab)
        {
            const HWND page = tab.shownPage();
            bool answer = false;
            onSheetsThread(tab, [&] { answer = pageObject(page).createInFrame(); });
            EXPECT_TRUE(answer);
            EXPECT_EQ(tab.pages(), std::vector<HWND>{page});
        });
    m_expectedAsserts = {"!*this | GarmPC3Editor/Dialogs/GmDeviceSubDlg"};
}

TEST_F(DeviceTabSwitch, neitherReturnNorEscapeInPageClosesIt)
{
    run(
        [this](DeviceTabUser& tab)
        {
            tab.select(eTrueType);
            const HWND page = tab.shownPage();
            tab.user.send(page, WM_COMMAND, IDOK);
            tab.user.send(page, WM_COMMAND, IDCANCEL);
            EXPECT_EQ(tab.shownPage(), page);
        });
}

TEST_F(DeviceTabSwitch, overlookedChangeIsAssertedAndHandled)
{
    run(
        [this](DeviceTabUser& tab)
        {
            tab.select(eTrueType);
            const HWND page = tab.shownPage();
            onSheetsThread(tab, [&] { pageObject(page).bModified = true; });
            tab.select(eRoot);
            onSheetsThread(tab, [&] { EXPECT_FALSE(pageObject(page).bModified); });
        });
    m_expectedAsserts = {"bModified == false | GarmPC3Editor/Dialogs/GmTabDevice"};
    EXPECT_TRUE(m_sheet.m_modified);
}

TEST_F(DeviceTabSwitch, changeOfCustomPropertiesPageIsAsserted)
{
    run(
        [this](DeviceTabUser& tab)
        {
            const HWND page = tab.shownPage();
            onSheetsThread(tab, [&] { pageObject(page).bModified = true; });
            tab.select(eRoot);
            onSheetsThread(tab, [&] { EXPECT_FALSE(pageObject(page).bModified); });
        });
    m_expectedAsserts = {"bModified == false | GarmPC3Editor/Dialogs/GmTabDevice",
                         "dlg->eType() != eCustomProp | GarmPC3Editor/Dialogs/GmTabDevice"};
    EXPECT_TRUE(m_sheet.m_modified);
}

TEST_F(DeviceTabSwitch, notificationWithoutSelectedPageIsAssertedAndDropped)
{
    run(
        [](DeviceTabUser& tab)
        {
            tab.select(eRasterGraphics);
            const HWND page = tab.shownPage();
            const HWND slider = tab.control(IDC_ISM_MAX);
            tab.selectNothing();
            EXPECT_EQ(tab.shownPage(), nullptr);
            tab.user.send(page, WM_HSCROLL, TB_ENDTRACK, reinterpret_cast<LPARAM>(slider));
            EXPECT_EQ(RecordedAsserts::reports(), std::vector<std::string>{"0 | GarmPC3Editor/Dialogs/GmTabDevice"});
            tab.select(eRoot);
            tab.user.send(page, WM_HSCROLL, TB_ENDTRACK, reinterpret_cast<LPARAM>(slider));
        });
    m_expectedAsserts.assign(2, "0 | GarmPC3Editor/Dialogs/GmTabDevice");
    EXPECT_FALSE(m_sheet.m_modified);
}

TEST_F(DeviceTabSwitch, openingAllPagesManyTimesLeavesNothingBehind)
{
    for (int i = 0; i < 20; ++i)
    {
        EditorSheet sheet;
        sheet.setConfig(m_cfg, L"C:\\plotter.pc3", L"");
        sheet.show(
            [](SheetDriver& user, HWND window)
            {
                const DeviceTabUser tab(user, window);
                for (const GmDeviceEntry type : tab.entries())
                    tab.select(type);
                tab.pressOk();
            });
    }
}
