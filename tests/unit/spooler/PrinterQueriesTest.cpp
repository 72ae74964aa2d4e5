#include "spooler/PrinterQueries.h"

#include "kernel/OdText.h"
#include "spooler/Handles.h"
#include "tests/support/PrinterRoomTest.h"

#include <cstring>
#include <limits>

using room::Call;

namespace
{
class PrinterQueries : public PrinterRoomTest
{
protected:
    room::Printer& printer = room.add({.name = OD_T("Plotter A"),
                                       .driver = OD_T("Acme HP-GL"),
                                       .port = OD_T("FILE:"),
                                       .papers = {{9, OD_T("A4")}, {8, OD_T("A3")}},
                                       .driverExtra = 8});
    PrinterHandle handle = openPrinter(OD_T("Plotter A"));

    void TearDown() override
    {
        handle.reset();
        PrinterRoomTest::TearDown();
    }

    DevModeBlock askDefault() const { return defaultDevMode(handle.get(), OD_T("Plotter A")); }

    DevModeMerge merge(std::span<const BYTE> bytes, DWORD mode = DM_IN_BUFFER | DM_OUT_BUFFER) const
    {
        return mergeDevMode(nullptr, handle.get(), OD_T("Plotter A"), bytes, mode);
    }
};

// A block with a full public part and this many private bytes.
std::vector<BYTE> blockWith(std::size_t extra, short copies)
{
    DEVMODEW dm = {};
    dm.dmSize = sizeof dm;
    dm.dmDriverExtra = static_cast<WORD>(extra);
    dm.dmFields = DM_COPIES;
    dm.dmCopies = copies;
    std::vector<BYTE> bytes(sizeof dm + extra, BYTE{0x5A});
    std::memcpy(bytes.data(), &dm, sizeof dm);
    return bytes;
}
} // namespace

TEST_F(PrinterQueries, portsAndDriverAreReadAtTheirLevels)
{
    EXPECT_EQ(portsOfPrinter(handle.get()), WideText(OD_T("FILE:")));
    EXPECT_EQ(driverOfPrinter(handle.get()), WideText(OD_T("Acme HP-GL")));
    for (const room::CallRecord& call : room.calls())
    {
        if (call.call == Call::openPrinter)
            continue;
        EXPECT_EQ(call.detail, call.call == Call::getPrinter ? 5U : 3U);
    }
}

TEST_F(PrinterQueries, nullTextsAndRemovedPrintersReturnNothing)
{
    printer.port = std::nullopt;
    printer.driver = std::nullopt;
    EXPECT_FALSE(portsOfPrinter(handle.get()));
    EXPECT_FALSE(driverOfPrinter(handle.get()));
    room.remove(OD_T("Plotter A"));
    EXPECT_FALSE(portsOfPrinter(handle.get()));
    EXPECT_FALSE(driverOfPrinter(handle.get()));
}

TEST_F(PrinterQueries, theDefaultBlockIsFilledByTheDriver)
{
    const DevModeBlock block = askDefault();
    const DevModeView view = block.view();
    ASSERT_TRUE(view);
    EXPECT_EQ(view.size(), 220U);
    EXPECT_EQ(view.driverExtra(), 8U);
    EXPECT_EQ(view.fields().dmPaperSize, 9);
    const auto calls = room.calls();
    ASSERT_EQ(room.count(Call::documentProperties), 2);
    EXPECT_EQ(calls[1].detail, 0U);
    EXPECT_EQ(calls[2].detail, 2U); // output only
}

TEST_F(PrinterQueries, anImpossibleSizeIsNotFilled)
{
    int queries = 0;
    for (const LONG size : {0, -1, -2147483647 - 1, 0x7FFFFFFF, 1024 * 1024 + 1})
    {
        printer.lies.sizeAnswer = size;
        EXPECT_TRUE(askDefault().isNull()) << size;
        EXPECT_EQ(room.count(Call::documentProperties), ++queries) << size;
    }
    printer.lies.sizeAnswer = 1024 * 1024; // the largest that is accepted
    EXPECT_TRUE(askDefault().view());
}

TEST_F(PrinterQueries, aFillThatReturnsZeroGivesNoBlock)
{
    printer.lies.fillAnswer = 0;
    EXPECT_TRUE(askDefault().isNull());
}

TEST_F(PrinterQueries, aFillThatReturnsANegativeNumberSucceeds)
{
    printer.lies.fillAnswer = -1;
    const DevModeBlock block = askDefault();
    ASSERT_FALSE(block.isNull());
    EXPECT_EQ(block.view().fields().dmPaperSize, 9);
}

TEST_F(PrinterQueries, aFillThatWritesNothingHasNoView)
{
    printer.lies = {.fillAnswer = -1, .fillWritesNothing = true};
    const DevModeBlock block = askDefault();
    ASSERT_FALSE(block.isNull());
    EXPECT_FALSE(block.view());
}

TEST_F(PrinterQueries, aDriverMayWritePastItsSize)
{
    printer.lies.overrun = 4096;
    EXPECT_TRUE(askDefault().view());
    printer.lies = {.sizeAnswer = 1};
    EXPECT_TRUE(askDefault().view());
    // Up to the longest possible block, both of whose sizes are 16-bit.
    printer.lies.overrun = 2 * 65535 - 228;
    EXPECT_TRUE(askDefault().view());
    EXPECT_TRUE(merge(blockWith(8, 2)).block.view());
}

TEST_F(PrinterQueries, aBlockWithImpossibleSizesHasNoView)
{
    printer.tune = [](DEVMODEW& dm) { dm.dmDriverExtra = 65535; };
    const DevModeBlock longer = askDefault();
    EXPECT_FALSE(longer.isNull());
    EXPECT_FALSE(longer.view());
    printer.tune = [](DEVMODEW& dm) { dm.dmSize = 75; };
    EXPECT_FALSE(askDefault().view());
}

TEST_F(PrinterQueries, aMergePassesTheBlockAndTheMode)
{
    const HWND owner = room.newWindow();
    const std::vector<BYTE> bytes = blockWith(8, 3);
    const DevModeMerge merged = mergeDevMode(owner, handle.get(), OD_T("Plotter A"), bytes, 14);
    EXPECT_EQ(merged.result, IDOK);
    EXPECT_EQ(merged.block.view().fields().dmCopies, 3);
    EXPECT_EQ(merged.block.view().fields().dmPaperSize, 9); // set by the driver
    const room::CallRecord call = room.calls().back();
    EXPECT_EQ(call.detail, 14U);
    EXPECT_EQ(call.owner, owner);
    EXPECT_EQ(call.devMode, bytes);
}

TEST_F(PrinterQueries, aMergeReturnsTheResultOfTheDriver)
{
    for (const LONG result : {IDCANCEL, 0, -1})
    {
        printer.lies.mergeAnswer = result;
        EXPECT_EQ(merge(blockWith(8, 3)).result, result);
    }
}

TEST_F(PrinterQueries, aMergeHasRoomForLargerBlocks)
{
    printer.driverExtra = 60000;
    EXPECT_EQ(merge(blockWith(0, 2)).block.view().driverExtra(), 60000U);
    printer.driverExtra = 8;
    printer.lies = {.sizeAnswer = 1024 * 1024, .overrun = 1024 * 1024 - 228};
    const DevModeMerge merged = merge(blockWith(8, 2));
    EXPECT_EQ(merged.result, IDOK);
    EXPECT_TRUE(merged.block.view());
}

// A size that no block has is ignored, and nothing of that size is allocated.
TEST_F(PrinterQueries, aMergeNeedsNoSizeFromTheDriver)
{
    for (const LONG size : {LONG{-1}, std::numeric_limits<LONG>::max()})
        for (const std::size_t extra : {5000U, 60000U})
        {
            printer.lies.sizeAnswer = size;
            const std::vector<BYTE> bytes = blockWith(extra, 2);
            EXPECT_EQ(merge(bytes).result, IDOK) << size;
            EXPECT_EQ(room.calls().back().devMode, bytes) << size;
        }
}

TEST_F(PrinterQueries, anInvalidBlockIsNotPassedOn)
{
    std::vector<BYTE> lying = blockWith(8, 3);
    lying.pop_back();
    EXPECT_TRUE(merge(lying).block.isNull());
    EXPECT_EQ(merge({}).result, -1);
    EXPECT_EQ(room.count(Call::documentProperties), 0);
}

TEST_F(PrinterQueries, printersAreListedInSystemOrder)
{
    room.add({.name = OD_T("B"), .driver = std::nullopt, .port = OD_T("LPT1:")});
    const std::vector<InstalledPrinter> found = installedPrinters(PRINTER_ENUM_LOCAL, 2);
    ASSERT_EQ(found.size(), 2U);
    EXPECT_EQ(found[0].name, WideText(OD_T("Plotter A")));
    EXPECT_EQ(found[0].driver, WideText(OD_T("Acme HP-GL")));
    EXPECT_EQ(found[1].name, WideText(OD_T("B")));
    EXPECT_FALSE(found[1].driver);
    EXPECT_EQ(found[1].port, WideText(OD_T("LPT1:")));
}

TEST_F(PrinterQueries, everyLevelListsAllPrinters)
{
    room.add({.name = OD_T("B"), .port = OD_T("LPT1:")});
    room.add({.name = OD_T("C"), .port = OD_T("LPT2:")});
    for (const DWORD level : {1U, 2U, 4U, 5U})
    {
        const std::vector<InstalledPrinter> found = installedPrinters(PRINTER_ENUM_LOCAL, level);
        ASSERT_EQ(found.size(), 3U) << level;
        EXPECT_EQ(found[0].name, WideText(OD_T("Plotter A"))) << level;
        EXPECT_EQ(found[0].driver.has_value(), level == 2) << level;
        EXPECT_EQ(found[0].port.has_value(), level == 2 || level == 5) << level;
        EXPECT_EQ(found[1].name, WideText(OD_T("B"))) << level;
        EXPECT_EQ(found[2].name, WideText(OD_T("C"))) << level;
    }
    EXPECT_TRUE(installedPrinters(PRINTER_ENUM_LOCAL, 3).empty());
}

TEST_F(PrinterQueries, aRefusedOrEmptyPassFindsNoPrinter)
{
    EXPECT_TRUE(installedPrinters(0x64, 2).empty());
    EXPECT_EQ(room.count(Call::enumPrinters), 1); // a needed size of 0 is not filled
    room.allowNetworkPass();
    EXPECT_TRUE(installedPrinters(0x64, 2).empty());
    room.lies(Call::enumPrinters).sizeQuerySucceeds = true;
    EXPECT_TRUE(installedPrinters(PRINTER_ENUM_LOCAL, 2).empty());
}

TEST_F(PrinterQueries, aWrongCountReadsNothingPastTheBuffer)
{
    room.lies(Call::enumPrinters).returned = 0xFFFFFFFF;
    const std::vector<InstalledPrinter> found = installedPrinters(PRINTER_ENUM_LOCAL, 2);
    ASSERT_FALSE(found.empty());
    EXPECT_EQ(found[0].name, WideText(OD_T("Plotter A")));
    for (std::size_t i = 1; i < found.size(); ++i)
        EXPECT_NE(found[i].name, WideText(OD_T("Plotter A")));

    room.lies(Call::enumPrinters).returned = 0;
    EXPECT_TRUE(installedPrinters(PRINTER_ENUM_LOCAL, 2).empty());
}
