#pragma once

#include "kernel/OdText.h"

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace apps
{
// A text from a driver or a file as UTF-8 that is safe to print on a terminal: characters that would move the cursor,
// change colours or reverse the writing direction become "\u001B" and the like.
std::string printable(OdStringView text);

// The same in single quotation marks.
std::string quoted(OdStringView text);

// The same for at most that many units of a text, followed by its length if it was cut. quote is put around the part
// that is shown.
std::string shortened(OdStringView text, std::size_t most, std::string_view quote = {});

// Lines of cells, every column as wide as its widest cell, two blanks apart, no blanks at the ends. A cell wider than
// 64 is shown whole but does not widen its column: otherwise one such name would make every line long.
std::string columns(const std::vector<std::vector<std::string>>& lines, std::size_t indent);

// The width of a UTF-8 text on a terminal, counting one column per code point.
std::size_t displayWidth(std::string_view utf8) noexcept;
} // namespace apps
