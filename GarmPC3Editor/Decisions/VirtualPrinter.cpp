#include "GarmPC3Editor/Decisions/VirtualPrinter.h"

#include "GarmPC3Editor/Printing/GmPrinterInfo.h"
#include "host/GmResellerData.h"
#include "spooler/PrinterQueries.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <iterator>
#include <limits>
#include <string>
#include <vector>

namespace
{
int nameFromStore(OdString& name, const OdChar* key, const OdChar* defaultName)
{
    OdString stored;
    if (GmResellerData::lookup(key, stored) != 0)
    {
        name = defaultName;
        return 1;
    }
    name = stored;
    return 0;
}

constexpr DWORD searchedPrinters = PRINTER_ENUM_LOCAL | PRINTER_ENUM_CONNECTIONS;
constexpr DWORD nameLevel = 1;

constexpr short resolutions[] = {72, 150, 300, 600, 1200};
constexpr short otherResolution = 600;

double inTenths(double length, bool inches) noexcept
{
    return std::round((inches ? length * millimetresPerInch : length) * 10);
}

void write(DEVMODEW& dm, DWORD flag, short DEVMODEW::*field, short value)
{
    if (devModeFlagsWithin(flag, dm.dmSize) == 0)
        return;
    dm.*field = value;
    dm.dmFields |= flag;
}
} // namespace

int pdfPrinterName(OdString& name)
{
    return nameFromStore(name, OD_T("PDFPRINTERNAME"), OD_T("Tarnwick PDF Printer 2018"));
}

int jpgPrinterName(OdString& name)
{
    return nameFromStore(name, OD_T("JPGPRINTERNAME"), OD_T("Tarnwick JPG Printer 2018"));
}

bool isVirtualPrinter(const OdString& deviceName)
{
    OdString pdf;
    OdString jpg;
    pdfPrinterName(pdf);
    jpgPrinterName(jpg);
    return odEqualNoCase(deviceName, pdf) || odEqualNoCase(deviceName, jpg);
}

OdString fullPrinterName(const OdString& name)
{
    const std::vector<InstalledPrinter> printers = installedPrinters(searchedPrinters, nameLevel);
    const auto find = [&printers](auto matches)
    {
        return std::find_if(printers.begin(), printers.end(),
                            [&matches](const InstalledPrinter& printer)
                            { return printer.name && matches(OdStringView(*printer.name)); });
    };
    // All printers are tried for the exact name first: a name that merely contains it may come earlier.
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

int qualityIndex(short printQuality) noexcept
{
    const auto found = std::find(std::begin(resolutions), std::end(resolutions), printQuality);
    return found == std::end(resolutions) ? 0 : static_cast<int>(found - std::begin(resolutions));
}

short printQuality(int index) noexcept
{
    return index >= 0 && index < static_cast<int>(std::size(resolutions)) ? resolutions[index] : otherResolution;
}

double wholeMillimetres(short tenths) noexcept
{
    const int whole = tenths / 10; // no fraction is shown
    return whole;
}

short tenthsOfMillimetre(double length, bool inches) noexcept
{
    return wrapToInt16(inTenths(length, inches));
}

bool isLengthPossible(double length, bool inches) noexcept
{
    const double tenths = inTenths(length, inches);
    return tenths >= std::numeric_limits<short>::min() && tenths <= std::numeric_limits<short>::max();
}

OdString longestLength(bool inches)
{
    return inches ? OD_T("129.00") : OD_T("3276.7");
}

OdString displayedLength(double length)
{
    char digits[352]; // the largest double has 309 digits before the point
    const auto result = std::to_chars(digits, digits + sizeof digits, length, std::chars_format::fixed, 2);
    return OdString(std::basic_string<OdChar>(digits, result.ptr));
}

void applyVirtualPrinterChoice(const GmVirtualPrinterChoice& choice, DEVMODEW& dm)
{
    dm.dmFields = 0;
    write(dm, DM_PRINTQUALITY, &DEVMODEW::dmPrintQuality, printQuality(choice.qualityIndex));
    if (choice.landscape)
        write(dm, DM_ORIENTATION, &DEVMODEW::dmOrientation, *choice.landscape ? DMORIENT_LANDSCAPE : DMORIENT_PORTRAIT);
    if (choice.paperCode)
    {
        write(dm, DM_PAPERSIZE, &DEVMODEW::dmPaperSize, choice.paperCode(dm));
        return;
    }
    write(dm, DM_PAPERWIDTH, &DEVMODEW::dmPaperWidth, tenthsOfMillimetre(choice.width, choice.inches));
    write(dm, DM_PAPERLENGTH, &DEVMODEW::dmPaperLength, tenthsOfMillimetre(choice.length, choice.inches));
    write(dm, DM_PAPERSIZE, &DEVMODEW::dmPaperSize, DMPAPER_USER);
}
