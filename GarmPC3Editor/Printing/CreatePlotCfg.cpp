// Creates a configuration for an installed printer from its driver's defaults.

#include "GarmPC3Editor/Printing/Conversions.h"
#include "GarmPC3Editor/Printing/GmPrinterInfo.h"
#include "GarmPC3Editor/Printing/PaperNames.h"
#include "GarmPC3Editor/Printing/StoredDevMode.h"
#include "spooler/DevModeView.h"

#include <optional>
#include <string>

namespace
{
void describeSystemDriver(GmMetaNode& meta, const OdString& printerName)
{
    meta.m_win_device_name = printerName;
    meta.m_short_net_name = printerName;
    meta.m_friendly_net_name = printerName;
    // Values of the file format by which readers recognise a system printer's configuration.
    meta.m_driver_pathname = OD_T("gdiplot7.hdi");
    meta.m_driver_version = OD_T("not specified");
    meta.m_driver_tag_line = OD_T("Windows System Driver from Autodesk");
    meta.m_toolkit_version = 1;
    meta.m_driver_type = eWindowsDriver;
}

// Stores the sizes of the driver's block, and one zero byte for each private byte, because importing the real ones
// requires as many stored bytes. A driver without private bytes gets no configuration: quirk 35.
OdSharedPtr<GmCustomNode> customDataFor(const DevModeView& devMode)
{
    OdSharedPtr<GmCustomNode> custom(new GmCustomNode);
    custom->setNumber(static_cast<std::uint32_t>(devMode.size()), storedDevMode::size, true);
    if (const std::size_t extra = devMode.driverExtra(); extra != 0)
    {
        custom->setNumber(static_cast<std::uint32_t>(extra), storedDevMode::driverExtra, true);
        custom->setRawData(OdString(std::basic_string<OdChar>(2 * extra, OdChar{'0'})), true);
    }
    return custom;
}
} // namespace

OdSharedPtr<GmPlotCfg3> createPlotCfg(const OdString& printerName, Fault& fault)
{
    GmPrinterInfo printer(printerName);
    if (!printer.isOpen())
    {
        fault = printer.openFault(FaultStage::create);
        return nullptr;
    }
    const DevModeBlock block = printer.defaultDevMode();
    const DevModeView devMode = block.view();
    if (!devMode)
    {
        fault = Fault{.stage = FaultStage::create, .code = FaultCode::noDefaultDevMode, .text = printerName};
        return nullptr;
    }

    OdSharedPtr<GmPlotCfg3> configuration(new GmPlotCfg3);
    describeSystemDriver(configuration->m_meta, printerName);
    configuration->m_custom = customDataFor(devMode);
    if (const std::optional<OdString> paper = proposedPaper(devMode, printer))
        configuration->m_media.m_size.m_name = *paper;
    configuration->m_custom->setNumber(devMode.fields().dmSpecVersion, storedDevMode::specVersion, true);

    bool modified = false;
    if (importDevMode(*configuration, devMode, printerName, true, modified, fault))
        return configuration;
    if (devMode.driverExtra() == 0)
        fault = Fault{.stage = FaultStage::create, .code = FaultCode::noPrivateBytes, .text = printerName};
    return nullptr;
}
