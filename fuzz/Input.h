#pragma once

#include "kernel/OdString.h"

#include <algorithm>
#include <bit>
#include <cstddef>
#include <cstdint>
#include <limits>
#include <span>
#include <type_traits>

// Splits an input into numbers and texts. Numbers come from its end and texts from its start, so that changing one
// leaves the others in place. A used-up input yields 0 and "", so every input is a valid script. Inputs kept as
// regressions depend on how they are read: a change here turns them into other scripts.
class Input
{
public:
    Input(const std::uint8_t* data, std::size_t size) : m_rest(data, size) {}

    bool isEmpty() const noexcept { return m_rest.empty(); }

    template <class Number>
    requires std::is_integral_v<Number> Number number()
    {
        std::make_unsigned_t<Number> value = 0;
        for (std::size_t i = 0; i < sizeof value; ++i)
            value = static_cast<decltype(value)>(value << 8 * (i != 0) | byte());
        return static_cast<Number>(value);
    }

    // From 0 to count - 1, for a count of at most 256.
    std::size_t below(std::size_t count) { return byte() % count; }
    std::size_t upTo(std::size_t most) { return number<std::uint16_t>() % (most + 1); }
    bool flag() { return byte() & 1; }
    // Seldom true: for what would prevent the rest from being reached.
    bool oneIn(std::size_t count) { return below(count) == count - 1; }

    template <class Item, std::size_t count>
    const Item& oneOf(const Item (&items)[count])
    {
        return items[below(count)];
    }

    // Mostly values at which something ends.
    std::int32_t integer()
    {
        static constexpr std::int32_t boundaries[] = {
            0,     1,     2,     3,     9,     8,   -1,  -4,  75,        76,        77,
            100,   155,   156,   188,   212,   219, 220, 221, 255,       256,       257,
            300,   32767, 32768, 65535, 65536, 600, 228, 32,  INT32_MAX, INT32_MIN, INT32_MAX - 1,
            -32768};
        return oneIn(4) ? number<std::int32_t>() : oneOf(boundaries);
    }

    double real()
    {
        constexpr double infinity = std::numeric_limits<double>::infinity();
        constexpr double nan = std::numeric_limits<double>::quiet_NaN();
        static constexpr double boundaries[] = {0.0,    -0.0,   -1.0,  1.0,      4.2,
                                                100.0,  297.0,  600.0, 0.0001,   0.00009,
                                                3276.7, 3276.8, 1e30,  -1e300,   9223372036854775808.0,
                                                1e-9,   32768., 2e9,   infinity, nan};
        return oneIn(4) ? std::bit_cast<double>(number<std::uint64_t>()) : oneOf(boundaries);
    }

    std::span<const std::uint8_t> bytes(std::size_t most)
    {
        const std::size_t count = upTo(most);
        const auto taken = m_rest.first(std::min(count, m_rest.size()));
        m_rest = m_rest.subspan(taken.size());
        return taken;
    }

    // One unit per byte, or any units.
    OdString text(std::size_t most)
    {
        const bool wide = oneIn(4);
        const auto taken = bytes(wide ? 2 * most : most);
        std::basic_string<OdChar> units(wide ? taken.size() / 2 : taken.size(), OdChar());
        for (std::size_t i = 0; i < units.size(); ++i)
            units[i] = static_cast<OdChar>(wide ? taken[2 * i] | taken[2 * i + 1] << 8 : taken[i]);
        return OdString(std::move(units));
    }

private:
    std::uint8_t byte()
    {
        if (m_rest.empty())
            return 0;
        const std::uint8_t last = m_rest.back();
        m_rest = m_rest.first(m_rest.size() - 1);
        return last;
    }

    std::span<const std::uint8_t> m_rest;
};
