#include "kernel/OdText.h"
#include "spooler/DevModeView.h"
#include "spooler/Handles.h"
#include "spooler/SpoolerRecords.h"
#include "tests/support/PrinterRoomTest.h"

#include <algorithm>
#include <array>
#include <cstring>

// The driver of the room: device modes, papers and device contexts, correct and scripted ones.

using room::Call;

namespace
{
OdChar printerName[] = OD_T("P");

class RoomDriver : public PrinterRoomTest
{
protected:
    // Adds the printer P and opens it.
    room::Printer& addPrinter(room::Printer printer)
    {
        printer.name = printerName;
        room::Printer& added = room.add(std::move(printer));
        m_handle = openPrinter(printerName);
        return added;
    }

    void TearDown() override
    {
        m_handle.reset();
        PrinterRoomTest::TearDown();
    }

    LONG document(std::vector<BYTE>* out, std::vector<BYTE>* in, DWORD mode) const
    {
        const auto block = [](std::vector<BYTE>* bytes)
        { return bytes ? reinterpret_cast<DEVMODEW*>(bytes->data()) : nullptr; };
        return ::DocumentPropertiesW(nullptr, m_handle.get(), printerName, block(out), block(in), mode);
    }

    static int ask(WORD capability, void* output, const DEVMODEW* devMode = nullptr)
    {
        return ::DeviceCapabilitiesW(printerName, OD_T("FILE:"), capability, static_cast<OdChar*>(output), devMode);
    }

    PrinterHandle m_handle;
};

DEVMODEW fieldsOf(const std::vector<BYTE>& bytes)
{
    DEVMODEW dm;
    std::memcpy(&dm, bytes.data(), sizeof dm);
    return dm;
}

std::vector<BYTE> bytesOf(const DEVMODEW& dm)
{
    const auto* first = reinterpret_cast<const BYTE*>(&dm);
    return {first, first + sizeof dm};
}
} // namespace

TEST_F(RoomDriver, theDefaultBlockHasPaperAndPrivateBytes)
{
    addPrinter({.papers = {{8, OD_T("A3")}, {9, OD_T("A4")}}, .driverExtra = 3});
    ASSERT_EQ(document(nullptr, nullptr, 0), 223);
    std::vector<BYTE> block(223);
    EXPECT_EQ(document(&block, nullptr, DM_OUT_BUFFER), IDOK);
    const DEVMODEW dm = fieldsOf(block);
    EXPECT_EQ(dm.dmSize, 220);
    EXPECT_EQ(dm.dmDriverExtra, 3);
    EXPECT_EQ(dm.dmFields, 0x1EF1FU);
    EXPECT_EQ(dm.dmPaperSize, 8);
    EXPECT_EQ(odBoundedView(dm.dmFormName, 32), OD_T("A3"));
    EXPECT_EQ(std::vector<BYTE>(block.begin() + 220, block.end()), (std::vector<BYTE>{1, 2, 3}));
}

TEST_F(RoomDriver, aLongFormNameHasNoTerminator)
{
    addPrinter({.papers = {{300, room::Text(40, 'x')}}});
    std::vector<BYTE> block(228);
    document(&block, nullptr, DM_OUT_BUFFER);
    EXPECT_EQ(odBoundedView(fieldsOf(block).dmFormName, 32).size(), 32U);
}

TEST_F(RoomDriver, resultsAndOverrunsAreAsScripted)
{
    room::Printer& printer = addPrinter({.rawBlock = std::vector<BYTE>(10, 0xAB)});
    printer.lies = {.sizeAnswer = -1, .fillAnswer = 0, .overrun = 2};
    EXPECT_EQ(document(nullptr, nullptr, 0), -1);
    std::vector<BYTE> block(16);
    EXPECT_EQ(document(&block, nullptr, DM_OUT_BUFFER), 0);
    EXPECT_EQ(block[9], 0xAB);
    EXPECT_NE(block[11], 0);
    EXPECT_EQ(block[12], 0);

    printer.lies = {.fillAnswer = -5, .fillWritesNothing = true};
    std::ranges::fill(block, BYTE{0});
    EXPECT_EQ(document(&block, nullptr, DM_OUT_BUFFER), -5);
    EXPECT_EQ(block[0], 0);
}

TEST_F(RoomDriver, aMergeAppliesFlaggedFieldsAndListedPapers)
{
    addPrinter({.papers = {{8, OD_T("A3")}, {300, OD_T("Roll")}}, .driverExtra = 2});
    DEVMODEW in = {};
    in.dmSize = sizeof in;
    in.dmFields = DM_ORIENTATION | DM_PAPERSIZE | DM_MEDIATYPE;
    in.dmOrientation = DMORIENT_LANDSCAPE;
    in.dmPaperSize = 300;
    in.dmCopies = 7; // not flagged
    in.dmMediaType = 5;
    std::vector<BYTE> input = bytesOf(in);
    std::vector<BYTE> block(222);
    EXPECT_EQ(document(&block, &input, DM_IN_BUFFER | DM_OUT_BUFFER), IDOK);
    DEVMODEW out = fieldsOf(block);
    EXPECT_EQ(out.dmOrientation, DMORIENT_LANDSCAPE);
    EXPECT_EQ(out.dmPaperSize, 300);
    EXPECT_EQ(odBoundedView(out.dmFormName, 32), OD_T("Roll"));
    EXPECT_EQ(out.dmCopies, 1);
    EXPECT_EQ(out.dmMediaType, 0U);
    EXPECT_EQ(room.calls().back().devMode, input);

    in.dmPaperSize = 4711;
    input = bytesOf(in);
    document(&block, &input, DM_IN_BUFFER | DM_OUT_BUFFER);
    EXPECT_EQ(fieldsOf(block).dmPaperSize, 8);
}

TEST_F(RoomDriver, aMergeCanPersistAndCanBeReplaced)
{
    room::Printer& printer = addPrinter({.papers = {{8, OD_T("A3")}}, .mergeSticks = true});
    DEVMODEW in = {};
    in.dmSize = sizeof in;
    in.dmFields = DM_COPIES;
    in.dmCopies = 3;
    std::vector<BYTE> input = bytesOf(in);
    std::vector<BYTE> block(228);
    document(&block, &input, DM_IN_BUFFER | DM_OUT_BUFFER);
    document(&block, nullptr, DM_OUT_BUFFER);
    EXPECT_EQ(fieldsOf(block).dmCopies, 3);
    const SpoolerRecords kept = queryInfo([this](BYTE* buffer, DWORD size, DWORD* needed)
                                          { return ::GetPrinterW(m_handle.get(), 2, buffer, size, needed); });
    const auto info = kept.at<PRINTER_INFO_2W>(0);
    ASSERT_TRUE(info.has_value());
    EXPECT_EQ(DevModeView(kept.bytesAt(info->pDevMode)).fields().dmCopies, 1)
        << "the block of the spooler is unchanged";

    printer.merge = [](std::vector<BYTE>& merged, const std::vector<BYTE>&) { merged.back() = 99; };
    document(&block, &input, DM_IN_BUFFER | DM_OUT_BUFFER);
    EXPECT_EQ(block[227], 99);
}

TEST_F(RoomDriver, papersAreListedByCodeAndName)
{
    addPrinter({.papers = {{9, OD_T("A4")}, {65535, room::Text(70, 'n')}}});
    EXPECT_EQ(ask(DC_PAPERS, nullptr), 2);
    EXPECT_EQ(ask(DC_PAPERNAMES, nullptr), 2);
    std::array<WORD, 3> codes = {7, 7, 7};
    std::array<OdChar, 3 * 64> names = {};
    EXPECT_EQ(ask(DC_PAPERS, codes.data()), 2);
    EXPECT_EQ(codes, (std::array<WORD, 3>{9, 65535, 7}));
    EXPECT_EQ(ask(DC_PAPERNAMES, names.data()), 2);
    EXPECT_EQ(odBoundedView(names.data(), 64), OD_T("A4"));
    EXPECT_EQ(odBoundedView(names.data() + 64, 128).size(), 64U); // no terminator, the next slot is empty
}

TEST_F(RoomDriver, countsAndFillsAreAsScripted)
{
    room::Printer& printer = addPrinter({.papers = {{9, OD_T("A4")}, {8, OD_T("A3")}},
                                         .paperNames = std::vector<room::Text>{OD_T("x"), OD_T("y"), OD_T("z")}});
    printer.lies = {
        .codeCount = -1, .nameCount = 9, .codeFillAnswer = -1, .nameFillAnswer = 1, .codesFilled = 1, .namesFilled = 2};
    EXPECT_EQ(ask(DC_PAPERS, nullptr), -1);
    EXPECT_EQ(ask(DC_PAPERNAMES, nullptr), 9);
    std::array<WORD, 2> codes = {7, 7};
    EXPECT_EQ(ask(DC_PAPERS, codes.data()), -1);
    EXPECT_EQ(codes, (std::array<WORD, 2>{9, 7}));
    std::array<OdChar, 3 * 64> names = {};
    EXPECT_EQ(ask(DC_PAPERNAMES, names.data()), 1);
    EXPECT_EQ(names[64], 'y');
    EXPECT_EQ(names[128], 0);
}

TEST_F(RoomDriver, argumentsOfTheDriverAreRecorded)
{
    addPrinter({});
    DEVMODEW dm = {};
    dm.dmSize = 100;
    ask(DC_PAPERS, nullptr, &dm);
    EXPECT_EQ(room.calls().back().devMode.size(), 100U);
    EXPECT_EQ(room.calls().back().text, OD_T("FILE:"));
    ::DeviceCapabilitiesW(printerName, nullptr, DC_PAPERS, nullptr, nullptr);
    EXPECT_TRUE(room.calls().back().null);
    EXPECT_TRUE(room.calls().back().devMode.empty());
}

TEST_F(RoomDriver, aDeviceContextKeepsItsInitialCapabilities)
{
    room::Printer& printer = addPrinter(
        {.caps = {
             .dpiX = 300, .dpiY = 0, .width = 1000, .height = 2000, .offsetX = 10, .offsetY = 20, .bitsPerPixel = 33}});
    const DeviceContext context = createDeviceContext(OD_T("Acme"), printerName, nullptr);
    printer.caps.dpiX = 999;
    ASSERT_TRUE(context);
    EXPECT_EQ(room.openContexts(), 1);
    EXPECT_EQ(room.calls().back().text, OD_T("Acme"));
    EXPECT_EQ(::GetDeviceCaps(context.get(), LOGPIXELSX), 300);
    EXPECT_EQ(::GetDeviceCaps(context.get(), LOGPIXELSY), 0);
    EXPECT_EQ(::GetDeviceCaps(context.get(), PHYSICALWIDTH), 1000);
    EXPECT_EQ(::GetDeviceCaps(context.get(), PHYSICALHEIGHT), 2000);
    EXPECT_EQ(::GetDeviceCaps(context.get(), PHYSICALOFFSETX), 10);
    EXPECT_EQ(::GetDeviceCaps(context.get(), PHYSICALOFFSETY), 20);
    EXPECT_EQ(::GetDeviceCaps(context.get(), BITSPIXEL), 33);
}

TEST_F(RoomDriver, anUnknownOrRefusedPrinterHasNoContext)
{
    addPrinter({});
    EXPECT_EQ(::CreateDCW(OD_T("Acme"), OD_T("unknown"), nullptr, nullptr), nullptr);
    room.refuse(Call::createDC);
    EXPECT_EQ(::CreateDCW(OD_T("Acme"), printerName, nullptr, nullptr), nullptr);
}
