#pragma once

#include "kernel/OdText.h"

#include <nlohmann/json.hpp>

#include <string>

namespace apps
{
// Keeps the order in which members were added, so that the same question gives the same text.
using Json = nlohmann::ordered_json;

inline Json jsonText(OdStringView text)
{
    return odToUtf8(text);
}

// Two blanks per level, UTF-8 as it is, one line end. odToUtf8 gives valid UTF-8 only, but a text may have come another
// way, and printing must not fail for it.
inline std::string printed(const Json& json)
{
    return json.dump(2, ' ', false, Json::error_handler_t::replace) + "\n";
}
} // namespace apps
