#include "GarmPC3Editor/Printing/PaperNames.h"

#include "GarmPC3Editor/Model/Numbers.h"
#include "GarmPC3Editor/Printing/GmPrinterInfo.h"

#include <iterator>

namespace
{
constexpr OdStringView userPrefix = OD_T("User");

OdStringView formNameOf(const DEVMODEW& fields)
{
    return odBoundedView(fields.dmFormName, std::size(fields.dmFormName));
}
} // namespace

OdString userPaperName(std::int16_t code)
{
    return OdString(userPrefix) + decimalFromNumber(std::int32_t{code});
}

bool userPaperCode(OdStringView name, std::int32_t& code)
{
    return odStartsWithNoCase(name, userPrefix) && numberFromDecimal(name.substr(userPrefix.size()), code);
}

std::optional<OdString> proposedPaper(const DevModeView& devMode, GmPrinterInfo& printer)
{
    const DEVMODEW& fields = devMode.fields();
    if (devMode.has(DM_FORMNAME))
        return OdString(formNameOf(fields));
    if (!devMode.has(DM_PAPERSIZE) || fields.dmPaperSize < 0)
        return std::nullopt;
    if (const int index = printer.paperIndexById(fields.dmPaperSize); index >= 0)
        return OdString(printer.paperName(index));
    return userPaperName(fields.dmPaperSize);
}

std::optional<OdString> importedPaper(const DevModeView& devMode, GmPrinterInfo& printer)
{
    const DEVMODEW& fields = devMode.fields();
    OdString name;
    if (devMode.has(DM_PAPERSIZE))
    {
        // The system's own codes mean the same everywhere, so such a code overrides the form name. Codes above 32767
        // count as such: quirk 17.
        if (fields.dmPaperSize < DMPAPER_USER)
        {
            const int index = printer.paperIndexById(fields.dmPaperSize);
            if (index < 0)
                return std::nullopt;
            return OdString(printer.paperName(index));
        }
        // A driver numbers its own papers as it likes, so even a listed code means little; a form name it lists means
        // more.
        name = userPaperName(fields.dmPaperSize);
    }
    if (devMode.has(DM_FORMNAME))
    {
        const OdStringView formName = formNameOf(fields);
        if (printer.paperIndexByName(formName) >= 0)
            name = formName;
    }
    return name;
}
