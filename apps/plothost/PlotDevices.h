#pragma once

#include "kernel/OdString.h"
#include "plothost/Reports.h"

#include <optional>
#include <vector>

// What the Plot dialog offers to plot on.
namespace plothost
{
struct PlotDevice
{
    bool isPrinter = false;
    OdString label; // in the list: file name, or printer
    OdString name;  // for the module: full path, or printer

    friend bool operator==(const PlotDevice&, const PlotDevice&) = default;
};

// The configurations on the search path, then the printers. A configuration's name is listed once, from the first
// folder that has it.
std::vector<PlotDevice> plotDevices(const ListReport& list);

// The initial device: the first configuration, else the default printer, else the first one. Nothing if there is no
// device.
std::optional<std::size_t> deviceToBeginWith(const std::vector<PlotDevice>& devices, const ListReport& list);

std::optional<std::size_t> indexOf(const std::vector<PlotDevice>& devices, const PlotDevice& device);

// The configuration that the editor saved under a file name or path; nothing if it is not in the list.
std::optional<std::size_t> configurationNamed(const std::vector<PlotDevice>& devices, const OdString& fileName);
} // namespace plothost
