#pragma once

#include "kernel/OdChar.h"

#include <compare>
#include <cstddef>

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

// UTF-16 to UTF-8 and back. Invalid input becomes U+FFFD; neither function throws for it.
std::string odToUtf8(OdStringView text);
std::basic_string<OdChar> odFromUtf8(std::string_view text);

// Reads the UTF-8 code point at i, which must be inside the text, and moves i past it. An invalid sequence yields
// U+FFFD and skips one byte.
constexpr char32_t odReplacementCharacter = 0xFFFD;
char32_t odNextCodePoint(std::string_view text, std::size_t& i) noexcept;
