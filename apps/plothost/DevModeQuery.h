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
    std::string problem; // why there is no answer, or ""
    DevModeReport report;
};

// Asks and waits. Clears the named values of earlier calls first.
DevModeAnswer askDevMode(const OdString& deviceName);

// Starts the check in the background, which posts backgroundMessage to the window. "" or why it was not started.
std::string startBackgroundCheck(const OdString& deviceName, HWND window);

// Its first parameter is 1 if a printer was determined, otherwise 0.
inline constexpr UINT backgroundMessage = 1125;
} // namespace plothost
