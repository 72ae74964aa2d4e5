#include "plothost/windows/Printers.h"

#include "host/FilePath.h"
#include "plothost/CloseName.h"
#include "plothost/Paths.h"
#include "plothost/Printable.h"
#include "spooler/Handles.h"
#include "spooler/PrinterQueries.h"

#include <algorithm>

namespace plothost
{
namespace
{
OdString textOrEmpty(const std::optional<WideText>& text)
{
    return text ? OdString(OdStringView(*text)) : OdString();
}

OdString defaultPrinterName()
{
    DWORD size = 0;
    ::GetDefaultPrinterW(nullptr, &size);
    std::vector<OdChar> name(size);
    if (name.empty() || !::GetDefaultPrinterW(name.data(), &size))
        return {};
    return OdString(odBoundedView(name.data(), name.size()));
}
} // namespace

std::vector<ListReport::Printer> installedPrinterList()
{
    std::vector<ListReport::Printer> list;
    const OdString defaultName = defaultPrinterName();
    for (const InstalledPrinter& installed : installedPrinters(PRINTER_ENUM_LOCAL | PRINTER_ENUM_CONNECTIONS, 2))
    {
        const OdString name = textOrEmpty(installed.name);
        const bool listed =
            std::any_of(list.begin(), list.end(), [&name](const auto& printer) { return printer.name == name; });
        if (!name.isEmpty() && !listed)
            list.push_back({name, textOrEmpty(installed.driver), textOrEmpty(installed.port), name == defaultName});
    }
    return list;
}

ListReport plotterList(const OdString& searchPath, std::vector<OdString>& unreadable)
{
    ListReport list;
    list.printers = installedPrinterList();
    list.folders = FilePath::GetPaths(searchPath);
    for (const OdString& folder : list.folders)
    {
        const auto found = configurationsIn(folder);
        if (found)
            list.configurations.insert(list.configurations.end(), found->begin(), found->end());
        else
            unreadable.push_back(folder);
    }
    return list;
}

InstalledDrivers installedDrivers()
{
    InstalledDrivers drivers;
    for (const ListReport::Printer& printer : installedPrinterList())
        drivers.names.push_back(printer.driver);
    return drivers;
}

unsigned long openError(const OdString& printer)
{
    ::SetLastError(ERROR_SUCCESS);
    if (openPrinter(printer.c_str()))
        return 0;
    const DWORD error = ::GetLastError();
    return error == ERROR_SUCCESS ? static_cast<DWORD>(ERROR_INVALID_PRINTER_NAME) : error;
}

std::string whyNoPrinter(const OdString& printer, unsigned long error)
{
    std::vector<std::string> names;
    for (const ListReport::Printer& installed : installedPrinterList())
        names.push_back(printable(installed.name));
    const std::string meant = closestName(printable(printer), names);
    return whyNotOpened(printer, error) + (meant.empty() ? "" : "; did you mean '" + meant + "'?");
}

std::string whyNotCreated(const OdString& printer)
{
    if (const unsigned long error = openError(printer); error != 0)
        return whyNoPrinter(printer, error);
    const std::string shown = "'" + printable(printer) + "'";
    const PrinterHandle handle = openPrinter(printer.c_str());
    const DevModeBlock devMode = handle ? defaultDevMode(handle.get(), printer.c_str()) : DevModeBlock();
    const DevModeView view = devMode.view();
    if (!view)
        return "the driver of printer " + shown + " gives no default DEVMODE";
    if (view.driverExtra() == 0)
        return "the DEVMODE of printer " + shown + " has no private bytes, without which there is no configuration";
    return "the default settings of printer " + shown + " cannot be taken over; its driver may not list its own paper";
}
} // namespace plothost
