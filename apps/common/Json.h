#pragma once

#include "kernel/OdText.h"

#include <nlohmann/json.hpp>

#include <string>

namespace apps
{
// Keeps the order in which members were added, so that output is reproducible.
using Json = nlohmann::ordered_json;

inline Json jsonText(OdStringView text)
{
    return odToUtf8(text);
}

// Two blanks per level, UTF-8 unescaped, one line end. odToUtf8 returns valid UTF-8 only, but a text may have another
// origin, and printing it must not fail.
inline std::string printed(const Json& json)
{
    return json.dump(2, ' ', false, Json::error_handler_t::replace) + "\n";
}
} // namespace apps
