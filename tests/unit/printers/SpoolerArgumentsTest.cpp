// Each argument of each call to spooler, driver and GDI, even those that must stay null: with another server,
// environment or default the system would answer for another printer, and no other test would notice.

#include "GarmPC3Editor/GmPlotCfg3.h"
#include "spooler/PrinterQueries.h"
#include "tests/support/PrinterRoomTest.h"
#include "tests/support/TemporaryFolder.h"

#include <set>

using room::Call;

namespace
{
class SpoolerArguments : public PrinterRoomTest
{
protected:
    SpoolerArguments()
    {
        room.add({.name = OD_T("Plotter A"),
                  .driver = OD_T("Acme HP-GL"),
                  .port = OD_T("LPT1:"),
                  .papers = {{9, OD_T("A4")}, {8, OD_T("A3")}},
                  .driverExtra = 4});
    }

    // This holds for every call, whatever its purpose.
    void expectUsualArguments()
    {
        std::set<Call> seen;
        for (const room::CallRecord& call : room.calls())
        {
            seen.insert(call.call);
            EXPECT_EQ(call.where, std::nullopt)
                << "server, environment or output of call " << static_cast<int>(call.call);
            EXPECT_FALSE(call.defaults) << "no defaults are asked for";
            EXPECT_FALSE(call.null);
            EXPECT_EQ(call.owner, nullptr) << "nothing is shown";
            if (call.call == Call::documentProperties)
            {
                EXPECT_EQ(call.device, room::Text(OD_T("Plotter A")));
            }
        }
        m_seen.insert(seen.begin(), seen.end());
        room.forgetCalls();
    }

    std::set<Call> m_seen;
};
} // namespace

TEST_F(SpoolerArguments, areTheSameWhateverIsDone)
{
    const auto cfg = GmPlotCfg3::create(OD_T("Plotter A"));
    ASSERT_TRUE(cfg);
    expectUsualArguments();
    EXPECT_GT(cfg->toDevMode().size(), 0U);
    expectUsualArguments();
    cfg->setToDefault();
    expectUsualArguments();

    // Read again: bound to the printer of that name, and to another one with its driver.
    const TemporaryFolder folder;
    for (const OdChar* name : {OD_T("Plotter A"), OD_T("gone")})
    {
        cfg->m_meta.m_win_device_name = name;
        ASSERT_TRUE(cfg->write(folder.at("A4.pc3")));
        bool modified = false;
        EXPECT_TRUE(GmPlotCfg3::read(folder.at("A4.pc3"), modified));
        expectUsualArguments();
    }
    for (const DWORD level : {1U, 2U, 4U, 5U})
        EXPECT_EQ(installedPrinters(PRINTER_ENUM_LOCAL, level).size(), 1U);
    expectUsualArguments();

    EXPECT_EQ(m_seen, (std::set<Call>{Call::openPrinter, Call::closePrinter, Call::getPrinter, Call::getPrinterDriver,
                                      Call::enumPrinters, Call::documentProperties, Call::deviceCapabilities,
                                      Call::createDC, Call::getDeviceCaps, Call::deleteDC}));
}

TEST_F(SpoolerArguments, theRoomTellsOthers)
{
    WCHAR text[] = {'x', 0};
    PRINTER_DEFAULTSW defaults = {};
    HANDLE printer = nullptr;
    WCHAR name[] = {'P', 'l', 'o', 't', 't', 'e', 'r', ' ', 'A', 0};
    ASSERT_TRUE(::OpenPrinterW(name, &printer, &defaults));
    EXPECT_TRUE(room.calls().back().defaults);
    DWORD needed = 0;
    DWORD returned = 0;
    ::GetPrinterDriverW(printer, text, 3, nullptr, 0, &needed);
    EXPECT_EQ(room.calls().back().where, room::Text(text));
    ::EnumPrintersW(PRINTER_ENUM_LOCAL, text, 2, nullptr, 0, &needed, &returned);
    EXPECT_EQ(room.calls().back().where, room::Text(text));
    ::DocumentPropertiesW(nullptr, printer, text, nullptr, nullptr, 0);
    EXPECT_EQ(room.calls().back().device, room::Text(text));
    ::DeleteDC(::CreateDCW(text, name, text, nullptr));
    const auto calls = room.calls();
    EXPECT_EQ(calls[calls.size() - 2].where, room::Text(text));
    ::ClosePrinter(printer);
}
