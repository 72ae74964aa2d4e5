// Reads a configuration and binds it to an installed printer: by name first, checked against the driver; failing that,
// by driver alone.

#include "GarmPC3Editor/Printing/Conversions.h"
#include "GarmPC3Editor/Printing/GmPrinterInfo.h"
#include "pia_tree/CPIAParser.h"
#include "spooler/PrinterQueries.h"

#include <optional>

namespace
{
// Two passes and never one call with all flags: a local printer comes before any network connection, whatever the
// system's order. If the system refuses the second pass, there is nothing to add.
constexpr DWORD passes[] = {PRINTER_ENUM_LOCAL, PRINTER_ENUM_CONNECTIONS | PRINTER_ENUM_SHARED | PRINTER_ENUM_NETWORK};

bool usesDriver(const OdString& printerName, const OdString& driverName)
{
    const GmPrinterInfo printer(printerName);
    OdString found;
    return printer.isOpen() && printer.driverName(found) && odEqualNoCase(found, driverName);
}

// The first installed printer with that driver. A record without a driver name matches nothing, and one without a
// printer name could not be opened again.
std::optional<OdString> firstPrinterWithDriver(const OdString& driverName)
{
    for (const DWORD flags : passes)
        for (InstalledPrinter& printer : installedPrinters(flags, 2))
            if (printer.name && printer.driver && odEqualNoCase(*printer.driver, driverName))
                return OdString(std::move(*printer.name));
    return std::nullopt;
}
} // namespace

ResolvePrinterResult resolvePrinter(GmMetaNode& meta, Fault& fault)
{
    if (usesDriver(meta.m_win_device_name, meta.m_win_driver_name))
        return eSamePrinter;

    std::optional<OdString> other = firstPrinterWithDriver(meta.m_win_driver_name);
    if (!other)
    {
        fault =
            Fault{.stage = FaultStage::bind, .code = FaultCode::noPrinterWithDriver, .text = meta.m_win_driver_name};
        return eNoPrinter;
    }
    meta.m_win_device_name = std::move(*other);
    return eOtherPrinter; // quirk 7
}

bool readPlotCfg(GmPlotCfg3& configuration, const CPIAParser& parser, bool& modified, ReadReport& report)
{
    if (!fill(configuration, parser, report))
        return false;
    if (configuration.m_meta.m_win_driver_name.isEmpty())
        return true;
    const ResolvePrinterResult resolved = resolvePrinter(configuration.m_meta, report.fault);
    modified = resolved == eOtherPrinter;
    return resolved != eNoPrinter; // quirk 6
}

OdSharedPtr<GmPlotCfg3> readPlotCfg(const OdString& path, bool& modified, ReadReport& report)
{
    CPIAParser parser;
    parser.read(path.c_str());
    OdSharedPtr<GmPlotCfg3> configuration(new GmPlotCfg3);
    return readPlotCfg(*configuration, parser, modified, report) ? configuration : nullptr;
}
