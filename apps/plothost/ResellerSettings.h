#pragma once

#include "kernel/OdString.h"

#include <optional>
#include <string>
#include <string_view>
#include <vector>

// What fills the host's reseller data store: KEY=VALUE on the command line, or lines of such in a settings file.
namespace plothost
{
struct ResellerSetting
{
    OdString key;
    OdString value; // neither is empty

    friend bool operator==(const ResellerSetting&, const ResellerSetting&) = default;
};

// Nothing when there is no "=", or nothing before or after the first one: a name that is empty would be found in
// the store and stand for every printer without one. Blanks around both are dropped.
std::optional<ResellerSetting> resellerSetting(OdStringView text);

struct ResellerSettings
{
    std::string problem; // "line 3 is not KEY=VALUE"; "" when all of it was understood
    std::vector<ResellerSetting> settings;
};

// The text of a settings file: UTF-8, one setting in a line. Empty lines count for nothing, and so do those that begin
// with "#" or ";".
ResellerSettings parseResellerSettings(std::string_view utf8);

// Puts them into the store, the later ones in place of the earlier ones.
void storeResellerSettings(const std::vector<ResellerSetting>& settings);
} // namespace plothost
