#pragma once

#include "GarmPC3Editor/GmPlotCfg3.h"
#include "common/Json.h"

#include <string>

// Every key of every block of a configuration as the module holds it, whether the file has it or not.
namespace apps
{
// Indented lines. Names and values of block "custom" are shortened unless full is true.
std::string configurationText(const GmPlotCfg3& configuration, bool full);

// Always in full.
Json configurationJson(const GmPlotCfg3& configuration);
} // namespace apps
