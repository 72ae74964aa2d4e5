#include "pia_tree/NumberText.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <optional>
#include <string>

namespace pia
{
namespace
{
// No double has more digits after the point; more would only be zeros.
constexpr int maxPrecision = 1074;
// A sign, the 309 digits before the point of the largest double, the point.
constexpr int maxBeforePrecision = 311;

OdString widened(const char* first, const char* last)
{
    return OdString(std::basic_string<OdChar>(first, last));
}

struct Unsigned
{
    bool negative;
    std::string_view digits; // what follows the sign; never begins with another sign
};

std::optional<Unsigned> splitSign(std::string_view text) noexcept
{
    while (!text.empty() && text.front() == ' ')
        text.remove_prefix(1);
    while (!text.empty() && text.back() == ' ')
        text.remove_suffix(1);

    Unsigned result{false, text};
    if (!text.empty() && (text.front() == '+' || text.front() == '-'))
    {
        result.negative = text.front() == '-';
        result.digits.remove_prefix(1);
    }
    if (result.digits.empty() || result.digits.front() == '+' || result.digits.front() == '-')
        return std::nullopt;
    return result;
}

bool isWord(std::string_view text, std::string_view lowerCaseWord) noexcept
{
    return std::equal(text.begin(), text.end(), lowerCaseWord.begin(), lowerCaseWord.end(),
                      [](char a, char b) { return (a >= 'A' && a <= 'Z' ? a - 'A' + 'a' : a) == b; });
}

bool startsLikeANumber(std::string_view text) noexcept
{
    return (text.front() >= '0' && text.front() <= '9') || text.front() == '.';
}

// A number is plain ASCII; any other unit becomes a byte that occurs in no number.
std::string bytesOf(OdStringView text)
{
    std::string bytes(text.size(), '\0');
    std::transform(text.begin(), text.end(), bytes.begin(),
                   [](OdChar c) { return c < 0x80 ? static_cast<char>(c) : '?'; });
    return bytes;
}

// Whether the digits before the exponent are all zero.
bool isWrittenAsZero(std::string_view digits) noexcept
{
    const auto end = std::find_if(digits.begin(), digits.end(), [](char c) { return c == 'e' || c == 'E'; });
    return std::none_of(digits.begin(), end, [](char c) { return c >= '1' && c <= '9'; });
}
} // namespace

OdString numberText(std::int32_t value)
{
    return OdString(odDecimal(value));
}

OdString numberText(double value, int precision)
{
    if (std::isnan(value))
        return OdString(OD_T("nan"));
    if (std::isinf(value))
        return OdString(value < 0 ? OD_T("-inf") : OD_T("inf"));

    char buffer[maxBeforePrecision + maxPrecision];
    if (precision >= 0)
    {
        const int digits = std::min(precision, maxPrecision);
        return widened(buffer, std::to_chars(buffer, std::end(buffer), value, std::chars_format::fixed, digits).ptr);
    }

    char* end = std::to_chars(buffer, std::end(buffer), value).ptr;
    if (std::none_of(buffer, end, [](char c) { return c == '.' || c == 'e'; }))
    {
        *end++ = '.';
        *end++ = '0';
    }
    return widened(buffer, end);
}

bool readNumber(std::string_view text, std::int32_t& out) noexcept
{
    const auto number = splitSign(text);
    if (!number)
        return false;

    const char* last = number->digits.data() + number->digits.size();
    // One digit more than the output can hold, so that the smallest number can be read before its sign is applied.
    std::int64_t value = 0;
    const auto [end, error] = std::from_chars(number->digits.data(), last, value);
    if (error != std::errc() || end != last)
        return false;
    if (number->negative)
        value = -value;
    if (value < INT32_MIN || value > INT32_MAX)
        return false;
    out = static_cast<std::int32_t>(value);
    return true;
}

bool readNumber(std::string_view text, double& out) noexcept
{
    const auto number = splitSign(text);
    if (!number)
        return false;

    double value = 0.0;
    if (isWord(number->digits, "nan"))
        value = std::numeric_limits<double>::quiet_NaN();
    else if (isWord(number->digits, "inf"))
        value = std::numeric_limits<double>::infinity();
    else
    {
        const char* last = number->digits.data() + number->digits.size();
        // The library would also accept "infinity" and "nan(1)".
        if (!startsLikeANumber(number->digits))
            return false;
        const auto [end, error] = std::from_chars(number->digits.data(), last, value);
        if (error != std::errc() || end != last)
            return false;
        // Too small is as much out of range as too large, but not every library says so.
        if (value == 0.0 && !isWrittenAsZero(number->digits))
            return false;
    }
    out = number->negative ? -value : value;
    return true;
}

bool readNumber(OdStringView text, std::int32_t& out)
{
    return readNumber(std::string_view(bytesOf(text)), out);
}

bool readNumber(OdStringView text, double& out)
{
    return readNumber(std::string_view(bytesOf(text)), out);
}
} // namespace pia
