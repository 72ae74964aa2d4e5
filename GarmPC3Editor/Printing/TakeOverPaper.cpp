#include "GarmPC3Editor/Printing/TakeOverPaper.h"

#include "GarmPC3Editor/GmMediaNode.h"
#include "GarmPC3Editor/Model/DecimalText.h"
#include "GarmPC3Editor/Printing/GmPrinterInfo.h"
#include "spooler/DevModeView.h"

#include <iterator>
#include <optional>

namespace
{
// The name under which a configuration keeps the paper, nothing when the printer does not know the code. "" when the
// device mode flags no paper.
std::optional<OdString> paperNameOf(const DevModeView& dm, GmPrinterInfo& printer)
{
    const DEVMODEW& fields = dm.fields();
    OdString name;
    if (dm.has(DM_PAPERSIZE))
    {
        // The system's own codes mean the same everywhere, so such a code decides, whatever the form name says.
        if (fields.dmPaperSize < DMPAPER_USER)
        {
            const int index = printer.paperIndexById(fields.dmPaperSize);
            if (index < 0)
                return std::nullopt;
            return OdString(printer.paperName(index));
        }
        // A driver numbers its own papers as it likes, so even a listed code says little; a form name it knows says
        // more.
        name = OdString(OD_T("User")) + decimalFromNumber(std::int32_t{fields.dmPaperSize});
    }
    if (dm.has(DM_FORMNAME))
    {
        const OdStringView formName = odBoundedView(fields.dmFormName, std::size(fields.dmFormName));
        if (printer.paperIndexByName(formName) >= 0)
            name = formName;
    }
    return name;
}
} // namespace

bool takeOverPaper(GmMediaNode& media, const DevModeView& dm, GmPrinterInfo& printer, HDC dc, bool& modified)
{
    const std::optional<OdString> name = paperNameOf(dm, printer);
    if (!name)
        return false;
    const bool renamed = media.m_size.setName(name->c_str());
    if (renamed || media.emptyBounds())
    {
        modified = true;
        media.setBounds(dc);
    }
    return true;
}
