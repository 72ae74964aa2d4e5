#pragma once

#include "kernel/OdString.h"

#include <cstddef>
#include <cstdint>
#include <span>

// How the numbers and bytes of a device mode are stored, and what happens to those that do not fit.

inline constexpr double millimetresPerInch = 25.4;

// Reads the start of a text like the format "%d": white space, at most one sign, decimal digits; the rest is ignored.
// The number is taken modulo 2^32, so "4294967295" is -1 on every platform. Returns false and leaves out untouched if
// there are no digits.
bool numberFromDecimal(OdStringView text, std::int32_t& out) noexcept;

OdString decimalFromNumber(std::int64_t value);

// Bytes as hexadecimal text: two upper-case digits per byte, in byte order.
OdString hexFromBytes(std::span<const unsigned char> bytes);

// Reads back one byte for each two characters, upper or lower case; a character that is not a digit counts as 0. The
// text and out must fit each other (text.size() == 2 * out.size()); if they do not, the shorter one decides, and the
// bytes after it are untouched.
void bytesFromHex(OdStringView text, std::span<unsigned char> out) noexcept;

// The same text with a to f in upper case; all other characters stay.
OdString withUpperCaseHexDigits(OdString text);

// A length or resolution in a 16-bit field of a device mode: truncated toward zero, then reduced to its lower 16 bits,
// as the field does. NaN, infinity and values beyond 64 bits give 0.
constexpr std::int16_t wrapToInt16(double value) noexcept
{
    constexpr double limit = 9223372036854775808.0; // 2^63
    if (!(value > -limit && value < limit))
        return 0;
    return static_cast<std::int16_t>(static_cast<std::int64_t>(value));
}
