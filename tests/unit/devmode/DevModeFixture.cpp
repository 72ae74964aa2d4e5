#include "tests/unit/devmode/DevModeFixture.h"

#include "tests/support/Blocks.h"

#include <algorithm>
#include <cstring>
#include <memory>
#include <ostream>

namespace
{
room::Text text(const OdString& from)
{
    return room::Text(from.view());
}

room::Printer usualPrinter()
{
    room::Printer printer;
    printer.name = OD_T("Plotter A");
    printer.driver = OD_T("Acme HP-GL");
    printer.port = OD_T("FILE:");
    printer.papers = {{9, OD_T("A4")},
                      {8, OD_T("A3")},
                      {257, OD_T("Roll 257")},
                      {0xFFFF, OD_T("Last")},
                      {0x8000, OD_T("Half")},
                      {500, OD_T("User42")},
                      {501, OD_T("A paper name of more than thirty-one characters")}};
    printer.caps = {
        .dpiX = 600, .dpiY = 600, .width = 4960, .height = 7016, .offsetX = 100, .offsetY = 120, .bitsPerPixel = 24};
    return printer;
}
} // namespace

Configuration ownCopy(const Configuration& other)
{
    Configuration copy = other;
    if (other.m_custom)
        copy.m_custom = OdSharedPtr<GmCustomNode>(new GmCustomNode(*other.m_custom));
    if (other.m_media.m_destination)
        copy.m_media.m_destination =
            OdSharedPtr<GmDestinationNode>(new GmDestinationNode(*other.m_media.m_destination));
    if (other.m_res_color_mem.m_lines_overwrite)
        copy.m_res_color_mem.m_lines_overwrite = GmOptionalFlag(new bool(*other.m_res_color_mem.m_lines_overwrite));
    return copy;
}

std::vector<std::string> describe(const Configuration& configuration)
{
    std::vector<std::string> lines;
    const auto append = [&lines](const std::vector<std::string>& more)
    { lines.insert(lines.end(), more.begin(), more.end()); };
    append(blocks::written(configuration.m_meta));
    append(blocks::written(configuration.m_media));
    append(blocks::written(configuration.m_io));
    append(blocks::written(configuration.m_res_color_mem));
    if (configuration.m_custom)
        append(blocks::written(*configuration.m_custom));
    lines.push_back("devModeFields=" + std::to_string(configuration.m_devModeFields));
    lines.push_back("ditherType=" + std::to_string(configuration.m_ditherType));
    lines.push_back("duplex=" + std::to_string(configuration.m_duplex));
    return lines;
}

std::vector<BYTE> Block::bytes() const
{
    DEVMODEW complete = fields;
    complete.dmDriverExtra = static_cast<WORD>(privateBytes.size());
    std::vector<BYTE> all(complete.dmSize);
    std::memcpy(all.data(), &complete, std::min(all.size(), sizeof complete));
    all.insert(all.end(), privateBytes.begin(), privateBytes.end());
    return all;
}

void Block::setFormName(OdStringView name)
{
    std::fill(std::begin(fields.dmFormName), std::end(fields.dmFormName), WCHAR());
    std::copy_n(name.begin(), std::min(name.size(), std::size(fields.dmFormName)), fields.dmFormName);
}

std::ostream& operator<<(std::ostream& out, const Outcome& outcome)
{
    return out << (outcome.succeeded ? "succeeded" : "failed") << (outcome.modified ? ", modified" : ", not modified");
}

DevModeTest::DevModeTest() : m_printer(m_room.add(usualPrinter()))
{
    takeOver(settled, driversBlock());
    m_room.forgetCalls();
}

void DevModeTest::TearDown()
{
    EXPECT_EQ(m_room.openHandles(), 0);
    EXPECT_EQ(m_room.openContexts(), 0);
    EXPECT_EQ(m_room.strayCloses(), 0);
}

Block DevModeTest::driversBlock()
{
    Block block;
    DEVMODEW& dm = block.fields;
    dm.dmSpecVersion = 0x401;
    dm.dmDriverVersion = 5;
    dm.dmSize = sizeof dm;
    dm.dmFields = 0x1EF1F; // as in real drivers: everything but duplex, up to the form name
    dm.dmOrientation = DMORIENT_PORTRAIT;
    dm.dmPaperSize = DMPAPER_A4;
    dm.dmPaperLength = 2970;
    dm.dmPaperWidth = 2100;
    dm.dmScale = 100;
    dm.dmCopies = 1;
    dm.dmDefaultSource = 7;
    dm.dmPrintQuality = 600;
    dm.dmColor = DMCOLOR_MONOCHROME;
    dm.dmDuplex = DMDUP_SIMPLEX;
    dm.dmYResolution = 600;
    dm.dmTTOption = 2;
    dm.dmDitherType = 1;
    block.setFormName(OD_T("A4"));
    block.privateBytes = {1, 2, 3, 4, 5, 6, 7, 0xF8};
    return block;
}

Configuration DevModeTest::storedConfiguration()
{
    Configuration stored;
    stored.m_meta.m_win_device_name = plotter;
    stored.m_meta.m_win_driver_name = driver;
    stored.m_media.m_size.m_name = OD_T("A4");
    stored.m_media.m_destination = OdSharedPtr<GmDestinationNode>(new GmDestinationNode);
    stored.m_custom = OdSharedPtr<GmCustomNode>(new GmCustomNode);
    stored.m_custom->m_numbers = {{OD_T("dmSize"), OD_T("220")},
                                  {OD_T("dmDriverExtra"), OD_T("8")},
                                  {OD_T("dmSpecVersion"), OD_T("1025")},
                                  {OD_T("dmDefaultSource"), OD_T("7")},
                                  {OD_T("dmTTOption"), OD_T("2")}};
    stored.m_custom->m_binaries = {{OD_T("RawPrivateDeviceData"), OD_T("01020304050607F8")}};
    return stored;
}

Outcome DevModeTest::takeOver(Configuration& configuration, const Block& block, const OdChar* printerName, bool insert)
{
    const std::vector<BYTE> source = block.bytes();
    // In memory of exactly its length, so that a sanitizer detects an access one byte too far.
    const auto exact = std::make_unique<BYTE[]>(source.size());
    std::ranges::copy(source, exact.get());
    const DevModeView view(std::span<const BYTE>(exact.get(), source.size()));
    Outcome outcome{false, !insert};
    outcome.succeeded = insert ? configuration.fromDevMode(view, printerName, true, outcome.modified)
                               : configuration.updateFromDevMode(view, printerName, outcome.modified);
    return outcome;
}

room::Printer& DevModeTest::addTwin(const OdString& name)
{
    room::Printer twin = m_printer;
    twin.name = text(name);
    return m_room.add(std::move(twin));
}

void DevModeTest::addPaper(int code, const OdString& name)
{
    m_printer.papers.push_back({code, text(name)});
}

room::CallRecord DevModeTest::lastContext() const
{
    room::CallRecord last;
    for (const room::CallRecord& call : m_room.calls())
        if (call.call == room::Call::createDC)
            last = call;
    return last;
}
