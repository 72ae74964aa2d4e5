#pragma once

#include "kernel/OdChar.h"

#include <compare>
#include <cstddef>

// The one way this product compares without regard to case: A to Z are folded, every other code unit stands for
// itself, whatever the platform and the locale.
constexpr OdChar odFoldCase(OdChar c) noexcept
{
    return c >= 'A' && c <= 'Z' ? static_cast<OdChar>(c - 'A' + 'a') : c;
}

bool odEqualNoCase(OdStringView a, OdStringView b) noexcept;

// Order of two texts without regard to case, by folded code unit.
std::strong_ordering odCompareNoCase(OdStringView a, OdStringView b) noexcept;

// True when text begins (ends) with the given part, without regard to case. A text shorter than the part does not.
bool odStartsWithNoCase(OdStringView text, OdStringView start) noexcept;
bool odEndsWithNoCase(OdStringView text, OdStringView end) noexcept;

// The text in a fixed-size slot such as a DEVMODEW name or a paper name: up to the first NUL, or all of the slot when
// there is none. Drivers do fill slots without a terminator.
OdStringView odBoundedView(const OdChar* slot, std::size_t capacity) noexcept;

// A view on a text that may be null (empty then).
inline OdStringView odViewOrEmpty(const OdChar* text) noexcept
{
    return text ? OdStringView(text) : OdStringView();
}

// UTF-16 to UTF-8 and back. What is not valid on the way in becomes U+FFFD; neither throws for bad text.
std::string odToUtf8(OdStringView text);
std::basic_string<OdChar> odFromUtf8(std::string_view text);

// Reads one code point of UTF-8 at i, which must be inside the text, and moves i behind it. A bad sequence gives U+FFFD
// and skips one byte.
constexpr char32_t odReplacementCharacter = 0xFFFD;
char32_t odNextCodePoint(std::string_view text, std::size_t& i) noexcept;
