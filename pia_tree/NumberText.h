#pragma once

#include "kernel/OdString.h"

#include <cstdint>

// Numbers as the text that a tree stores. Nothing here depends on the locale.
namespace pia
{
// Base 10.
OdString numberText(std::int32_t value);

// precision: digits after the point; a negative one yields the shortest text that reads back as the same double, with a
// point or an exponent. A value that is not finite is "nan" (of either sign), "inf" or "-inf" in both forms.
OdString numberText(double value, int precision);

// Surrounding spaces are ignored, one sign is allowed, and the rest must be one decimal number in the range of the
// output; a double may also be nan or inf in any case. On failure the output is untouched.
bool readNumber(std::string_view text, std::int32_t& out) noexcept;
bool readNumber(std::string_view text, double& out) noexcept;

// The same for the text of an item.
bool readNumber(OdStringView text, std::int32_t& out);
bool readNumber(OdStringView text, double& out);
} // namespace pia
