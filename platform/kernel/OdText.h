#pragma once

#include "kernel/OdChar.h"

#include <compare>
#include <cstddef>
#include <cstdint>
#include <span>
#include <string>

// The only comparison without regard to case in this product: A to Z are folded, and every other code unit stands for
// itself, whatever the platform and the locale.
constexpr OdChar odFoldCase(OdChar c) noexcept
{
    return c >= 'A' && c <= 'Z' ? static_cast<OdChar>(c - 'A' + 'a') : c;
}

bool odEqualNoCase(OdStringView a, OdStringView b) noexcept;

// Orders two texts without regard to case, by folded code unit.
std::strong_ordering odCompareNoCase(OdStringView a, OdStringView b) noexcept;

// Whether text begins (ends) with the given part, without regard to case. A text shorter than the part does not.
bool odStartsWithNoCase(OdStringView text, OdStringView start) noexcept;
bool odEndsWithNoCase(OdStringView text, OdStringView end) noexcept;

// The text in a fixed-size slot such as a DEVMODEW name or a paper name: up to the first NUL, or the whole slot if
// there is none. Drivers do fill slots without a terminator.
OdStringView odBoundedView(const OdChar* slot, std::size_t capacity) noexcept;

// A view of a text that may be null; null is empty.
inline OdStringView odViewOrEmpty(const OdChar* text) noexcept
{
    return text ? OdStringView(text) : OdStringView();
}

// White space of the C locale.
constexpr bool odIsAsciiSpace(OdChar c) noexcept
{
    return c == ' ' || (c >= '\t' && c <= '\r');
}

// White space as Unicode has it.
constexpr bool odIsSpace(OdChar c) noexcept
{
    constexpr OdStringView others = OD_T("\u0085\u00A0\u1680\u2028\u2029\u202F\u205F\u3000");
    return odIsAsciiSpace(c) || (c >= 0x2000 && c <= 0x200A) || others.find(c) != others.npos;
}

// The text without its first and last units, as long as isBlank is true for them.
template <class IsBlank>
constexpr OdStringView odTrimmed(OdStringView text, IsBlank isBlank)
{
    while (!text.empty() && isBlank(text.front()))
        text.remove_prefix(1);
    while (!text.empty() && isBlank(text.back()))
        text.remove_suffix(1);
    return text;
}

// A whole number in base 10.
std::basic_string<OdChar> odDecimal(std::int64_t value);

inline constexpr char odHexDigits[] = "0123456789ABCDEF";

// The value of a hexadecimal digit of either case; -1 for any other character.
constexpr int odHexDigit(unsigned c) noexcept
{
    if (c >= '0' && c <= '9')
        return static_cast<int>(c - '0');
    if (c >= 'A' && c <= 'F')
        return static_cast<int>(c - 'A' + 10);
    return c >= 'a' && c <= 'f' ? static_cast<int>(c - 'a' + 10) : -1;
}

// Two upper-case hexadecimal digits per byte.
template <class Char>
std::basic_string<Char> odHex(std::span<const unsigned char> bytes)
{
    std::basic_string<Char> text(2 * bytes.size(), Char());
    Char* to = text.data();
    for (const unsigned byte : bytes)
    {
        *to++ = static_cast<Char>(odHexDigits[byte >> 4]);
        *to++ = static_cast<Char>(odHexDigits[byte & 15]);
    }
    return text;
}

// UTF-16 to UTF-8 and back. Invalid input becomes U+FFFD; neither function throws for it.
std::string odToUtf8(OdStringView text);
std::basic_string<OdChar> odFromUtf8(std::string_view text);

// Reads the UTF-8 code point at i, which must be inside the text, and moves i past it. An invalid sequence yields
// U+FFFD and skips one byte.
constexpr char32_t odReplacementCharacter = 0xFFFD;
char32_t odNextCodePoint(std::string_view text, std::size_t& i) noexcept;
