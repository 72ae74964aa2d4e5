#pragma once

#include "kernel/OdText.h"

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace apps
{
// A text from a driver or a file as UTF-8 that a terminal shows and does not obey: what would move the cursor, change
// colours or turn the direction of writing comes out as "\u001B".
std::string printable(OdStringView text);

// The same in single quotation marks.
std::string quoted(OdStringView text);

// The same for the first units of a text, at most that many, followed by how long the text is when it was cut. quote
// is put around the part that is shown.
std::string shortened(OdStringView text, std::size_t most, std::string_view quote = {});

// Lines of cells, every column as wide as its widest cell, two blanks apart, no blanks at the ends. A cell wider than
// 64 is shown whole and does not widen its column: one such name would otherwise make every line long.
std::string columns(const std::vector<std::vector<std::string>>& lines, std::size_t indent);

// How many characters of a terminal a UTF-8 text takes, counting one for each code point.
std::size_t displayWidth(std::string_view utf8) noexcept;
} // namespace apps
