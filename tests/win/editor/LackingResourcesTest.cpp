// A language library in which something is missing: what can be shown is shown, and the user's work is saved.

#include "tests/support/RecordedAsserts.h"
#include "tests/support/operator/DeviceTabUser.h"
#include "tests/win/editor/EditorTest.h"
#include "tests/win/editor/HostDialog.h"
#include "tests/win/support/ChangedLibrary.h"

#include "GarmPC3Editor/Commands/Editor.h"
#include "GarmPC3Editor/Commands/PC3EditCommand.h"
#include "GarmPC3Editor/GarmPC3EditorApp.h"
#include "host/GarmInterfaces.h"
#include "host/GmResellerData.h"
#include "host/GmString.h"
#include "kernel/OdResBuf.h"
#include "kernel/OdRxObjectImpl.h"
#include "mfc/AfxModuleState.h"
#include "resources/Resource.h"

#include <array>
#include <functional>
#include <optional>

namespace
{
std::filesystem::path englishLibrary()
{
    wchar_t program[MAX_PATH] = {};
    ::GetModuleFileNameW(nullptr, program, MAX_PATH);
    return std::filesystem::path(program).parent_path() / L"en" / L"GarmPC3EditorRes.dll";
}

constexpr auto noFurtherSteps = [](DeviceTabUser&) {};

class LackingResources : public EditorTest
{
protected:
    ~LackingResources() override { useLibrary(library()); }

    static void useLibrary(HINSTANCE library)
    {
        theApp.m_hLangResourceDLL = library;
        AfxSetResourceHandle(library);
    }

    // From now on the editor has a library that lacks something.
    void lack(const std::function<void(ChangedLibrary&)>& change)
    {
        useLibrary(library());
        m_lacking.emplace(englishLibrary());
        change(*m_lacking);
        useLibrary(m_lacking->load());
    }
    void lack(const wchar_t* type, UINT id)
    {
        lack([type, id](ChangedLibrary& changed) { changed.remove(type, id); });
    }

    // The command on "Plotter A" as a new configuration.
    void command(const SheetDriver::Script& script)
    {
        GmServicesManagerInterface& values = m_interfaces->document().servicesManager();
        values.clear();
        values.set(L"plotCfgName", OdResBuf::newRb(kRtString, OdString(L"Plotter A")));
        values.set(L"bSystemPrinter", OdResBuf::newRb(kRtBool, true));
        SheetDriver::run([&] { OdRxObjectImpl<PC3EditCommand>::createObject()->execute(m_interfaces.get()); }, script);
    }

    // The same through all tabs, pages and questions to a saved file, in so far as there is something to press.
    void editAndSave(const std::function<void(DeviceTabUser& tab)>& further = noFurtherSteps)
    {
        const OdString name(L"Saved");
        command(
            [&](SheetDriver& user)
            {
                const HWND sheet = user.awaitWindow();
                user.enter(sheet, IDC_DESCRIPTION, L"by hand");
                DeviceTabUser tab(user, sheet);
                for (const GmDeviceEntry entry : tab.entries())
                    tab.select(entry);
                tab.select(eCustomProp);
                if (user.hasControl(tab.tab, IDC_DRIVER_SETTINGS))
                    tab.click(IDC_DRIVER_SETTINGS);
                user.press(tab.tab, IDC_DEFAULTS);
                user.answer(user.awaitWindow(), IDYES);
                further(tab);
                tab.pressOk();
                const HWND dialog = user.awaitWindow();
                user.enter(dialog, IDC_CFG_NAME, name.c_str());
                user.press(dialog, IDOK);
            });
        EXPECT_EQ(textOf(L"fileName"), L"Saved.pc3");
        EXPECT_EQ(textOf(L"paperName"), L"A4");
        const OdSharedPtr<GmPlotCfg3> saved = read("Saved.pc3");
        ASSERT_TRUE(saved);
        EXPECT_EQ(saved->m_meta.m_config_description, L"by hand");
    }

    OdString textOf(const OdChar* name)
    {
        const OdResBufPtr value = odrxCast<OdResBuf>(m_interfaces->document().servicesManager().get(name));
        return value ? value->getString() : OdString(L"no value");
    }

    GarmInterfacesPtr m_interfaces = newGarmInterfaces();
    RecordedAsserts m_asserts;

private:
    std::optional<ChangedLibrary> m_lacking;
};

using Texts = std::vector<std::string>;

// --- Templates ---

TEST_F(LackingResources, withoutTabsTemplateSheetCountsAsCancelled)
{
    for (const UINT id : {IDD_GENERAL, IDD_DEVICE})
    {
        SCOPED_TRACE(id);
        lack(RT_DIALOG, id);
        command([](SheetDriver&) {});
        EXPECT_EQ(textOf(L"fileName"), L"Plotter A");
        EXPECT_EQ(textOf(L"paperName"), L"A4");
        EXPECT_TRUE(m_folder.names().empty());
    }
    EXPECT_EQ(RecordedAsserts::reports(), Texts());
}

TEST_F(LackingResources, withoutTheNameDialogNothingIsSaved)
{
    lack(RT_DIALOG, IDD_CHANGE_CFG);
    command(
        [](SheetDriver& user)
        {
            const HWND sheet = user.awaitWindow();
            user.enter(sheet, IDC_DESCRIPTION, L"by hand");
            user.press(sheet, IDOK);
        });
    // As after its Cancel.
    EXPECT_EQ(textOf(L"fileName"), L"");
    EXPECT_TRUE(m_folder.names().empty());
    EXPECT_EQ(RecordedAsserts::reports(), Texts());
}

TEST_F(LackingResources, withoutPagesTemplateItsEntryHasNoPage)
{
    struct Page
    {
        UINT id;
        GmDeviceEntry entry;
        int control;
    };
    constexpr std::array pages = {Page{IDD_COLLATING, eCollating, IDC_COLLATING},
                                  Page{IDD_VECTOR_GRAPHICS, eVectorGraphics, IDC_COLOR_DEPTH},
                                  Page{IDD_RASTER_GRAPHICS, eRasterGraphics, IDC_PREFERENCE},
                                  Page{IDD_TRUETYPE, eTrueType, IDC_TRUETYPE_AS_TEXT},
                                  Page{IDD_MERGE_CTRL, eMergeCtrl, IDC_LINES_MERGE},
                                  Page{IDD_CUSTOM_PROP, eCustomProp, IDC_DRIVER_SETTINGS}};
    for (const Page& lacking : pages)
    {
        SCOPED_TRACE(lacking.id);
        lack(RT_DIALOG, lacking.id);
        editAndSave(
            [&](DeviceTabUser& tab)
            {
                for (const Page& page : pages)
                {
                    tab.select(page.entry);
                    EXPECT_EQ(tab.shownPage() != nullptr, page.id != lacking.id);
                    EXPECT_EQ(tab.user.hasControl(tab.tab, page.control), page.id != lacking.id);
                }
            });
    }
    EXPECT_EQ(RecordedAsserts::reports(), Texts());
}

TEST_F(LackingResources, withoutVirtualPrintersDialogItsButtonShowsNothing)
{
    GmResellerData::set(OD_T("PDFPRINTERNAME"), OD_T("Plotter A"));
    lack(RT_DIALOG, IDD_VIRTUAL_PRINTER);
    editAndSave([](DeviceTabUser& tab) { EXPECT_TRUE(isUsable(tab.sheet)); });
    GmResellerData::clear();
    EXPECT_EQ(RecordedAsserts::reports(), Texts());
}

TEST_F(LackingResources, aLibraryOfAnotherModuleShowsNothing)
{
    useLibrary(::GetModuleHandleW(L"comdlg32.dll"));
    command([](SheetDriver&) {});
    EXPECT_EQ(textOf(L"fileName"), L"Plotter A");
    EXPECT_TRUE(m_folder.names().empty());
}

// What the dialogs throw, when a control is not there, is not for the host, which may know nothing of such exceptions.
TEST_F(LackingResources, foreignDialogsUnderOurNumbersCountAsCancelled)
{
    const LibraryHandle foreign(::LoadLibraryW(L"editor_foreign_templates.dll"));
    ASSERT_TRUE(foreign);
    useLibrary(foreign.get());
    command([](SheetDriver&) {});
    EXPECT_EQ(textOf(L"fileName"), L"Plotter A");
    EXPECT_EQ(textOf(L"paperName"), L"A4");
    EXPECT_EQ(askForName(L"C:\\plot\\a.pc3"), std::nullopt);
    EXPECT_TRUE(m_folder.names().empty());
    useLibrary(library());
}

// --- Strings ---

TEST_F(LackingResources, withoutAnyStringEverythingIsThereWithoutTexts)
{
    lack([](ChangedLibrary& changed) { changed.removeAll(RT_STRING); });
    editAndSave(
        [](DeviceTabUser& tab)
        {
            EXPECT_EQ(tab.user.text(tab.sheet), L"");
            EXPECT_EQ(tab.label(eRoot), L"Plotter A");
            // Values are shown in place of their texts.
            EXPECT_EQ(tab.label(eMedia), L"");
            EXPECT_EQ(tab.label(eTrueType), L" <>");
            tab.select(eCollating);
            EXPECT_EQ(tab.user.send(tab.control(IDC_COLLATING), CB_GETCOUNT), 2);
            EXPECT_EQ(tab.markedEntries(), std::vector<GmDeviceEntry>());
        });
    EXPECT_EQ(RecordedAsserts::reports(), Texts());
}

// Where one text is put into another, and where the system is given one.
TEST_F(LackingResources, eachCombinedStringMayBeMissingAlone)
{
    for (const UINT id : {IDS_SHEET_TITLE, IDS_COLLATING_ON, IDS_VERSION, IDS_PORT, IDS_SOURCE_SIZE, IDS_SIZE_VALUE,
                          IDS_COLORS_VALUE, IDS_COLORS_AND_DEPTH, IDS_PREFERENCE_VALUE, IDS_RESET_QUESTION})
    {
        SCOPED_TRACE(id);
        lack([id](ChangedLibrary& changed) { changed.removeString(id); });
        EXPECT_EQ(GmString::loadString(id, L"none", AfxGetResourceHandle()), L"none");
        editAndSave();
    }
    EXPECT_EQ(RecordedAsserts::reports(), Texts());
}

TEST_F(LackingResources, saveAsWorksWithoutItsFilter)
{
    lack([](ChangedLibrary& changed) { changed.removeString(IDS_SAVE_FILTER); });
    const OdString path = m_folder.at("copy.pc3");
    editAndSave(
        [&](DeviceTabUser& tab)
        {
            tab.user.press(tab.tab, IDC_SAVE_AS);
            const HWND dialog = tab.user.awaitWindow();
            tab.user.send(fileNameField(dialog), WM_SETTEXT, 0, reinterpret_cast<LPARAM>(path.c_str()));
            tab.user.press(dialog, IDOK);
            tab.user.awaitClosed(dialog);
            tab.user.settle();
        });
    EXPECT_EQ(m_folder.names(), (std::set<std::string>{"Saved.pc3", "copy.pc3"}));
}

TEST_F(LackingResources, failedSaveShowsABoxWithoutAText)
{
    lack([](ChangedLibrary& changed) { changed.removeString(IDS_SAVE_FAILED); });
    m_folder.addFile("Taken.pc3/file");
    command(
        [](SheetDriver& user)
        {
            const HWND dialog = changeAndConfirm(user);
            user.enter(dialog, IDC_CFG_NAME, L"Taken");
            user.press(dialog, IDOK);
            const BoxTexts told = user.answerNext(IDOK);
            EXPECT_EQ(told.text, L"");
            EXPECT_EQ(told.icon, ::LoadIconW(nullptr, IDI_WARNING));
        });
    EXPECT_EQ(textOf(L"fileName"), L"");
}

// --- Icons and bitmaps ---

// In the order of the types.
constexpr std::array entryNames = {"eChecked",        "eRoot",      "eMedia",     "eMediaDest",
                                   "eSourceSize",     "eCollating", "eGraphics",  "eVectorGraphics",
                                   "eRasterGraphics", "eTrueType",  "eMergeCtrl", "eCustomProp"};
static_assert(entryNames.size() == deviceRowCount);

TEST_F(LackingResources, missingEntryIconShiftsLaterOnes)
{
    for (std::size_t lacking = 0; lacking < entryNames.size(); ++lacking)
    {
        SCOPED_TRACE(entryNames[lacking]);
        lack(RT_GROUP_ICON, deviceRow(static_cast<std::int32_t>(lacking))->icon);
        RecordedAsserts::reports().clear();
        editAndSave();
        Texts expected = {"hIcon | GarmPC3Editor/Dialogs/GmTabDevice"};
        for (std::size_t type = lacking; type < entryNames.size(); ++type)
            expected.push_back(std::string("iIcon == ") + entryNames[type] + " | GarmPC3Editor/Dialogs/GmTabDevice");
        EXPECT_EQ(RecordedAsserts::reports(), expected);
    }
}

TEST_F(LackingResources, withoutDriversIconGeneralTabHasNone)
{
    lack(RT_GROUP_ICON, IDI_SYSTEM_PRINTER);
    command(
        [](SheetDriver& user)
        {
            const HWND sheet = user.awaitWindow();
            EXPECT_EQ(user.send(user.control(sheet, IDC_DRIVER_ICON), STM_GETICON), 0);
            user.press(sheet, IDCANCEL);
        });
    EXPECT_EQ(textOf(L"fileName"), L"Plotter A");
}

TEST_F(LackingResources, virtualPrinterDialogWorksWithoutItsPictures)
{
    lack(
        [](ChangedLibrary& changed)
        {
            changed.remove(RT_GROUP_ICON, IDI_SYSTEM_PRINTER);
            changed.remove(RT_BITMAP, IDB_PORTRAIT);
            changed.remove(RT_BITMAP, IDB_LANDSCAPE);
            for (const UINT id : {IDS_QUALITY_72, IDS_QUALITY_150, IDS_QUALITY_300, IDS_QUALITY_600, IDS_QUALITY_1200})
                changed.removeString(id);
        });
    GmResellerData::set(OD_T("PDFPRINTERNAME"), OD_T("Plotter A"));
    command(
        [](SheetDriver& user)
        {
            DeviceTabUser tab(user, user.awaitWindow());
            user.press(tab.tab, IDC_DRIVER_SETTINGS);
            const HWND dialog = user.awaitWindow();
            EXPECT_EQ(user.text(dialog), L"Plotter A - Properties");
            // Without their texts the qualities are still as many.
            EXPECT_EQ(user.send(user.control(dialog, IDC_QUALITY), CB_GETCOUNT), 5);
            EXPECT_EQ(user.send(user.control(dialog, IDC_PORTRAIT_IMAGE), STM_GETIMAGE, IMAGE_BITMAP), 0);
            user.press(dialog, IDOK);
            user.awaitClosed(dialog);
            user.settle();
            tab.user.press(tab.sheet, IDCANCEL);
        });
    GmResellerData::clear();
    EXPECT_EQ(textOf(L"fileName"), L"Plotter A");
}
} // namespace
