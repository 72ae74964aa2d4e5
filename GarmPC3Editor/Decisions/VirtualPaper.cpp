#include "GarmPC3Editor/Decisions/VirtualPaper.h"

#include "GarmPC3Editor/Printing/GmPrinterInfo.h"
#include "spooler/PrinterQueries.h"

#include <algorithm>
#include <vector>

namespace
{
constexpr DWORD searchedPrinters = PRINTER_ENUM_LOCAL | PRINTER_ENUM_CONNECTIONS;
constexpr DWORD nameLevel = 1;
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
    GmPrinterInfo printer(fullPrinterName(printerName), devMode);
    const int index = printer.paperIndexByExactName(paperName);
    return printer.hasPaperId(index) ? printer.paperId(index) : -1;
}
