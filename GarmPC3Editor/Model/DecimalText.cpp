#include "GarmPC3Editor/Model/DecimalText.h"

#include <charconv>
#include <string>

namespace
{
// The white space of the C locale.
constexpr bool isSpace(OdChar c)
{
    return c == ' ' || (c >= '\t' && c <= '\r');
}

constexpr bool isDigit(OdChar c)
{
    return c >= '0' && c <= '9';
}

template <class Number>
OdString decimal(Number value)
{
    char digits[16];
    const auto end = std::to_chars(digits, digits + sizeof(digits), value).ptr;
    return OdString(std::basic_string<OdChar>(digits, end));
}
} // namespace

bool numberFromDecimal(OdStringView text, std::int32_t& out) noexcept
{
    std::size_t i = 0;
    while (i < text.size() && isSpace(text[i]))
        ++i;
    const bool negative = i < text.size() && text[i] == '-';
    if (negative || (i < text.size() && text[i] == '+'))
        ++i;
    if (i == text.size() || !isDigit(text[i]))
        return false;

    // Unsigned, so that any number of digits wraps; the lower 32 bits are right whatever went over the top.
    std::uint64_t value = 0;
    for (; i < text.size() && isDigit(text[i]); ++i)
        value = value * 10 + static_cast<unsigned>(text[i] - '0');
    out = static_cast<std::int32_t>(static_cast<std::uint32_t>(negative ? 0 - value : value));
    return true;
}

OdString decimalFromNumber(std::int32_t value)
{
    return decimal(value);
}

OdString decimalFromNumber(std::uint32_t value)
{
    return decimal(value);
}
