#pragma once

#include "kernel/OdString.h"

#include <cstdint>

// Reads the start of a text like the format "%d": white space, at most one sign, decimal digits; what follows them does
// not matter. The number is taken modulo 2^32, so that "4294967295" is -1 on every platform. False, and out untouched,
// when there are no digits.
bool numberFromDecimal(OdStringView text, std::int32_t& out) noexcept;

OdString decimalFromNumber(std::int32_t value);
OdString decimalFromNumber(std::uint32_t value);
