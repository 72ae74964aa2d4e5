#pragma once

#include "kernel/OdString.h"

#include <cstdint>

// Numbers as the text a tree keeps them in. Nothing here depends on the locale.
namespace pia
{
// Base 10.
OdString numberText(std::int32_t value);

// precision: digits after the point; a negative one gives the shortest text that reads back as the same double, with a
// point or an exponent. What is no finite number is "nan" (of either sign), "inf" or "-inf" in both forms.
OdString numberText(double value, int precision);

// Blanks around are ignored, one sign is allowed, and the rest must be one decimal number in the range of the output;
// a double may also be nan or inf in any case. False leaves the output untouched.
bool readNumber(std::string_view text, std::int32_t& out) noexcept;
bool readNumber(std::string_view text, double& out) noexcept;

// The same for the text of an item.
bool readNumber(OdStringView text, std::int32_t& out);
bool readNumber(OdStringView text, double& out);
} // namespace pia
