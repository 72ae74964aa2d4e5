#include "GarmPC3Editor/Printing/ProposedPaper.h"

#include "GarmPC3Editor/Model/DecimalText.h"
#include "GarmPC3Editor/Printing/GmPrinterInfo.h"

#include <iterator>

std::optional<OdString> proposedPaper(const DevModeView& devMode, GmPrinterInfo& printer)
{
    const DEVMODEW& fields = devMode.fields();
    if (devMode.has(DM_FORMNAME))
        return OdString(odBoundedView(fields.dmFormName, std::size(fields.dmFormName)));
    if (!devMode.has(DM_PAPERSIZE) || fields.dmPaperSize < 0)
        return std::nullopt;
    if (const int index = printer.paperIndexById(fields.dmPaperSize); index >= 0)
        return OdString(printer.paperName(index));
    return OdString(OD_T("User")) + decimalFromNumber(std::int32_t{fields.dmPaperSize});
}
