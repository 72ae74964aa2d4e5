#pragma once

#include "kernel/OdText.h"

#include <cstddef>
#include <string>
#include <string_view>

// The characters of a PC3 text. The writer uses plain ASCII, with an escape for every other UTF-16 code unit. People
// who edit a text put in whatever their editor saves.
namespace pia
{
// How raw bytes above 0x7E are read; one choice for the whole text.
enum class Charset
{
    ascii,       // there are none
    utf8,        // the whole text is valid UTF-8
    windows1252, // anything else; its five unassigned bytes map to the same code
};

Charset charsetOf(std::string_view text) noexcept;

// An escape is \U+XXXX with four hexadecimal digits of either case and stands for one code unit.
constexpr std::size_t escapeLength = 7;

// The code unit of the escape at the start of the text; -1 if there is none.
template <class Unit>
constexpr int escapeAtFront(std::basic_string_view<Unit> text) noexcept
{
    if (text.size() < escapeLength || text[0] != '\\' || text[1] != 'U' || text[2] != '+')
        return -1;
    int value = 0;
    for (std::size_t i = 3; i < escapeLength; ++i)
    {
        const int digit = odHexDigit(static_cast<unsigned>(text[i]));
        if (digit < 0)
            return -1;
        value = value * 16 + digit;
    }
    return value;
}

// The text that a raw name or value stands for.
std::basic_string<OdChar> decoded(std::string_view raw, Charset charset);
} // namespace pia
