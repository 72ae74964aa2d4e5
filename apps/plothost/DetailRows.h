#pragma once

#include "plothost/Reports.h"

#include <span>
#include <string>
#include <vector>

namespace plothost
{
// One line of the Plot dialog's details, as UTF-8.
struct DetailRow
{
    std::string name;
    std::string value;
    std::string meaning; // "DMPAPER_A4"; "" if the value has no name
    std::string flagged; // "yes" or "no"; "" if it has no flag in dmFields

    friend bool operator==(const DetailRow&, const DetailRow&) = default;
};

// A configuration: the module's results for it, and its decoded DEVMODE. Empty if the module cannot read it.
std::vector<DetailRow> configurationRows(const DevModeReport& report);

// A printer: the default DEVMODE of its driver.
std::vector<DetailRow> printerRows(std::span<const BYTE> devMode);

// Whether a DEVMODE says landscape.
bool isLandscape(std::span<const BYTE> devMode);
} // namespace plothost
