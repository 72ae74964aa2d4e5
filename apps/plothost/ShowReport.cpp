#include "plothost/ShowReport.h"

#include "common/ConfigurationReport.h"
#include "common/Json.h"
#include "common/Printable.h"

namespace plothost
{
using apps::columns;
using apps::jsonText;
using apps::printable;
using apps::printed;

namespace
{
const char* bindingName(ShowReport::Binding binding)
{
    switch (binding)
    {
    case ShowReport::Binding::same:
        return "same";
    case ShowReport::Binding::rebound:
        return "rebound";
    case ShowReport::Binding::none:
        break;
    }
    return "none";
}

std::string bindingText(const ShowReport& report)
{
    const std::string printer = "\"" + printable(report.configuration->m_meta.m_win_device_name) + "\"";
    switch (report.binding)
    {
    case ShowReport::Binding::same:
        return "bound to " + printer;
    case ShowReport::Binding::rebound:
        return "rebound to " + printer + "; the file names \"" + printable(report.storedPrinter) + "\"";
    case ShowReport::Binding::none:
        break;
    }
    return "not bound to a Windows driver";
}
} // namespace

std::string textOf(const ShowReport& report)
{
    return columns({{"file", printable(report.path)}, {"printer", bindingText(report)}}, 0) +
           apps::configurationText(*report.configuration, report.full);
}

std::string jsonOf(const ShowReport& report)
{
    return printed({{"file", jsonText(report.path)},
                    {"binding", bindingName(report.binding)},
                    {"storedPrinter", jsonText(report.storedPrinter)},
                    {"printer", jsonText(report.configuration->m_meta.m_win_device_name)},
                    {"configuration", apps::configurationJson(*report.configuration)}});
}
} // namespace plothost
