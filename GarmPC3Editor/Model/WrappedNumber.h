#pragma once

#include <cstdint>

// A length or resolution in a 16-bit field of a device mode: truncated toward zero, then cut to its lower 16 bits as
// the field does it. NaN, infinity and what 64 bits cannot hold give 0.
constexpr std::int16_t wrapToInt16(double value) noexcept
{
    constexpr double limit = 9223372036854775808.0; // 2^63
    if (!(value > -limit && value < limit))
        return 0;
    return static_cast<std::int16_t>(static_cast<std::int64_t>(value));
}
