#pragma once

#include "kernel/OdString.h"
#include "plothost/Request.h"

namespace plothost
{
// Each does what its command line says, prints the answer and returns the program's exit status. The module is loaded.
ExitStatus runList(const Request& request, const OdString& searchPath);
ExitStatus runDevMode(const Request& request, const OdString& searchPath);
ExitStatus runEdit(const Request& request, const OdString& searchPath);
ExitStatus runCreate(const Request& request);
ExitStatus runShow(const Request& request, const OdString& searchPath);
ExitStatus runCommands();
ExitStatus runPlot(const OdString& searchPath);
} // namespace plothost
