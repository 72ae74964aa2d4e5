// Texts of a file that no control can show as they are: with NULs, or longer than anybody reads.

#include "tests/support/operator/DeviceTabUser.h"
#include "tests/win/editor/EditorSheet.h"
#include "tests/win/editor/EditorTest.h"

#include "GarmPC3Editor/Dialogs/GmChangeCfgDlg.h"
#include "resources/Resource.h"

namespace
{
// In a control millions take minutes.
constexpr std::size_t veryMany = 3000000;

class ShownTextsTest : public EditorTest
{
protected:
    using Script = std::function<void(SheetDriver& user, HWND sheet)>;

    // Closed with OK, which writes what the pages hold into the configuration.
    void run(const Script& script)
    {
        EXPECT_EQ(m_sheet.show(
                      [&](SheetDriver& user, HWND sheet)
                      {
                          script(user, sheet);
                          user.press(sheet, IDOK);
                      }),
                  IDOK);
    }

    OdString& description() { return m_cfg->m_meta.m_config_description; }
    static bool isReadOnly(SheetDriver& user, HWND sheet)
    {
        return (::GetWindowLongW(user.control(sheet, IDC_DESCRIPTION), GWL_STYLE) & ES_READONLY) != 0;
    }

    OdSharedPtr<GmPlotCfg3> m_cfg = newConfiguration();
    EditorSheet m_sheet;
};

OdString withNul(const wchar_t* before, const wchar_t* after)
{
    return OdString(before) + OdStringView(L"\0", 1) + after;
}

OdString repeated(std::size_t count)
{
    return OdString(std::wstring(count, L'x'));
}

const std::wstring cutLine = std::wstring(999, L'x') + L'\u2026';
} // namespace

TEST_F(ShownTextsTest, descriptionShowsASignForNul)
{
    description() = withNul(L"before", L"after");
    m_sheet.setConfig(m_cfg, m_folder.at("a.pc3"), L"");
    run(
        [](SheetDriver& user, HWND sheet)
        {
            EXPECT_EQ(user.textOf(sheet, IDC_DESCRIPTION), L"before\u2400after");
            EXPECT_FALSE(isReadOnly(user, sheet));
            EXPECT_EQ(user.textOf(sheet, IDC_DESCRIPTION_NOTE), L"");
            user.selectTab(sheet, 1);
            user.selectTab(sheet, 0);
        });
    EXPECT_EQ(description(), withNul(L"before", L"after"));
    EXPECT_FALSE(m_sheet.m_modified);
}

TEST_F(ShownTextsTest, editedDescriptionKeepsTheSignForNul)
{
    description() = withNul(L"a", L"b");
    m_sheet.setConfig(m_cfg, m_folder.at("a.pc3"), L"");
    run(
        [&](SheetDriver& user, HWND sheet)
        {
            user.enter(sheet, IDC_DESCRIPTION, L"a\u2400bc");
            user.selectTab(sheet, 1);
            EXPECT_EQ(description(), L"a\u2400bc");
            user.selectTab(sheet, 0);
            user.enter(sheet, IDC_DESCRIPTION, L"a\u2400b");
        });
    EXPECT_EQ(description(), L"a\u2400b");
    EXPECT_TRUE(m_sheet.m_modified);
}

TEST_F(ShownTextsTest, veryLongDescriptionIsCutAndReadOnly)
{
    description() = repeated(veryMany);
    m_sheet.setConfig(m_cfg, m_folder.at("a.pc3"), L"");
    run(
        [this](SheetDriver& user, HWND sheet)
        {
            EXPECT_TRUE(user.textOf(sheet, IDC_DESCRIPTION) == std::wstring(4999, L'x') + L'\u2026');
            EXPECT_TRUE(isReadOnly(user, sheet));
            EXPECT_EQ(user.textOf(sheet, IDC_DESCRIPTION_NOTE), libraryText(IDS_DESCRIPTION_CUT));
            EXPECT_TRUE(isUsable(user.control(sheet, IDC_DESCRIPTION))) << "it can still be scrolled";
            // Typing changes nothing.
            user.focusOn(user.control(sheet, IDC_DESCRIPTION));
            user.post(user.control(sheet, IDC_DESCRIPTION), WM_CHAR, L'y');
            user.selectTab(sheet, 1);
        });
    EXPECT_TRUE(description() == repeated(veryMany));
    EXPECT_FALSE(m_sheet.m_modified);
}

TEST_F(ShownTextsTest, descriptionCannotBeTypedLongerThanIsShown)
{
    const OdString line = repeated(4998) + L"\r\n";
    for (int i = 0; i < 19; ++i)
        description() += line;
    description() += repeated(4999);
    const OdString stored = description();
    m_sheet.setConfig(m_cfg, m_folder.at("a.pc3"), L"");
    run(
        [](SheetDriver& user, HWND sheet)
        {
            const HWND edit = user.control(sheet, IDC_DESCRIPTION);
            EXPECT_FALSE(isReadOnly(user, sheet));
            user.focusOn(edit);
            user.send(edit, EM_SETSEL, 0, 0);
            user.post(edit, WM_CHAR, L'1');
            user.post(edit, WM_CHAR, L'2');
            user.settle();
        });
    EXPECT_TRUE(description() == L"1" + stored);
}

TEST_F(ShownTextsTest, everyLineOfTheGeneralTabIsCut)
{
    GmMetaNode& meta = m_cfg->m_meta;
    meta.m_win_device_name.empty();
    meta.m_localized_family_name = repeated(veryMany);
    meta.m_driver_pathname = OdString(L"C:\\") + repeated(veryMany);
    meta.m_driver_version = repeated(veryMany);
    m_sheet.setConfig(m_cfg, m_folder.at("a.pc3"), L"");
    run(
        [this](SheetDriver& user, HWND sheet)
        {
            EXPECT_EQ(user.textOf(sheet, IDC_DRIVER), cutLine);
            EXPECT_EQ(user.textOf(sheet, IDC_DRIVER_FILE), cutLine);
            const std::wstring version = user.textOf(sheet, IDC_VERSION);
            EXPECT_EQ(version.substr(0, libraryText(IDS_VERSION).size()), libraryText(IDS_VERSION));
            EXPECT_EQ(version.size(), 1000U);
        });
}

TEST_F(ShownTextsTest, signsStandInLinesOfGeneralTab)
{
    GmMetaNode& meta = m_cfg->m_meta;
    meta.m_win_device_name.empty();
    meta.m_localized_family_name = withNul(L"fam", L"ily");
    meta.m_localized_model_name = L"mo\ndel";
    meta.m_driver_pathname = withNul(L"C:\\dri", L"ver.hdi");
    meta.m_driver_version = withNul(L"4", L"2");
    m_sheet.setConfig(m_cfg, m_folder.at("a.pc3"), L"");
    run(
        [this](SheetDriver& user, HWND sheet)
        {
            EXPECT_EQ(user.textOf(sheet, IDC_DRIVER), L"fam\u2400ily mo\u240Adel");
            EXPECT_EQ(user.textOf(sheet, IDC_DRIVER_FILE), L"dri\u2400ver.hdi");
            EXPECT_EQ(user.textOf(sheet, IDC_VERSION), libraryText(IDS_VERSION) + L"4\u24002");
        });
}

TEST_F(ShownTextsTest, longPrinterNameIsCutEverywhere)
{
    m_cfg->m_meta.m_win_device_name = repeated(veryMany);
    m_sheet.setConfig(m_cfg, L"", L"");
    run(
        [this](SheetDriver& user, HWND sheet)
        {
            EXPECT_EQ(user.text(sheet), libraryText(IDS_SHEET_TITLE, {OdString(cutLine.c_str())}));
            EXPECT_EQ(user.textOf(sheet, IDC_FILE_NAME), cutLine);
            EXPECT_EQ(user.textOf(sheet, IDC_PRINTERS),
                      libraryText(IDS_PRINTER_NOT_INSTALLED, {OdString(cutLine.c_str())}));
            EXPECT_EQ(DeviceTabUser(user, sheet).label(eRoot), cutLine);
        });
    EXPECT_FALSE(m_sheet.m_modified);
}

TEST_F(ShownTextsTest, printerNameWithNulIsAnotherPrinter)
{
    m_cfg->m_meta.m_win_device_name = withNul(L"Plotter A", L"1");
    m_sheet.setConfig(m_cfg, L"", L"");
    run(
        [this](SheetDriver& user, HWND sheet)
        {
            EXPECT_EQ(user.textOf(sheet, IDC_PRINTERS), libraryText(IDS_PRINTER_NOT_INSTALLED, {L"Plotter A\u24001"}));
            EXPECT_EQ(user.text(sheet), libraryText(IDS_SHEET_TITLE, {L"Plotter A\u24001"}));
        });
}

TEST_F(ShownTextsTest, longTreeAndVectorLabelsAreCut)
{
    m_cfg->m_media.m_size.m_name = withNul(L"A", L"4");
    m_cfg->m_media.m_destination->m_name = repeated(veryMany);
    m_cfg->m_res_color_mem.m_resolution.m_name = repeated(veryMany) + L"_" + withNul(L"d", L"e");
    m_sheet.setConfig(m_cfg, m_folder.at("a.pc3"), L"");
    run(
        [this](SheetDriver& user, HWND sheet)
        {
            const DeviceTabUser tab(user, sheet);
            EXPECT_EQ(tab.label(eSourceSize),
                      libraryText(IDS_SOURCE_SIZE) + L" " + libraryText(IDS_SIZE_VALUE, {L"A\u24004"}));
            for (const GmDeviceEntry type : {eMediaDest, eVectorGraphics})
            {
                EXPECT_EQ(tab.label(type).size(), 1000U);
                EXPECT_EQ(tab.label(type).substr(998), L"x\u2026");
            }
            tab.select(eVectorGraphics);
            EXPECT_EQ(user.textOf(sheet, IDC_RESOLUTION), cutLine);
            EXPECT_EQ(user.textOf(sheet, IDC_DITHERING), L"d\u2400e");
        });
    EXPECT_FALSE(m_sheet.m_modified);
}

// The difference may be where the label is cut off.
TEST_F(ShownTextsTest, changeInTheCutPartIsMarked)
{
    m_cfg->m_media.m_destination->m_name = repeated(5000);
    m_cfg->m_media.m_size.m_name = withNul(L"A", L"4");
    m_sheet.setConfig(m_cfg, m_folder.at("a.pc3"), L"");
    run(
        [this](SheetDriver& user, HWND sheet)
        {
            const DeviceTabUser tab(user, sheet);
            const auto refresh = [&]
            {
                const auto work = [this] { dynamic_cast<GmTabDevice&>(*m_sheet.GetPage(1)).refreshAll(); };
                EditorSheet::onItsThread(user, sheet, work);
            };
            refresh();
            EXPECT_TRUE(tab.markedEntries().empty());
            m_cfg->m_media.m_destination->m_name = repeated(4999) + L"y";
            refresh();
            EXPECT_EQ(tab.markedEntries(), std::vector<GmDeviceEntry>{eMediaDest});
        });
}

TEST_F(ShownTextsTest, theProposedNameIsCutAndHasSigns)
{
    for (const auto& [name, shown] : {std::pair(repeated(veryMany), std::wstring(4999, L'x') + L'\u2026'),
                                      std::pair(withNul(L"a", L"b"), std::wstring(L"a\u2400b"))})
    {
        GmChangeCfgDlg dialog(OdString(L"C:\\plot\\") + name + L".pc3");
        SheetDriver::run([&] { dialog.DoModal(); },
                         [&](SheetDriver& user)
                         {
                             const HWND window = user.awaitWindow();
                             EXPECT_TRUE(user.textOf(window, IDC_CFG_NAME) == shown) << shown.size();
                             user.press(window, IDCANCEL);
                         });
    }
}
