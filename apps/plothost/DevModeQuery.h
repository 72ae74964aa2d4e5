#pragma once

#include "kernel/OdString.h"
#include "plothost/Reports.h"
#include "win32/Win32.h"

#include <string>

// The host's side of the command "PC3GETDEVMODE": arguments and results are named values of the host's own context.
namespace plothost
{
struct DevModeAnswer
{
    std::string problem; // why there is no answer at all; "" when there is one
    DevModeReport report;
};

// Asks and waits. Nothing of an earlier question is left in the named values.
DevModeAnswer askDevMode(const OdString& deviceName);

// Starts the check in the background, which posts backgroundMessage to the window. "" or why it was not started.
std::string startBackgroundCheck(const OdString& deviceName, HWND window);

// Its first parameter is 1 when a printer was determined and 0 when not.
inline constexpr UINT backgroundMessage = 1125;
} // namespace plothost
