#include "tests/support/room/RoomState.h"

#include <algorithm>
#include <cstring>

namespace room
{
namespace
{
// Copies a name, truncated to its field. The rest after the NUL is left unchanged, because drivers leave garbage there.
void setField(WCHAR* field, std::size_t capacity, const Text& text)
{
    const std::size_t length = std::min(text.size(), capacity);
    std::copy_n(text.begin(), length, field);
    if (length < capacity)
        field[length] = 0;
}

const Paper* paperOfCode(const Printer& printer, short code)
{
    const auto found = std::ranges::find_if(printer.papers, [code](const Paper& paper)
                                            { return static_cast<WORD>(paper.code) == static_cast<WORD>(code); });
    return found == printer.papers.end() ? nullptr : &*found;
}

DEVMODEW usualFields(const Printer& printer)
{
    DEVMODEW dm = {};
    std::fill(std::begin(dm.dmDeviceName), std::end(dm.dmDeviceName), WCHAR{0x5555});
    setField(dm.dmDeviceName, CCHDEVICENAME - 1, printer.name);
    dm.dmDeviceName[CCHDEVICENAME - 1] = 0;
    dm.dmSpecVersion = 0x0401;
    dm.dmDriverVersion = 5;
    dm.dmSize = sizeof(DEVMODEW);
    dm.dmDriverExtra = printer.driverExtra;
    dm.dmFields = 0x1EF1F;
    dm.dmOrientation = DMORIENT_PORTRAIT;
    dm.dmPaperLength = 2970;
    dm.dmPaperWidth = 2100;
    dm.dmScale = 100;
    dm.dmCopies = 1;
    dm.dmDefaultSource = DMBIN_FORMSOURCE;
    dm.dmPrintQuality = 600;
    dm.dmColor = DMCOLOR_COLOR;
    dm.dmDuplex = DMDUP_SIMPLEX;
    dm.dmYResolution = 600;
    dm.dmTTOption = DMTT_SUBDEV;
    if (!printer.papers.empty())
    {
        dm.dmPaperSize = static_cast<short>(printer.papers.front().code);
        setField(dm.dmFormName, CCHFORMNAME, printer.papers.front().name);
    }
    if (printer.tune)
        printer.tune(dm);
    return dm;
}

// Applies the flagged fields that drivers under Wine apply; they ignore unknown papers, media type, colour management,
// dither and private bytes.
void takeUsual(const Printer& printer, DEVMODEW& dm, const DEVMODEW& in)
{
    const auto take = [&](DWORD flag, short DEVMODEW::*field)
    {
        if (in.dmFields & flag)
            dm.*field = in.*field;
    };
    take(DM_ORIENTATION, &DEVMODEW::dmOrientation);
    take(DM_COPIES, &DEVMODEW::dmCopies);
    take(DM_SCALE, &DEVMODEW::dmScale);
    take(DM_DEFAULTSOURCE, &DEVMODEW::dmDefaultSource);
    take(DM_PRINTQUALITY, &DEVMODEW::dmPrintQuality);
    take(DM_YRESOLUTION, &DEVMODEW::dmYResolution);
    take(DM_COLOR, &DEVMODEW::dmColor);
    take(DM_DUPLEX, &DEVMODEW::dmDuplex);
    take(DM_TTOPTION, &DEVMODEW::dmTTOption);
    take(DM_COLLATE, &DEVMODEW::dmCollate);
    const Paper* const paper = (in.dmFields & DM_PAPERSIZE) != 0 ? paperOfCode(printer, in.dmPaperSize) : nullptr;
    if (paper)
    {
        dm.dmPaperSize = in.dmPaperSize;
        setField(dm.dmFormName, CCHFORMNAME, paper->name);
    }
}
} // namespace

std::vector<BYTE> defaultBlock(const Printer& printer)
{
    if (printer.rawBlock)
        return *printer.rawBlock;
    const DEVMODEW dm = usualFields(printer);
    std::vector<BYTE> block(sizeof dm + printer.driverExtra);
    std::memcpy(block.data(), &dm, sizeof dm);
    for (std::size_t i = 0; i < printer.driverExtra; ++i)
        block[sizeof dm + i] = static_cast<BYTE>(i + 1);
    return block;
}

std::vector<BYTE> driverBlock(const Printer& printer)
{
    return printer.stuckBlock ? *printer.stuckBlock : defaultBlock(printer);
}

std::vector<BYTE> mergedBlock(const Printer& printer, const std::vector<BYTE>& input)
{
    std::vector<BYTE> block = driverBlock(printer);
    if (printer.merge)
    {
        printer.merge(block, input);
        return block;
    }
    if (block.size() < sizeof(DEVMODEW))
        return block;
    DEVMODEW dm = {};
    DEVMODEW in = {};
    std::memcpy(&dm, block.data(), sizeof dm);
    std::memcpy(&in, input.data(), std::min(input.size(), sizeof in));
    takeUsual(printer, dm, in);
    std::memcpy(block.data(), &dm, sizeof dm);
    return block;
}
} // namespace room
