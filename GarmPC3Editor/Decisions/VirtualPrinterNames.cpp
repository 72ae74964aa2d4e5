#include "GarmPC3Editor/Decisions/VirtualPrinterNames.h"

#include "host/GmResellerData.h"

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
