#include "kernel/OdText.h"

#include <algorithm>
#include <charconv>
#include <iterator>

namespace
{
void appendUtf8(std::string& out, char32_t c)
{
    const auto put = [&out](char32_t value) { out.push_back(static_cast<char>(static_cast<unsigned char>(value))); };
    if (c < 0x80)
        put(c);
    else if (c < 0x800)
    {
        put(0xC0 | (c >> 6));
        put(0x80 | (c & 0x3F));
    }
    else if (c < 0x10000)
    {
        put(0xE0 | (c >> 12));
        put(0x80 | ((c >> 6) & 0x3F));
        put(0x80 | (c & 0x3F));
    }
    else
    {
        put(0xF0 | (c >> 18));
        put(0x80 | ((c >> 12) & 0x3F));
        put(0x80 | ((c >> 6) & 0x3F));
        put(0x80 | (c & 0x3F));
    }
}

void appendUtf16(std::basic_string<OdChar>& out, char32_t c)
{
    if (c < 0x10000)
    {
        out.push_back(static_cast<OdChar>(c));
        return;
    }
    out.push_back(static_cast<OdChar>(0xD800 + ((c - 0x10000) >> 10)));
    out.push_back(static_cast<OdChar>(0xDC00 + ((c - 0x10000) & 0x3FF)));
}

constexpr bool isHighSurrogate(OdChar c)
{
    return c >= 0xD800 && c <= 0xDBFF;
}

constexpr bool isLowSurrogate(OdChar c)
{
    return c >= 0xDC00 && c <= 0xDFFF;
}

} // namespace

bool odEqualNoCase(OdStringView a, OdStringView b) noexcept
{
    return a.size() == b.size() && odCompareNoCase(a, b) == std::strong_ordering::equal;
}

std::strong_ordering odCompareNoCase(OdStringView a, OdStringView b) noexcept
{
    const std::size_t common = std::min(a.size(), b.size());
    for (std::size_t i = 0; i < common; ++i)
        if (const auto order = odFoldCase(a[i]) <=> odFoldCase(b[i]); order != 0)
            return order;
    return a.size() <=> b.size();
}

bool odStartsWithNoCase(OdStringView text, OdStringView start) noexcept
{
    return text.size() >= start.size() && odEqualNoCase(text.substr(0, start.size()), start);
}

bool odEndsWithNoCase(OdStringView text, OdStringView end) noexcept
{
    return text.size() >= end.size() && odEqualNoCase(text.substr(text.size() - end.size()), end);
}

OdStringView odBoundedView(const OdChar* slot, std::size_t capacity) noexcept
{
    return OdStringView(slot, static_cast<std::size_t>(std::find(slot, slot + capacity, OdChar()) - slot));
}

std::basic_string<OdChar> odDecimal(std::int64_t value)
{
    char digits[24];
    return {digits, std::to_chars(digits, std::end(digits), value).ptr};
}

std::string odToUtf8(OdStringView text)
{
    std::string out;
    out.reserve(text.size());
    for (std::size_t i = 0; i < text.size(); ++i)
    {
        const OdChar c = text[i];
        if (isHighSurrogate(c) && i + 1 < text.size() && isLowSurrogate(text[i + 1]))
        {
            const char32_t high = static_cast<char32_t>(c) - 0xD800;
            const char32_t low = static_cast<char32_t>(text[++i]) - 0xDC00;
            appendUtf8(out, 0x10000 + (high << 10) + low);
        }
        else
            appendUtf8(out,
                       isHighSurrogate(c) || isLowSurrogate(c) ? odReplacementCharacter : static_cast<char32_t>(c));
    }
    return out;
}

char32_t odNextCodePoint(std::string_view text, std::size_t& i) noexcept
{
    const auto byteAt = [text](std::size_t k) { return static_cast<std::uint8_t>(text[k]); };
    const std::uint8_t lead = byteAt(i++);
    if (lead < 0x80)
        return lead;

    const unsigned following = lead >= 0xF0 ? 3 : lead >= 0xE0 ? 2 : 1;
    if (lead < 0xC2 || lead > 0xF4 || text.size() - i < following)
        return odReplacementCharacter;

    char32_t c = lead & (0x3FU >> following);
    for (unsigned k = 0; k < following; ++k)
    {
        if ((byteAt(i + k) & 0xC0) != 0x80)
            return odReplacementCharacter;
        c = (c << 6) | (byteAt(i + k) & 0x3F);
    }
    const bool overlong = (following == 2 && c < 0x800) || (following == 3 && c < 0x10000);
    const bool surrogate = c >= 0xD800 && c <= 0xDFFF;
    if (overlong || surrogate || c > 0x10FFFF)
        return odReplacementCharacter;
    i += following;
    return c;
}

std::basic_string<OdChar> odFromUtf8(std::string_view text)
{
    std::basic_string<OdChar> out;
    out.reserve(text.size());
    for (std::size_t i = 0; i < text.size();)
        appendUtf16(out, odNextCodePoint(text, i));
    return out;
}
