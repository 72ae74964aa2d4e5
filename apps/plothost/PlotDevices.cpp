#include "plothost/PlotDevices.h"

#include "kernel/OdText.h"

#include <algorithm>
#include <iterator>

namespace plothost
{
namespace
{
template <class Matches>
std::optional<std::size_t> firstThat(const std::vector<PlotDevice>& devices, Matches matches)
{
    const auto found = std::find_if(devices.begin(), devices.end(), matches);
    if (found == devices.end())
        return std::nullopt;
    return static_cast<std::size_t>(std::distance(devices.begin(), found));
}
} // namespace

std::vector<PlotDevice> plotDevices(const ListReport& list)
{
    std::vector<PlotDevice> devices;
    for (const ListReport::Configuration& configuration : list.configurations)
    {
        const auto sameName = [&configuration](const PlotDevice& device)
        { return odEqualNoCase(device.label, configuration.name); };
        if (!firstThat(devices, sameName))
            devices.push_back({false, configuration.name, configuration.path});
    }
    for (const ListReport::Printer& printer : list.printers)
        devices.push_back({true, printer.name, printer.name});
    return devices;
}

std::optional<std::size_t> deviceToBeginWith(const std::vector<PlotDevice>& devices, const ListReport& list)
{
    if (devices.empty())
        return std::nullopt;
    if (!devices.front().isPrinter)
        return 0;
    for (const ListReport::Printer& printer : list.printers)
        if (printer.isDefault)
            return indexOf(devices, {true, printer.name, printer.name});
    return 0;
}

std::optional<std::size_t> indexOf(const std::vector<PlotDevice>& devices, const PlotDevice& device)
{
    return firstThat(devices, [&device](const PlotDevice& candidate) { return candidate == device; });
}

std::optional<std::size_t> configurationNamed(const std::vector<PlotDevice>& devices, const OdString& fileName)
{
    return firstThat(devices,
                     [&fileName](const PlotDevice& device) {
                         return !device.isPrinter &&
                                (odEqualNoCase(device.label, fileName) || odEqualNoCase(device.name, fileName));
                     });
}
} // namespace plothost
