#include "plothost/windows/Reasons.h"

#include "GarmPC3Editor/GmPlotCfg3.h"
#include "kernel/OdText.h"
#include "plothost/Paths.h"
#include "plothost/Printable.h"
#include "plothost/WhyNot.h"
#include "plothost/windows/Printers.h"

namespace plothost
{
namespace
{
std::string shownName(const OdString& name)
{
    return "'" + printable(name) + "'";
}

// What keeps the module from reading a file; "" when it reads it.
std::string whyUnreadable(const OdString& path, OdSharedPtr<GmPlotCfg3>& configuration)
{
    std::string why = whyNotRead(path, installedDrivers());
    if (!why.empty())
        return why;
    bool modified = false;
    configuration = GmPlotCfg3::read(path, modified);
    return configuration ? "" : "the module cannot read it";
}

std::string whyNoPrinterBehind(const OdString& path)
{
    const std::string shown = shownName(path) + ": ";
    OdSharedPtr<GmPlotCfg3> configuration;
    const std::string why = whyUnreadable(path, configuration);
    if (!why.empty())
        return shown + why;
    const OdString& printer = configuration->m_meta.m_win_device_name;
    return shown + whyNoDevMode(path, *configuration, printer.isEmpty() ? 0 : openError(printer));
}

std::string whyFileNotEdited(const OdString& name, const OdString& searchPath)
{
    OdString path;
    if (!findConfiguration(name, path))
        return whyNotFound(name, searchPath);
    OdSharedPtr<GmPlotCfg3> configuration;
    const std::string why = whyUnreadable(path, configuration);
    return shownName(path) + ": " + (why.empty() ? "the editor left no values" : why);
}

std::string whyPrinterNotEdited(const OdString& printer)
{
    if (const unsigned long error = openError(printer); error != 0)
        return whyNoPrinter(printer, error);
    const OdSharedPtr<GmPlotCfg3> configuration = GmPlotCfg3::create(printer);
    if (!configuration)
        return whyNotCreated(printer);
    if (configuration->toDevMode().isEmpty())
        return "the new configuration for printer " + shownName(printer) + " gives no DEVMODE";
    return "the driver of printer " + shownName(printer) + " does not take the settings of the new configuration";
}
} // namespace

bool isConfigurationName(const OdString& name)
{
    return odEndsWithNoCase(name, OD_T(".pc3"));
}

std::string whyNoPrinterFor(const OdString& deviceName, const OdString& searchPath)
{
    OdString path;
    if (isConfigurationName(deviceName))
        return findConfiguration(deviceName, path) ? whyNoPrinterBehind(path) : whyNotFound(deviceName, searchPath);

    std::string why = whyNoPrinter(deviceName, openError(deviceName));
    if (findConfiguration(deviceName + OD_T(".pc3"), path))
        return why + "; the configuration of that name is '" + printable(deviceName) + ".pc3'";
    return why;
}

std::string whyNotEdited(const EditQuestion& question, const OdString& searchPath)
{
    return question.isPrinter ? whyPrinterNotEdited(question.name) : whyFileNotEdited(question.name, searchPath);
}
} // namespace plothost
