#pragma once

#include "kernel/OdString.h"

#include <optional>
#include <string>
#include <string_view>
#include <vector>

// Fills the host's reseller data store: from KEY=VALUE on the command line, or lines of that form in a settings file.
namespace plothost
{
struct ResellerSetting
{
    OdString key;
    OdString value; // neither is empty

    friend bool operator==(const ResellerSetting&, const ResellerSetting&) = default;
};

// Nothing if there is no "=", or nothing before or after the first one: an empty name would be found in the store and
// match every printer without a name. Blanks around both are dropped.
std::optional<ResellerSetting> resellerSetting(OdStringView text);

struct ResellerSettings
{
    std::string problem; // "line 3 is not KEY=VALUE"; "" if all lines are valid
    std::vector<ResellerSetting> settings;
};

// The text of a settings file: UTF-8, one setting per line. Empty lines and lines that start with "#" or ";" are
// ignored.
ResellerSettings parseResellerSettings(std::string_view utf8);

// Puts them into the store; later ones replace earlier ones.
void storeResellerSettings(const std::vector<ResellerSetting>& settings);
} // namespace plothost
