#include "GarmPC3Editor/Dialogs/VirtualPaper.h"

#include "win32/Handles.h"
#include "win32/PrinterQueries.h"

#include <algorithm>
#include <vector>

namespace
{
constexpr std::size_t paperNameLength = 64;
constexpr int mostPapers = 0x10000; // codes are 16-bit
constexpr DWORD searchedPrinters = PRINTER_ENUM_LOCAL | PRINTER_ENUM_CONNECTIONS;
constexpr DWORD nameLevel = 1;

// The port that capability queries name; nothing when the printer cannot be opened or read.
std::optional<WideText> portOf(const OdString& printerName)
{
    const PrinterHandle printer = openPrinter(printerName.c_str());
    if (!printer)
        return std::nullopt;
    const SpoolerRecords records = queryInfo([&printer](BYTE* buffer, DWORD size, DWORD* needed)
                                             { return ::GetPrinterW(printer.get(), 2, buffer, size, needed); });
    const auto info = records.at<PRINTER_INFO_2W>(0);
    if (!info)
        return std::nullopt;
    return records.text(info->pPortName).value_or(WideText());
}
} // namespace

OdString fullPrinterName(const OdString& name)
{
    const std::vector<InstalledPrinter> printers = installedPrinters(searchedPrinters, nameLevel);
    const auto find = [&printers](auto matches)
    {
        return std::find_if(printers.begin(), printers.end(),
                            [&matches](const InstalledPrinter& printer)
                            { return printer.name && matches(OdStringView(*printer.name)); });
    };
    // All printers are tried for the exact name first: one that merely contains it may stand before it.
    auto found = find([&name](OdStringView candidate) { return candidate == name.view(); });
    if (found == printers.end())
        found = find([&name](OdStringView candidate) { return candidate.find(name.view()) != candidate.npos; });
    return found == printers.end() ? name : OdString(OdStringView(*found->name));
}

int paperCodeForName(const OdString& printerName, OdStringView paperName, const DEVMODEW* devMode)
{
    constexpr int none = -1;
    const OdString fullName = fullPrinterName(printerName);
    const std::optional<WideText> port = portOf(fullName);
    if (!port)
        return none;
    const auto ask = [&](WORD capability, void* output) {
        return ::DeviceCapabilitiesW(fullName.c_str(), port->c_str(), capability, static_cast<WCHAR*>(output), devMode);
    };

    const int count = ask(DC_PAPERS, nullptr);
    if (count <= 0 || count > mostPapers)
        return none;
    // Twice the room: the count may have grown until the lists are filled.
    const auto papers = static_cast<std::size_t>(count);
    std::vector<WCHAR> names(2 * papers * paperNameLength);
    std::vector<POINT> sizes(2 * papers);
    std::vector<WORD> codes(2 * papers);
    // Names, sizes and codes belong together; a driver that refuses one of them has no list to choose from.
    const int named = ask(DC_PAPERNAMES, names.data());
    if (named < 0 || ask(DC_PAPERSIZE, sizes.data()) < 0 || ask(DC_PAPERS, codes.data()) < 0)
        return none;

    const std::size_t usable = std::min(papers, static_cast<std::size_t>(named));
    for (std::size_t i = 0; i < usable; ++i)
        if (odBoundedView(names.data() + i * paperNameLength, paperNameLength) == paperName)
            return codes[i];
    return none;
}
