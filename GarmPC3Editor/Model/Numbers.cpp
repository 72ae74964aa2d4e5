#include "GarmPC3Editor/Model/Numbers.h"

#include <algorithm>
#include <string>
#include <utility>

namespace
{
constexpr bool isDigit(OdChar c)
{
    return c >= '0' && c <= '9';
}

// quirk 5
constexpr unsigned digitOrZero(OdChar c)
{
    return static_cast<unsigned>(std::max(odHexDigit(c), 0));
}

constexpr bool isLowerCaseHexDigit(OdChar c)
{
    return c >= 'a' && c <= 'f';
}
} // namespace

bool numberFromDecimal(OdStringView text, std::int32_t& out) noexcept
{
    std::size_t i = 0;
    while (i < text.size() && odIsAsciiSpace(text[i]))
        ++i;
    const bool negative = i < text.size() && text[i] == '-';
    if (negative || (i < text.size() && text[i] == '+'))
        ++i;
    if (i == text.size() || !isDigit(text[i]))
        return false;

    // Unsigned, so that any number of digits wraps; the lower 32 bits are right even after an overflow.
    std::uint64_t value = 0;
    for (; i < text.size() && isDigit(text[i]); ++i)
        value = value * 10 + static_cast<unsigned>(text[i] - '0');
    out = static_cast<std::int32_t>(static_cast<std::uint32_t>(negative ? 0 - value : value));
    return true;
}

OdString decimalFromNumber(std::int64_t value)
{
    return OdString(odDecimal(value));
}

OdString hexFromBytes(std::span<const unsigned char> bytes)
{
    return OdString(odHex<OdChar>(bytes));
}

void bytesFromHex(OdStringView text, std::span<unsigned char> out) noexcept
{
    const std::size_t count = std::min(text.size() / 2, out.size());
    for (std::size_t i = 0; i < count; ++i)
        out[i] = static_cast<unsigned char>(digitOrZero(text[2 * i]) << 4 | digitOrZero(text[2 * i + 1]));
}

OdString withUpperCaseHexDigits(OdString text)
{
    // Nearly every text is upper case already, and checking a long one costs far less than copying it. The loop stays
    // in 16 bits and never stops early, so that the compiler can vectorise it.
    std::uint16_t anyLower = 0;
    for (const OdChar c : text.view())
        anyLower = static_cast<std::uint16_t>(anyLower | (static_cast<std::uint16_t>(c - 'a') < 6));
    if (!anyLower)
        return text;

    std::basic_string<OdChar> upper(text.view());
    for (OdChar& c : upper)
        c = isLowerCaseHexDigit(c) ? static_cast<OdChar>(c - 'a' + 'A') : c;
    return OdString(std::move(upper));
}
