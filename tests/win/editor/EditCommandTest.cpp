#include "tests/win/editor/EditorTest.h"

#include "GarmPC3Editor/Commands/PC3EditCommand.h"
#include "GarmPC3Editor/GarmPC3EditorApp.h"
#include "host/GarmInterfaces.h"
#include "kernel/OdResBuf.h"
#include "kernel/OdRxObjectImpl.h"
#include "mfc/AfxModuleState.h"
#include "resources/Resource.h"

#include <utility>
#include <vector>

namespace
{
// The command with its real windows. What it decides without windows is tested elsewhere.
class EditCommandTest : public EditorTest
{
protected:
    // The host's resources are current, not the editor's.
    EditCommandTest() { AfxSetResourceHandle(nullptr); }
    ~EditCommandTest() override
    {
        EXPECT_EQ(AfxGetResourceHandle(), nullptr) << "the host's resources are not current again";
        AfxSetResourceHandle(library());
    }

    void edit(const OdString& name, bool isPrinter, const SheetDriver::Script& script)
    {
        GmServicesManagerInterface& values = m_interfaces->document().servicesManager();
        values.clear();
        values.set(L"plotCfgName", OdResBuf::newRb(kRtString, name));
        values.set(L"bSystemPrinter", OdResBuf::newRb(kRtBool, isPrinter));
        SheetDriver::run([&] { OdRxObjectImpl<PC3EditCommand>::createObject()->execute(m_interfaces.get()); }, script);
    }

    OdString textOf(const OdChar* name)
    {
        const OdResBufPtr value = odrxCast<OdResBuf>(m_interfaces->document().servicesManager().get(name));
        return value ? value->getString() : OdString(L"no value");
    }

    GarmInterfacesPtr m_interfaces = newGarmInterfaces();
};

TEST_F(EditCommandTest, newConfigurationIsEditedSavedAndReadAgain)
{
    edit(L"Plotter A", true,
         [](SheetDriver& user)
         {
             const HWND dialog = changeAndConfirm(user);
             EXPECT_EQ(user.textOf(dialog, IDC_CFG_NAME), L"Plotter A");
             user.enter(dialog, IDC_CFG_NAME, L" Office ");
             user.press(dialog, IDOK);
         });
    EXPECT_EQ(textOf(L"fileName"), L"Office.pc3");
    EXPECT_EQ(textOf(L"paperName"), L"A4");
    const OdSharedPtr<GmPlotCfg3> written = read("Office.pc3");
    ASSERT_TRUE(written);
    EXPECT_EQ(written->m_meta.m_config_description, L"by hand");

    edit(L"Office", false,
         [](SheetDriver& user)
         {
             const HWND sheet = user.awaitWindow();
             EXPECT_EQ(user.textOf(sheet, IDC_DESCRIPTION), L"by hand");
             user.press(sheet, IDOK);
         });
    EXPECT_EQ(textOf(L"fileName"), L"Office.pc3");
    EXPECT_EQ(m_folder.names(), std::set<std::string>{"Office.pc3"});
}

// What opening a sheet costs beside its windows. The second tab asks for nothing more.
TEST_F(EditCommandTest, openingFileCostsTheseCallsAndNoMore)
{
    using room::Call;
    const OdSharedPtr<GmPlotCfg3> cfg = newConfiguration();
    cfg->m_io.m_plot_to_file = false;
    ASSERT_TRUE(cfg->write(m_folder.at("a.pc3")));
    m_room.forgetCalls();
    edit(L"a", false,
         [](SheetDriver& user)
         {
             const HWND sheet = user.awaitWindow();
             user.selectTab(sheet, 1);
             user.press(sheet, IDCANCEL);
         });
    std::vector<std::pair<Call, bool>> calls;
    for (const room::CallRecord& record : m_room.calls())
        calls.emplace_back(record.call, record.fill);
    const std::vector<std::pair<Call, bool>> expected = {
        // Is the printer still there, and does it still have the configuration's driver?
        {Call::openPrinter, false},
        {Call::getPrinterDriver, false},
        {Call::getPrinterDriver, true},
        {Call::closePrinter, false},
        // Its port.
        {Call::openPrinter, false},
        {Call::getPrinter, false},
        {Call::getPrinter, true},
        {Call::closePrinter, false},
        // The installed printers: those of this machine, and the others, of which there are none.
        {Call::enumPrinters, false},
        {Call::enumPrinters, true},
        {Call::enumPrinters, false},
    };
    EXPECT_EQ(calls, expected);
}

TEST_F(EditCommandTest, aCancelledSheetWritesNothing)
{
    edit(L"Plotter A", true,
         [](SheetDriver& user)
         {
             const HWND sheet = user.awaitWindow();
             user.enter(sheet, IDC_DESCRIPTION, L"by hand");
             user.selectTab(sheet, 1);
             user.press(sheet, IDCANCEL);
         });
    EXPECT_EQ(textOf(L"fileName"), L"Plotter A");
    EXPECT_TRUE(m_folder.names().empty());
}

TEST_F(EditCommandTest, aRefusedNameWritesNothing)
{
    edit(L"Plotter A", true, [](SheetDriver& user) { user.press(changeAndConfirm(user), IDCANCEL); });
    EXPECT_EQ(textOf(L"fileName"), L"");
    EXPECT_TRUE(m_folder.names().empty());
}

TEST_F(EditCommandTest, aTargetThatCannotBeWrittenIsTold)
{
    m_folder.addFile("Taken.pc3/file");
    edit(L"Plotter A", true,
         [this](SheetDriver& user)
         {
             const HWND dialog = changeAndConfirm(user);
             user.enter(dialog, IDC_CFG_NAME, L"Taken");
             user.press(dialog, IDOK);
             const BoxTexts told = user.answerNext(IDOK);
             EXPECT_EQ(told.caption, L"");
             EXPECT_EQ(told.text, libraryText(IDS_SAVE_FAILED));
             EXPECT_EQ(told.buttons, std::vector<int>{IDOK});
             EXPECT_EQ(told.icon, ::LoadIconW(nullptr, IDI_WARNING));
             EXPECT_EQ(told.owner, nullptr);
         });
    EXPECT_EQ(textOf(L"fileName"), L"");
}

TEST_F(EditCommandTest, whatCannotBeEditedShowsNothing)
{
    GmServicesManagerInterface& values = m_interfaces->document().servicesManager();
    values.set(L"plotCfgName", OdResBuf::newRb(kRtString, OdString(L"missing.pc3")));
    values.set(L"bSystemPrinter", OdResBuf::newRb(kRtBool, false));
    OdRxObjectImpl<PC3EditCommand>::createObject()->execute(m_interfaces.get());
    EXPECT_EQ(textOf(L"fileName"), L"no value");
}

TEST_F(EditCommandTest, withoutItsTemplatesTheSheetCountsAsCancelled)
{
    // A library of another product: no dialog can be made from it.
    theApp.m_hLangResourceDLL = ::GetModuleHandleW(L"kernel32.dll");
    GmServicesManagerInterface& values = m_interfaces->document().servicesManager();
    values.set(L"plotCfgName", OdResBuf::newRb(kRtString, OdString(L"Plotter A")));
    values.set(L"bSystemPrinter", OdResBuf::newRb(kRtBool, true));
    OdRxObjectImpl<PC3EditCommand>::createObject()->execute(m_interfaces.get());
    theApp.m_hLangResourceDLL = library();
    EXPECT_EQ(textOf(L"fileName"), L"Plotter A");
    EXPECT_TRUE(m_folder.names().empty());
}
} // namespace
