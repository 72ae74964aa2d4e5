#pragma once

#include "GarmPC3Editor/GmPlotCfg3.h"
#include "kernel/OdString.h"

#include <string>
#include <vector>

class CPBlock;

// The module answers only yes or no. These look at the same things from outside and say why it was no, in one line of
// UTF-8 without line end, as far as a host can know.
namespace plothost
{
// What the spooler tells about the installed printers' drivers, and whether the stored printer opens.
struct InstalledDrivers
{
    std::vector<OdString> names;
};

// Why a file was not read: "damaged in line N of its text: ...", "key K is missing in block B", "no printer with driver
// D". "" when nothing is wrong with it that can be seen from outside.
std::string whyNotRead(const OdString& path, const InstalledDrivers& installed);

// The same for a file's tree.
std::string whyNotAConfiguration(const CPBlock& root, const InstalledDrivers& installed);

// Why a configuration that was read from the file has no DEVMODE. openError: what the system answered when its printer
// was opened, 0 when it opened.
std::string whyNoDevMode(const OdString& path, const GmPlotCfg3& configuration, unsigned long openError);

// "printer X cannot be opened: there is none of that name (error 1801)".
std::string whyNotOpened(const OdString& printer, unsigned long error);
} // namespace plothost
