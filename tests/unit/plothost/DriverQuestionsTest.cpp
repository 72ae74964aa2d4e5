#include "plothost/DriverQuestions.h"

#include "spooler/Handles.h"
#include "spooler/PrinterQueries.h"

#include <gtest/gtest.h>

#include <stdexcept>

#include "tests/support/PrinterRoomTest.h"

using namespace plothost;

namespace
{
const OdString name = OD_T("Plotter A");

class DriverQuestions : public PrinterRoomTest
{
protected:
    room::Printer& addPlotter(std::basic_string<WCHAR> called = OD_T("Plotter A"))
    {
        room::Printer printer;
        printer.name = std::move(called);
        printer.driver = OD_T("D");
        printer.port = OD_T("LPT1:");
        printer.papers = {{9, OD_T("A4")}, {300, OD_T("Roll")}, {28, OD_T("")}, {8, OD_T("A3")}};
        printer.tune = [](DEVMODEW& devMode)
        {
            devMode.dmFields |= DM_ORIENTATION;
            devMode.dmOrientation = DMORIENT_PORTRAIT;
        };
        printer.mergeSticks = true;
        return room.add(printer);
    }

    // As an editor does: it passes its own device mode through the driver.
    static void mergeLandscape(const OdString& printerName)
    {
        const PrinterHandle printer = openPrinter(printerName.c_str());
        DevModeBlock block = ::defaultDevMode(printer.get(), printerName.c_str());
        block.get()->dmOrientation = DMORIENT_LANDSCAPE;
        ASSERT_EQ(mergeDevMode(nullptr, printer.get(), printerName.c_str(), block.view().bytes(),
                               DM_IN_BUFFER | DM_OUT_BUFFER)
                      .result,
                  IDOK);
    }

    static short defaultOrientation(const OdString& printerName)
    {
        const std::vector<BYTE> bytes = driverDefaults(printerName);
        const DevModeView view(bytes);
        return view ? view.fields().dmOrientation : short{-1};
    }
};
} // namespace

TEST_F(DriverQuestions, papersHaveNamesAndCodes)
{
    addPlotter();
    EXPECT_EQ(driverPapers(name), (std::vector<DriverPaper>{{OD_T("A4"), 9}, {OD_T("Roll"), 300}, {OD_T("A3"), 8}}))
        << "one without a name is left out, and the codes stay with their papers";
}

TEST_F(DriverQuestions, aNameThatFillsItsSlotIsWhole)
{
    const std::basic_string<WCHAR> longName(70, 'n');
    addPlotter().papers = {{9, longName}, {8, OD_T("A3")}};
    EXPECT_EQ(driverPapers(name), (std::vector<DriverPaper>{{OdString(longName.substr(0, 64)), 9}, {OD_T("A3"), 8}}));
}

TEST_F(DriverQuestions, countsThatLieAreNotBelieved)
{
    room::Printer& printer = addPlotter();
    printer.lies.nameCount = -1;
    EXPECT_TRUE(driverPapers(name).empty());
    printer.lies.nameCount = 2'000'000'000;
    EXPECT_TRUE(driverPapers(name).empty());
    printer.lies.nameCount = {};
    printer.lies.nameFillAnswer = -1;
    EXPECT_TRUE(driverPapers(name).empty());
    printer.lies.nameFillAnswer = 1'000'000;
    EXPECT_EQ(driverPapers(name).size(), 3U);
    printer.lies.nameFillAnswer = {};
    printer.lies.codeCount = 1;
    EXPECT_EQ(driverPapers(name), (std::vector<DriverPaper>{{OD_T("A4"), 9}, {OD_T("Roll"), 0}, {OD_T("A3"), 0}}))
        << "names without a code stay";
}

TEST_F(DriverQuestions, aPrinterThatIsNotThereHasNothing)
{
    EXPECT_TRUE(driverPapers(name).empty());
    EXPECT_TRUE(driverDefaults(name).empty());
    resetDriverDefaults();
}

TEST_F(DriverQuestions, whateverFailsOrThrowsThereIsAnAnswer)
{
    addPlotter();
    const auto ask = []
    {
        static_cast<void>(driverPapers(name));
        static_cast<void>(driverDefaults(name));
        resetDriverDefaults();
        return true;
    };
    const auto check = [](bool answered, bool) { EXPECT_TRUE(answered); };
    EXPECT_GT(failEachCall(room, ask, check), 5);
    EXPECT_GT(throwFromEachCall(room, ask, check), 5);
}

TEST_F(DriverQuestions, afterAResetTheDriversOwnDefaultsHoldAgain)
{
    addPlotter();
    addPlotter(OD_T("Plotter B"));
    // The spooler's own blocks do not change when a device mode sticks to the driver.
    mergeLandscape(name);
    mergeLandscape(OD_T("Plotter B"));
    ASSERT_EQ(defaultOrientation(name), DMORIENT_LANDSCAPE);
    resetDriverDefaults();
    EXPECT_EQ(defaultOrientation(name), DMORIENT_PORTRAIT);
    EXPECT_EQ(defaultOrientation(OD_T("Plotter B")), DMORIENT_PORTRAIT);
}

TEST_F(DriverQuestions, aPrinterThatCannotBeResetDoesNotKeepTheOthersFromIt)
{
    addPlotter().hasDevMode = false;
    addPlotter(OD_T("Plotter B"));
    addPlotter(OD_T("Plotter C"));
    mergeLandscape(OD_T("Plotter C"));
    room.onCall(room::Call::documentProperties, OD_T("Plotter B"),
                [](const room::CallRecord&) { throw std::runtime_error("driver crash"); });
    resetDriverDefaults();
    EXPECT_EQ(defaultOrientation(OD_T("Plotter C")), DMORIENT_PORTRAIT);
}

TEST_F(DriverQuestions, connectionsAreLeftAlone)
{
    room::Printer& printer = addPlotter();
    printer.connection = true;
    room.allowNetworkPass();
    resetDriverDefaults();
    EXPECT_EQ(room.count(room::Call::openPrinter), 0);
}

TEST_F(DriverQuestions, toResetTheDriversOnlyTheNamesOfThePrintersAreListed)
{
    addPlotter();
    resetDriverDefaults();
    int listings = 0;
    for (const room::CallRecord& call : room.calls())
        if (call.call == room::Call::enumPrinters)
        {
            // Level 2 would query each printer for everything; with hundreds of printers that takes noticeable time.
            EXPECT_EQ(call.level, 4U);
            ++listings;
        }
    EXPECT_EQ(listings, 2) << "one for the size, one to fill";
}
