// Binds a configuration that was read to an installed printer: by name first, checked against the driver; failing that,
// by driver alone.

#include "GarmPC3Editor/GmPlotCfg3.h"
#include "GarmPC3Editor/Printing/GmPrinterInfo.h"
#include "spooler/PrinterQueries.h"

#include <optional>

namespace
{
// Two passes and never one call with all flags: a printer of this machine goes before any network connection, whatever
// the system's order. Systems that refuse the second pass have nothing to add.
constexpr DWORD passes[] = {PRINTER_ENUM_LOCAL, PRINTER_ENUM_CONNECTIONS | PRINTER_ENUM_SHARED | PRINTER_ENUM_NETWORK};

bool usesDriver(const OdString& printerName, const OdString& driverName)
{
    const GmPrinterInfo printer(printerName);
    OdString found;
    return printer.isOpen() && printer.driverName(found) && odEqualNoCase(found, driverName);
}

// The first installed printer with that driver. A record without a driver's name equals none, and one without a
// printer's name could not be opened again.
std::optional<OdString> firstPrinterWithDriver(const OdString& driverName)
{
    for (const DWORD flags : passes)
        for (InstalledPrinter& printer : installedPrinters(flags, 2))
            if (printer.name && printer.driver && odEqualNoCase(*printer.driver, driverName))
                return OdString(std::move(*printer.name));
    return std::nullopt;
}
} // namespace

ResolvePrinterResult GmPlotCfg3::resolvePrinterByDriver()
{
    if (usesDriver(m_meta.m_win_device_name, m_meta.m_win_driver_name))
        return eSamePrinter;

    // The winner may be the stored printer itself: quirk 7.
    std::optional<OdString> other = firstPrinterWithDriver(m_meta.m_win_driver_name);
    if (!other)
        return eNoPrinter;
    m_meta.m_win_device_name = std::move(*other);
    return eOtherPrinter;
}
