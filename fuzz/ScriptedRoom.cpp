#include "fuzz/ScriptedRoom.h"

#include <gtest/gtest.h>

#include <cstring>
#include <stdexcept>

using namespace room;

namespace
{
// The calls that reach a driver or a port monitor, which may fail or throw.
constexpr Call calls[] = {
    Call::openPrinter,        Call::closePrinter,       Call::getPrinter, Call::getPrinterDriver, Call::enumPrinters,
    Call::documentProperties, Call::deviceCapabilities, Call::createDC,   Call::getDeviceCaps,    Call::deleteDC};
constexpr Call recordCalls[] = {Call::getPrinter, Call::getPrinterDriver, Call::enumPrinters};

// The spare room after a list of records; see SpoolerRecords.
constexpr std::size_t mostRecordOverrun = 1000;
// The spare room after a block of the smallest size, less the longest block made here; see DevModeBlock::toFill.
constexpr std::size_t mostBlockOverrun = 6000;

Text textOf(const OdString& text)
{
    return Text(text.view());
}

Text someText(Input& input)
{
    static const Text often[] = {OD_T("Plotter A"), OD_T("PLOTTER a"), OD_T("Acme HP-GL"), OD_T("acme hp-gl"),
                                 OD_T(""),          OD_T("FILE:"),     OD_T("FILE"),       OD_T("LPT1:,FILE:"),
                                 OD_T("A4"),        OD_T("a3"),        OD_T("User300"),    OD_T("Roll"),
                                 Text(32, u'n'),    Text(64, u'x'),    Text(70, u'X')};
    return input.oneIn(4) ? textOf(input.text(70)) : input.oneOf(often);
}

std::optional<Text> someOptionalText(Input& input)
{
    return input.oneIn(8) ? std::nullopt : std::optional(someText(input));
}

template <class Value>
std::optional<Value> someAnswer(Input& input)
{
    return input.oneIn(4) ? std::optional(static_cast<Value>(input.integer())) : std::nullopt;
}

// Counts around the largest accepted one make lists of 16 MB, which only cost time.
std::optional<int> someCount(Input& input)
{
    const std::optional<int> count = someAnswer<int>(input);
    return count && *count > 1000 && *count <= 65536 ? 1000 : count;
}

void setPapers(Input& input, Printer& printer)
{
    printer.papers.clear();
    for (std::size_t count = input.below(20); count > 0; --count)
        printer.papers.push_back({input.integer(), someText(input)});
    printer.paperNames.reset();
    if (input.oneIn(8))
    {
        printer.paperNames.emplace();
        for (std::size_t count = input.below(20); count > 0; --count)
            printer.paperNames->push_back(someText(input));
    }
}

void setDriverLies(Input& input, DriverLies& lies)
{
    lies = {};
    lies.sizeAnswer = someAnswer<LONG>(input);
    // Half a gigabyte is refused; sizes below that only cost time.
    if (lies.sizeAnswer && *lies.sizeAnswer > 100000 && *lies.sizeAnswer <= 1 << 20)
        lies.sizeAnswer = 100000;
    lies.fillAnswer = someAnswer<LONG>(input);
    lies.mergeAnswer = someAnswer<LONG>(input);
    lies.fillWritesNothing = input.oneIn(8);
    lies.overrun = input.oneIn(4) ? input.upTo(mostBlockOverrun) : 0;
    lies.codeCount = someCount(input);
    lies.nameCount = someCount(input);
    lies.codeFillAnswer = someAnswer<int>(input);
    lies.nameFillAnswer = someAnswer<int>(input);
    lies.codesFilled = input.oneIn(4) ? std::optional(input.below(25)) : std::nullopt;
    lies.namesFilled = input.oneIn(4) ? std::optional(input.below(25)) : std::nullopt;
}

void setBlock(Input& input, Printer& printer)
{
    printer.rawBlock.reset();
    printer.stuckBlock.reset();
    if (input.flag())
        printer.rawBlock = someBlock(input);
    printer.driverExtra = static_cast<WORD>(input.oneIn(4) ? input.upTo(600) : 8);
    printer.hasDevMode = !input.oneIn(8);
    printer.mergeSticks = input.oneIn(4);
    printer.merge = {};
    if (input.oneIn(4))
        printer.merge = [merged = someBlock(input)](std::vector<BYTE>& block, const std::vector<BYTE>&)
        { block = merged; };
}

int someLength(Input& input)
{
    return input.oneIn(4) ? input.number<std::int32_t>() / 16 : static_cast<int>(input.upTo(20000)) - 100;
}

void setDevice(Input& input, Printer& printer)
{
    static constexpr int resolutions[] = {600, 300, 0, -1, 1, 1200, 72};
    static constexpr int depths[] = {32, 24, 1, 0, -1, 31, 33, 64, 8};
    DeviceCaps& caps = printer.caps;
    caps.dpiX = input.oneOf(resolutions);
    caps.dpiY = input.oneOf(resolutions);
    caps.width = someLength(input);
    caps.height = someLength(input);
    caps.offsetX = someLength(input);
    caps.offsetY = someLength(input);
    caps.bitsPerPixel = input.oneIn(4) ? input.number<std::int32_t>() : input.oneOf(depths);
}

void setRecord(Input& input, Printer& printer)
{
    printer.driver = someOptionalText(input);
    printer.port = someOptionalText(input);
    printer.listed = !input.oneIn(8);
    printer.connection = input.oneIn(4);
    printer.namedInRecords = !input.oneIn(8);
    printer.contextIs = input.oneIn(8) ? std::optional<std::intptr_t>(input.flag() ? -1 : 0) : std::nullopt;
    printer.opensAs = input.oneIn(8) ? std::optional<std::intptr_t>(input.flag() ? -1 : 0) : std::nullopt;
}

// One aspect of the printer.
void changePrinter(Input& input, Printer& printer)
{
    switch (input.below(4))
    {
    case 0:
        return setPapers(input, printer);
    case 1:
        return setDriverLies(input, printer.lies);
    case 2:
        return setBlock(input, printer);
    default:
        return setRecord(input, printer);
    }
}

Printer plotterA()
{
    Printer printer;
    printer.name = OD_T("Plotter A");
    printer.driver = OD_T("Acme HP-GL");
    printer.port = OD_T("FILE:");
    printer.papers = {{9, OD_T("A4")}, {8, OD_T("A3")}, {257, OD_T("Roll 257")}, {500, OD_T("User42")}};
    return printer;
}
} // namespace

ScriptedRoom::ScriptedRoom(Input& input)
{
    const std::size_t printers = input.below(4);
    m_printers.push_back(&m_room.add(plotterA()));
    for (std::size_t i = 0; i < printers; ++i)
    {
        Printer printer = plotterA();
        printer.name = i == 0 ? Text(OD_T("Plotter B")) : someText(input) + static_cast<WCHAR>('0' + i);
        m_printers.push_back(&m_room.add(std::move(printer)));
    }
    for (const Call call : calls)
        m_room.onCall(call, {},
                      [this](const CallRecord&)
                      {
                          if (m_throwIn > 0 && --m_throwIn == 0)
                              throw std::runtime_error("driver");
                      });
    for (std::size_t changes = input.below(6); changes > 0; --changes)
        change(input);
}

void ScriptedRoom::change(Input& input)
{
    Printer& printer = *m_printers[input.below(m_printers.size())];
    const std::size_t what = input.below(9);
    if (what == 8)
        return setDevice(input, printer);
    m_honest = false;
    switch (what)
    {
    case 0:
        return lieAboutRecords(input);
    case 1:
        return changeLater(input);
    case 2:
        if (input.flag())
            m_room.allowNetworkPass();
        else
            m_room.writeHandleOnFailedOpen();
        return;
    case 3:
        if (input.flag())
            m_room.remove(printer.name);
        else
            m_room.refuse(input.oneOf(calls), printer.name);
        return;
    default:
        return changePrinter(input, printer);
    }
}

// An answer that changes between two calls.
void ScriptedRoom::changeLater(Input& input)
{
    Printer& printer = *m_printers[input.below(m_printers.size())];
    Printer other = printer;
    changePrinter(input, other);
    if (input.flag())
        other.papers.resize(std::min<std::size_t>(2 * other.papers.size(), 40));
    const std::size_t when = input.below(4);
    m_room.onCall(input.oneOf(calls), printer.name,
                  [&printer, other, when, seen = std::size_t{0}](const CallRecord&) mutable
                  {
                      if (seen++ == when)
                          printer = other;
                  });
}

void ScriptedRoom::lieAboutRecords(Input& input)
{
    RecordLies& lies = m_room.lies(input.oneOf(recordCalls));
    lies.sizeQuerySucceeds = input.oneIn(8);
    lies.neededUnwritten = input.oneIn(8);
    lies.needed = input.oneIn(4) ? std::optional(static_cast<DWORD>(input.integer())) : std::nullopt;
    // Up to 64 MB are accepted; that only costs time.
    if (lies.needed && *lies.needed > 100000 && *lies.needed <= 64U << 20U)
        lies.needed = 100000;
    lies.fillsWhatFits = input.oneIn(4);
    lies.unterminatedTexts = input.oneIn(4);
    lies.oddBlocks = input.oneIn(4);
    lies.pointersOutside = input.oneIn(8);
    lies.overrun = input.oneIn(4) ? input.upTo(mostRecordOverrun) : 0;
    lies.returned = input.oneIn(4) ? std::optional(static_cast<DWORD>(input.integer())) : std::nullopt;
}

void ScriptedRoom::sabotage(Input& input)
{
    const int n = static_cast<int>(input.below(32));
    switch (input.below(4))
    {
    case 0:
        return m_room.failNth(n);
    case 1:
        m_room.setDocumentFailure(input.integer());
        return m_room.failNth(n);
    case 2:
        m_throwIn = n;
        return;
    default:
        return;
    }
}

void ScriptedRoom::endSabotage()
{
    m_room.failNth(0);
    m_throwIn = 0;
}

OdString ScriptedRoom::someName(Input& input) const
{
    if (input.oneIn(8))
        return input.text(40);
    return OdString(m_printers[input.below(m_printers.size())]->name.c_str());
}

void ScriptedRoom::expectLeftAsFound() const
{
    EXPECT_EQ(m_room.openHandles(), 0);
    EXPECT_EQ(m_room.openContexts(), 0);
    EXPECT_EQ(m_room.strayCloses(), 0);
}

std::vector<BYTE> someBlock(Input& input)
{
    DEVMODEW dm = {};
    dm.dmSpecVersion = 0x401;
    dm.dmSize = static_cast<WORD>(input.oneIn(3) ? input.integer() : static_cast<int>(sizeof dm));
    dm.dmDriverExtra = static_cast<WORD>(input.oneIn(3) ? input.integer() : 8);
    dm.dmFields = input.flag() ? input.number<DWORD>() : 0x1FF1F;
    dm.dmOrientation = static_cast<short>(input.oneIn(4) ? input.integer() : 1 + input.flag());
    dm.dmPaperSize = static_cast<short>(input.oneIn(4) ? input.integer() : 8 + input.flag());
    dm.dmPrintQuality = static_cast<short>(input.oneIn(4) ? input.integer() : 600);
    dm.dmYResolution = static_cast<short>(input.oneIn(4) ? input.integer() : 600);
    dm.dmColor = static_cast<short>(1 + input.flag());
    dm.dmScale = 100;
    dm.dmCopies = 1;
    const Text name = someText(input);
    std::copy_n(name.begin(), std::min<std::size_t>(name.size(), CCHFORMNAME), dm.dmFormName);
    dm.dmDitherType = static_cast<DWORD>(input.oneIn(4) ? input.integer() : 1);

    // The claimed length, up to what is worth waiting for; or one byte less, or any.
    const std::size_t claimed = std::min<std::size_t>(std::size_t{dm.dmSize} + dm.dmDriverExtra, 1500);
    std::vector<BYTE> bytes(input.oneIn(8) ? input.upTo(1500) : claimed - (claimed > 0 && input.oneIn(8)));
    if (bytes.empty())
        return bytes;
    std::memcpy(bytes.data(), &dm, std::min(bytes.size(), sizeof dm));
    // And any bytes at any place.
    for (std::size_t changes = input.oneIn(2) ? input.below(16) : 0; changes > 0; --changes)
        bytes[input.upTo(bytes.size() - 1)] = input.number<BYTE>();
    return bytes;
}
