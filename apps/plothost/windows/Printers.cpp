#include "plothost/windows/Printers.h"

#include "host/FilePath.h"
#include "plothost/Paths.h"
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
} // namespace plothost
