#pragma once

#include <string_view>

namespace plothost
{
// Standard output and standard error take UTF-8: a console gets it as UTF-16, whatever its code page is; a file or pipe
// gets the bytes. False when they could not all be written.
bool writeOutput(std::string_view utf8) noexcept;
bool writeError(std::string_view utf8) noexcept;
} // namespace plothost
