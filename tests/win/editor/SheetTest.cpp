#include "tests/support/operator/Pixels.h"
#include "tests/support/operator/SentMessages.h"
#include "tests/win/editor/EditorSheet.h"
#include "tests/win/editor/EditorTest.h"

#include "kernel/OdError.h"
#include "resources/Resource.h"

#include <commctrl.h>

#include <vector>

namespace
{
constexpr int applyButton = 12321;

class SheetTest : public EditorTest
{
protected:
    SheetTest() { m_sheet.setConfig(m_cfg, L"C:\\plot\\a.pc3", L""); }

    std::wstring caption(const wchar_t* title) const { return libraryText(IDS_SHEET_TITLE, {OdString(title)}); }

    static std::wstring tabText(SheetDriver& user, HWND sheet, int index)
    {
        wchar_t buffer[128] = {};
        TCITEMW item = {};
        item.mask = TCIF_TEXT;
        item.pszText = buffer;
        item.cchTextMax = 128;
        user.send(user.tabs(sheet), TCM_GETITEMW, static_cast<WPARAM>(index), reinterpret_cast<LPARAM>(&item));
        return buffer;
    }

    OdSharedPtr<GmPlotCfg3> m_cfg = newConfiguration();
    EditorSheet m_sheet;
};

// What is sent to windows of this thread while it lives, of three kinds.
class InitSteps
{
public:
    const std::vector<std::string>& steps() const noexcept { return m_steps; }

private:
    std::vector<std::string> m_steps;
    SentMessages m_watch{[this](HWND window, UINT message, WPARAM wParam, LPARAM)
                         {
                             if (message == BM_SETIMAGE && ::GetDlgCtrlID(window) == IDHELP && wParam == IMAGE_ICON)
                                 m_steps.emplace_back("icon");
                             if (message == TCM_SETCURSEL)
                                 m_steps.push_back("tab " + std::to_string(wParam));
                             if (message == WM_SETTEXT && !::GetParent(window))
                                 m_steps.emplace_back("caption");
                         }};
};

TEST_F(SheetTest, hasTwoTabsOkCancelNoApply)
{
    EXPECT_TRUE(m_sheet.m_psh.dwFlags & PSH_NOAPPLYNOW);
    EXPECT_EQ(m_sheet.GetPageCount(), 2);
    const INT_PTR result = m_sheet.show(
        [&](SheetDriver& user, HWND sheet)
        {
            EXPECT_EQ(user.send(user.tabs(sheet), TCM_GETITEMCOUNT), 2);
            EXPECT_EQ(tabText(user, sheet, 0), libraryText(IDS_TAB_GENERAL));
            EXPECT_EQ(tabText(user, sheet, 1), libraryText(IDS_TAB_DEVICE));
            EXPECT_EQ(user.selectedTab(sheet), 0);
            EXPECT_TRUE(isUsable(user.control(sheet, IDOK)));
            EXPECT_TRUE(isUsable(user.control(sheet, IDCANCEL)));
            EXPECT_FALSE(user.hasControl(sheet, applyButton) && ::IsWindowVisible(user.control(sheet, applyButton)));
            user.press(sheet, IDOK);
        });
    EXPECT_EQ(result, IDOK);
    EXPECT_FALSE(m_sheet.m_modified);
    EXPECT_FALSE(m_sheet.m_saved);
    EXPECT_FALSE(m_sheet.m_replaced);
}

TEST_F(SheetTest, captionNamesTheFileElseThePrinter)
{
    m_sheet.show(
        [&](SheetDriver& user, HWND sheet)
        {
            EXPECT_EQ(user.text(sheet), caption(L"a.pc3"));
            user.press(sheet, IDCANCEL);
        });
    m_cfg->m_meta.m_win_device_name = L"R&D \\\\srv\\Plotter %s";
    EditorSheet sheetWithoutFile;
    sheetWithoutFile.setConfig(m_cfg, L"", L"");
    EXPECT_EQ(sheetWithoutFile.fileTitle(), L"R&D \\\\srv\\Plotter %s");
    sheetWithoutFile.show(
        [&](SheetDriver& user, HWND sheet)
        {
            EXPECT_EQ(user.text(sheet), caption(L"R&D \\\\srv\\Plotter %s"));
            user.press(sheet, IDCANCEL);
        });
}

TEST_F(SheetTest, setConfigClearsOnlyTheModifiedFlag)
{
    m_sheet.m_modified = m_sheet.m_saved = m_sheet.m_replaced = true;
    const OdSharedPtr<GmPlotCfg3> other = newConfiguration();
    m_sheet.setConfig(other, L"D:\\b.pc3", L"D:\\");
    EXPECT_FALSE(m_sheet.m_modified);
    EXPECT_TRUE(m_sheet.m_saved);
    EXPECT_TRUE(m_sheet.m_replaced);
    EXPECT_EQ(m_sheet.sharedCfg(), other);
    EXPECT_EQ(&m_sheet.cfg(), other.get());
    EXPECT_EQ(m_sheet.m_path, L"D:\\b.pc3");
    EXPECT_EQ(m_cfg.refCount(), 1) << "the sheet still holds the first one";
    EXPECT_EQ(other.refCount(), 2);
}

TEST_F(SheetTest, printerOnSameDriverKeepsConfiguration)
{
    m_cfg->m_media.m_number_of_copies = 7;
    auto* chosen = new GmPlotCfg3(*GmPlotCfg3::create(L"Plotter B"));
    chosen->m_meta.m_win_driver_name = L"ACME hp-gl";
    m_sheet.m_modified = true;
    m_sheet.changeCfg(chosen);
    EXPECT_EQ(m_sheet.sharedCfg(), m_cfg);
    EXPECT_EQ(m_cfg->m_meta.m_win_device_name, L"Plotter B");
    EXPECT_EQ(m_cfg->m_media.m_number_of_copies, 7);
    EXPECT_TRUE(m_sheet.m_replaced);
    EXPECT_TRUE(m_sheet.m_modified);
    EXPECT_FALSE(m_sheet.m_saved);
}

TEST_F(SheetTest, anotherDriverExchangesTheConfiguration)
{
    auto* chosen = new GmPlotCfg3(*GmPlotCfg3::create(L"Plotter C"));
    m_sheet.m_saved = true;
    m_sheet.changeCfg(chosen);
    EXPECT_EQ(&m_sheet.cfg(), chosen);
    EXPECT_EQ(m_sheet.sharedCfg().refCount(), 1);
    EXPECT_EQ(m_cfg.refCount(), 1);
    EXPECT_TRUE(m_sheet.m_replaced);
    EXPECT_FALSE(m_sheet.m_modified);
    EXPECT_TRUE(m_sheet.m_saved);
}

TEST_F(SheetTest, exchangeRunsInitialisationAgainStepByStep)
{
    m_sheet.setConfig(m_cfg, L"", L"");
    const std::vector<BYTE> helpPixels = pixels(loadIcon(2502, 16).get());
    ASSERT_FALSE(helpPixels.empty());
    m_sheet.show(
        [&](SheetDriver& user, HWND sheet)
        {
            const HWND help = user.control(sheet, IDHELP);
            const auto shownPixels = [&]
            { return pixels(reinterpret_cast<HICON>(user.send(help, BM_GETIMAGE, IMAGE_ICON))); };
            EXPECT_EQ(shownPixels(), helpPixels);
            EXPECT_FALSE(isUsable(help));
            user.selectTab(sheet, 1);
            const HWND description = user.control(sheet, IDC_DESCRIPTION);
            const LRESULT printers = user.send(user.control(sheet, IDC_PRINTERS), CB_GETCOUNT);
            const LRESULT entries = user.send(user.control(sheet, IDC_TREE), TVM_GETCOUNT);
            for (int i = 0; i < 2; ++i)
            {
                std::vector<std::string> steps;
                EditorSheet::onItsThread(user, sheet,
                                         [&]
                                         {
                                             const InitSteps recording;
                                             m_sheet.changeCfg(new GmPlotCfg3(*GmPlotCfg3::create(L"Plotter C")));
                                             steps = recording.steps();
                                         });
                // Once each, in this order; a second icon would be a leak.
                EXPECT_EQ(steps, (std::vector<std::string>{"icon", "tab 1", "caption"}));
                EXPECT_EQ(shownPixels(), helpPixels);
            }
            EXPECT_EQ(user.text(sheet), caption(L"Plotter C"));
            EXPECT_EQ(user.selectedTab(sheet), 1);
            // The tabs are not built again.
            EXPECT_EQ(user.send(user.tabs(sheet), TCM_GETITEMCOUNT), 2);
            EXPECT_EQ(user.control(sheet, IDC_DESCRIPTION), description);
            EXPECT_EQ(user.send(user.control(sheet, IDC_PRINTERS), CB_GETCOUNT), printers);
            EXPECT_EQ(user.send(user.control(sheet, IDC_TREE), TVM_GETCOUNT), entries);
            user.press(sheet, IDCANCEL);
        });
}

TEST_F(SheetTest, helpRunsAHookAndNothingElse)
{
    m_sheet.show(
        [&](SheetDriver& user, HWND sheet)
        {
            user.post(sheet, WM_COMMAND, IDHELP, reinterpret_cast<LPARAM>(user.control(sheet, IDHELP)));
            user.settle();
            EXPECT_EQ(m_sheet.m_helps, 1);
            EXPECT_EQ(user.selectedTab(sheet), 0);
            EXPECT_TRUE(isUsable(user.control(sheet, IDCANCEL)));
            user.press(sheet, IDCANCEL);
        });
    EXPECT_EQ(m_sheet.m_helps, 1);
}

TEST_F(SheetTest, leavingATabTakesItsEditsOver)
{
    m_sheet.show(
        [&](SheetDriver& user, HWND sheet)
        {
            user.enter(sheet, IDC_DESCRIPTION, L"typed");
            EXPECT_FALSE(m_sheet.m_modified);
            user.selectTab(sheet, 1);
            EXPECT_EQ(m_cfg->m_meta.m_config_description, L"typed");
            EXPECT_TRUE(m_sheet.m_modified);
            EXPECT_EQ(user.selectedTab(sheet), 1);
            EXPECT_TRUE(::IsWindowVisible(user.control(sheet, IDC_TREE)));
            EXPECT_FALSE(::IsWindowVisible(user.control(sheet, IDC_DESCRIPTION)));
            user.selectTab(sheet, 0);
            EXPECT_EQ(user.selectedTab(sheet), 0);
            EXPECT_TRUE(::IsWindowVisible(user.control(sheet, IDC_DESCRIPTION)));
            user.press(sheet, IDCANCEL);
        });
}

// A page that cannot be left.
class StubbornPage : public CPropertyPage
{
public:
    StubbornPage() : CPropertyPage(IDD_TRUETYPE, IDS_TRUETYPE) {}

    bool m_isStubborn = false;
    int m_saves = 0;

protected:
    void DoDataExchange(CDataExchange* pDX) override
    {
        CPropertyPage::DoDataExchange(pDX);
        if (!pDX->m_bSaveAndValidate)
            return;
        ++m_saves;
        if (m_isStubborn)
            AfxThrowUserException();
    }
};

TEST_F(SheetTest, aPageWhoseExchangeFailsKeepsTheTab)
{
    StubbornPage page;
    m_sheet.AddPage(&page);
    m_sheet.show(
        [&](SheetDriver& user, HWND sheet)
        {
            user.selectTab(sheet, 2);
            ASSERT_EQ(user.selectedTab(sheet), 2);
            const HWND shown = user.page(sheet);
            page.m_isStubborn = true;
            page.m_saves = 0;
            user.selectTab(sheet, 0);
            EXPECT_EQ(page.m_saves, 1) << "the user would be told twice";
            EXPECT_EQ(user.selectedTab(sheet), 2);
            EXPECT_EQ(user.page(sheet), shown);
            page.m_isStubborn = false;
            user.selectTab(sheet, 0);
            EXPECT_EQ(user.selectedTab(sheet), 0);
            EXPECT_NE(user.page(sheet), shown);
            user.press(sheet, IDCANCEL);
        });
}

TEST_F(SheetTest, aNumberThatIsNoPagesThrows)
{
    for (const int index : {-1, 2, 1000})
        EXPECT_THROW(m_sheet.GetPage(index), CInvalidArgException*) << index;
}

TEST_F(SheetTest, afterCancelConfigurationKeepsWhatWasTakenOver)
{
    const INT_PTR result = m_sheet.show(
        [&](SheetDriver& user, HWND sheet)
        {
            user.enter(sheet, IDC_DESCRIPTION, L"kept");
            user.selectTab(sheet, 1);
            user.selectTab(sheet, 0);
            user.enter(sheet, IDC_DESCRIPTION, L"not taken over");
            user.press(sheet, IDCANCEL);
        });
    EXPECT_EQ(result, IDCANCEL);
    EXPECT_EQ(m_cfg->m_meta.m_config_description, L"kept");
    EXPECT_TRUE(m_sheet.m_modified);
}

TEST_F(SheetTest, okTakesThePageOverThatIsShown)
{
    const INT_PTR result = m_sheet.show(
        [&](SheetDriver& user, HWND sheet)
        {
            user.enter(sheet, IDC_DESCRIPTION, L"new");
            user.press(sheet, IDOK);
        });
    EXPECT_EQ(result, IDOK);
    EXPECT_EQ(m_cfg->m_meta.m_config_description, L"new");
    EXPECT_TRUE(m_sheet.m_modified);
    EXPECT_TRUE(m_folder.names().empty()) << "the sheet wrote something";
}

TEST_F(SheetTest, everyWayOfCancellingEndsIt)
{
    const std::function<void(SheetDriver&, HWND)> ways[] = {
        [](SheetDriver& user, HWND sheet) { user.post(sheet, WM_COMMAND, IDCANCEL); },
        [](SheetDriver& user, HWND sheet) { user.send(sheet, WM_COMMAND, IDCANCEL); },
        [](SheetDriver& user, HWND sheet) { user.post(sheet, WM_CLOSE); },
        [](SheetDriver& user, HWND sheet) { user.send(sheet, WM_SYSCOMMAND, SC_CLOSE); },
        [](SheetDriver& user, HWND) { user.key(VK_ESCAPE); },
    };
    for (const auto& way : ways)
    {
        EditorSheet sheet;
        sheet.setConfig(m_cfg, L"", L"");
        const INT_PTR result = sheet.show(
            [&](SheetDriver& user, HWND window)
            {
                user.focusOn(user.control(window, IDOK));
                way(user, window);
            });
        EXPECT_EQ(result, IDCANCEL);
    }
}

TEST_F(SheetTest, aTabWithoutASheetThrows)
{
    for (int i = 0; i < 2; ++i)
    {
        auto& tab = dynamic_cast<GmBaseTab&>(*m_sheet.GetPage(i));
        try
        {
            tab.parentDlg();
            ADD_FAILURE() << "a sheet for tab " << i;
        }
        catch (const OdError& e)
        {
            EXPECT_EQ(e.code(), 5);
        }
    }
}

TEST_F(SheetTest, bothTabsFindTheirSheet)
{
    m_sheet.show(
        [&](SheetDriver& user, HWND sheet)
        {
            user.selectTab(sheet, 1);
            EditorSheet::onItsThread(user, sheet,
                                     [&]
                                     {
                                         for (int i = 0; i < 2; ++i)
                                             EXPECT_EQ(&dynamic_cast<GmBaseTab&>(*m_sheet.GetPage(i)).parentDlg(),
                                                       &m_sheet);
                                     });
            user.press(sheet, IDCANCEL);
        });
}

TEST_F(SheetTest, releasesTheConfigurationAtTheEnd)
{
    {
        EditorSheet sheet;
        sheet.setConfig(m_cfg, L"", L"");
        EXPECT_EQ(m_cfg.refCount(), 3);
    }
    EXPECT_EQ(m_cfg.refCount(), 2);
}
} // namespace
