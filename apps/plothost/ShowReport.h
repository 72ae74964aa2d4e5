#pragma once

#include "GarmPC3Editor/GmPlotCfg3.h"
#include "plothost/ConfigurationKeys.h"

#include <string>
#include <vector>

namespace plothost
{
// What "show" prints: a configuration as the module holds it, every key of every block, stored in the file or not.
struct ShowReport
{
    enum class Binding
    {
        none,    // it names no Windows driver
        same,    // to the stored printer
        rebound, // to another one with the same driver
    };

    OdString path;
    OdString storedPrinter; // as the file has it
    Binding binding = Binding::none;
    const GmPlotCfg3* configuration = nullptr; // not null when printed
    bool full = false; // the text has the names and values of block "custom" whole, as JSON always has
};

std::string textOf(const ShowReport& report);
std::string jsonOf(const ShowReport& report);

// An item of block "custom".
struct CustomItem
{
    const char* kind; // "number", "binary", "string", "flag"
    OdString name;
    KeyValue value; // numbers and binaries as their text
};

// In the order in which they are written.
std::vector<CustomItem> customItems(const GmCustomNode& custom);
} // namespace plothost
