#include "GarmPC3Editor/Printing/GmPrinterInfo.h"
#include "tests/support/PrinterRoomTest.h"

using room::Call;

namespace
{
class PrinterInfo : public PrinterRoomTest
{
protected:
    room::Printer& printer = room.add({.name = OD_T("Plotter A"),
                                       .driver = OD_T("Acme HP-GL"),
                                       .port = OD_T("LPT1:,FILE:"),
                                       .papers = {{9, OD_T("A4")}, {8, OD_T("A3")}}});
};
} // namespace

TEST_F(PrinterInfo, keepsThePrinterOpenForItsLife)
{
    {
        const GmPrinterInfo info(OD_T("Plotter A"));
        EXPECT_TRUE(info.isOpen());
        EXPECT_NE(info.handle(), nullptr);
        EXPECT_EQ(info.printerName(), OD_T("Plotter A"));
        EXPECT_EQ(room.openHandles(), 1);
    }
    EXPECT_EQ(room.openHandles(), 0);
}

// A port monitor may still write to earlier output while the printer is closed.
TEST_F(PrinterInfo, theListsOutliveTheHandle)
{
    std::optional<GmPrinterInfo> info(std::in_place, OD_T("Plotter A"));
    const OdStringView name = info->paperName(1);
    int closed = 0;
    room.onCall(Call::closePrinter, OD_T("Plotter A"),
                [&](const room::CallRecord&)
                {
                    EXPECT_EQ(OdString(name), OD_T("A3"));
                    ++closed;
                });
    info.reset();
    EXPECT_EQ(closed, 1);
}

TEST_F(PrinterInfo, aPrinterThatCannotBeOpenedAnswersNothing)
{
    GmPrinterInfo info(OD_T("nobody"));
    EXPECT_FALSE(info.isOpen());
    EXPECT_EQ(info.handle(), nullptr);
    OdString out(OD_T("poison"));
    EXPECT_FALSE(info.getPorts(out));
    EXPECT_EQ(out, OD_T(""));
    out = OD_T("poison");
    EXPECT_FALSE(info.driverName(out));
    EXPECT_EQ(out, OD_T(""));
    EXPECT_TRUE(info.defaultDevMode().isNull());
    EXPECT_EQ(info.paperCount(), 0);
    EXPECT_EQ(info.paperIndexByName(OD_T("")), -1);
    EXPECT_EQ(info.paperIndexById(0), -1);
    EXPECT_EQ(info.paperName(0), OD_T(""));
    EXPECT_EQ(info.paperId(0), 0);
    EXPECT_EQ(room.count(Call::getPrinter) + room.count(Call::getPrinterDriver), 0) << "there is nobody to ask";
    EXPECT_EQ(room.count(Call::documentProperties), 0);
}

TEST_F(PrinterInfo, anEmptyNameIsNoPrinterAndNotThePrintServer)
{
    const GmPrinterInfo info(OD_T(""));
    EXPECT_FALSE(info.isOpen());
    EXPECT_FALSE(room.calls().at(0).null);
}

TEST_F(PrinterInfo, thePortListComesUnsplit)
{
    OdString ports(OD_T("poison"));
    EXPECT_TRUE(GmPrinterInfo(OD_T("Plotter A")).getPorts(ports));
    EXPECT_EQ(ports, OD_T("LPT1:,FILE:"));
}

TEST_F(PrinterInfo, portsThatAreEmptyOrNullOrNotToldAreAFailureWithAnEmptyResult)
{
    const GmPrinterInfo info(OD_T("Plotter A"));
    const auto fails = [&]
    {
        OdString ports(OD_T("poison"));
        return !info.getPorts(ports) && ports.isEmpty();
    };
    printer.port = room::Text();
    EXPECT_TRUE(fails());
    printer.port = std::nullopt;
    EXPECT_TRUE(fails());

    printer.port = OD_T("LPT1:");
    room::RecordLies& lies = room.lies(Call::getPrinter);
    lies = {.sizeQuerySucceeds = true};
    EXPECT_TRUE(fails());
    lies = {.neededUnwritten = true};
    EXPECT_TRUE(fails());
    lies = {.needed = 33}; // the fill then fails
    EXPECT_TRUE(fails());
    lies = {};
    EXPECT_FALSE(fails());
}

TEST_F(PrinterInfo, aPortTextWithoutTerminatorEndsWithItsRecord)
{
    room.lies(Call::getPrinter).unterminatedTexts = true;
    OdString ports;
    EXPECT_TRUE(GmPrinterInfo(OD_T("Plotter A")).getPorts(ports));
    EXPECT_EQ(ports, OD_T("LPT1:,FILE:"));
}

TEST_F(PrinterInfo, theDriverIsNamedForTheDefaultEnvironment)
{
    OdString name;
    EXPECT_TRUE(GmPrinterInfo(OD_T("Plotter A")).driverName(name));
    EXPECT_EQ(name, OD_T("Acme HP-GL"));
    EXPECT_EQ(room.calls().at(1).call, Call::getPrinterDriver);
    EXPECT_EQ(room.calls().at(1).detail, 3U);
}

TEST_F(PrinterInfo, aDriverThatIsNotNamedLeavesTheOutputEmpty)
{
    const GmPrinterInfo info(OD_T("Plotter A"));
    const auto fails = [&]
    {
        OdString name(OD_T("poison"));
        return !info.driverName(name) && name.isEmpty();
    };
    printer.driver = std::nullopt;
    EXPECT_TRUE(fails());
    printer.driver = room::Text();
    EXPECT_TRUE(fails());
    printer.driver = OD_T("D");
    room.lies(Call::getPrinterDriver) = {.sizeQuerySucceeds = true};
    EXPECT_TRUE(fails());
    room.lies(Call::getPrinterDriver) = {};
    EXPECT_FALSE(fails());
    room.remove(OD_T("Plotter A")); // the printer is deleted, the handle still open
    EXPECT_TRUE(fails());
}

TEST_F(PrinterInfo, theDefaultDeviceModeIsTheDrivers)
{
    const GmPrinterInfo info(OD_T("Plotter A"));
    const DevModeBlock block = info.defaultDevMode();
    ASSERT_TRUE(block.view());
    EXPECT_EQ(block.view().fields().dmPaperSize, 9);

    printer.lies.fillAnswer = -1; // counts as success
    EXPECT_TRUE(info.defaultDevMode().view());
    printer.lies.fillAnswer = 0; // the only failure
    EXPECT_TRUE(info.defaultDevMode().isNull());
}

TEST_F(PrinterInfo, whatADriverThrowsGoesThroughAndLeavesNothingOpen)
{
    room.onCall(Call::deviceCapabilities, OD_T("Plotter A"),
                [](const room::CallRecord&) { throw std::runtime_error("driver"); });
    EXPECT_THROW(GmPrinterInfo(OD_T("Plotter A")).paperCount(), std::runtime_error);
    EXPECT_EQ(room.openHandles(), 0);
}
