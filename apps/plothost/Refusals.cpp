#include "plothost/Refusals.h"

#include "common/Explanation.h"
#include "common/FaultText.h"
#include "common/Printable.h"
#include "kernel/OdText.h"
#include "plothost/CloseName.h"
#include "plothost/Paths.h"
#include "spooler/Handles.h"
#include "spooler/PrinterQueries.h"

namespace plothost
{
using apps::printable;
using apps::quoted;

namespace
{
// 0 if the printer opens, otherwise the system's error.
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
    for (const InstalledPrinter& installed : installedPrinters(PRINTER_ENUM_LOCAL | PRINTER_ENUM_CONNECTIONS, 2))
        if (installed.name)
            names.push_back(printable(*installed.name));
    const std::string meant = closestName(printable(printer), names);
    return apps::whyNotOpened(printer, error) + (meant.empty() ? "" : "; did you mean '" + meant + "'?");
}

// For when the module failed but the same code succeeds a moment later.
std::string nowItWorks(const std::string& what)
{
    return what + " failed for a moment; try again";
}

std::string whyFileNotEdited(const OdString& name, const OdString& searchPath)
{
    OdString path;
    if (!findConfiguration(name, path))
        return whyNotFound(name, searchPath);
    return quoted(path) + ": " + apps::whyNotRead(path).value_or("the editor left no values");
}

std::string whyPrinterNotEdited(const OdString& printer)
{
    if (const unsigned long error = openError(printer); error != 0)
        return whyNoPrinter(printer, error);
    return apps::whyNotCreated(printer).value_or("the driver of printer " + quoted(printer) +
                                                 " does not take the settings of the new configuration");
}
} // namespace

bool isConfigurationName(const OdString& name)
{
    return odEndsWithNoCase(name, OD_T(".pc3"));
}

std::string whyNotShown(const OdString& path)
{
    return quoted(path) + ": " + apps::whyNotRead(path).value_or(nowItWorks("reading it"));
}

std::string whyNotCreated(const OdString& printer)
{
    if (const unsigned long error = openError(printer); error != 0)
        return whyNoPrinter(printer, error);
    return apps::whyNotCreated(printer).value_or(nowItWorks("asking printer " + quoted(printer) + " for its defaults"));
}

std::string whyNoPrinterFor(const OdString& deviceName, const OdString& searchPath)
{
    OdString path;
    if (isConfigurationName(deviceName))
    {
        if (!findConfiguration(deviceName, path))
            return whyNotFound(deviceName, searchPath);
        return quoted(path) + ": " + apps::whyNoDevMode(path).value_or(nowItWorks("making its DEVMODE"));
    }

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
