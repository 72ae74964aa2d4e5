#include "GarmPC3Editor/Decisions/VirtualPrinterSettings.h"

#include "GarmPC3Editor/Model/WrappedNumber.h"
#include "spooler/DevModeView.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <iterator>
#include <limits>
#include <string>

namespace
{
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
    const int whole = tenths / 10; // what is shown has no fraction
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
