#pragma once

#include "GarmPC3Editor/GmPlotCfg3.h"

#include <string>

namespace plothost
{
// What "show" prints: a configuration as the module holds it, every key of every block, whether the file has it or not.
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
    bool full = false;                         // show names and values of block "custom" in full, as JSON always does
};

std::string textOf(const ShowReport& report);
std::string jsonOf(const ShowReport& report);
} // namespace plothost
