#include "pia_tree/Characters.h"

#include "kernel/OdText.h"

#include <cstring>

namespace pia
{
namespace
{
bool isAscii(std::string_view text) noexcept
{
    unsigned char all = 0;
    for (const char c : text)
        all = static_cast<unsigned char>(all | static_cast<unsigned char>(c));
    return all < 0x80;
}

bool isUtf8(std::string_view text) noexcept
{
    for (std::size_t i = 0; i < text.size();)
    {
        const std::size_t before = i;
        // An invalid sequence is replaced and skips one byte; a real U+FFFD is three bytes long.
        if (odNextCodePoint(text, i) == odReplacementCharacter && i == before + 1)
            return false;
    }
    return true;
}

// Bytes 0x80 to 0x9F; all others map to the same code.
constexpr OdChar windows1252High[32] = {
    0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
    0x2039, 0x0152, 0x008D, 0x017D, 0x008F, 0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
    0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178,
};

void appendCodePoint(std::basic_string<OdChar>& out, char32_t c)
{
    if (c < 0x10000)
    {
        out.push_back(static_cast<OdChar>(c));
        return;
    }
    out.push_back(static_cast<OdChar>(0xD800 + ((c - 0x10000) >> 10)));
    out.push_back(static_cast<OdChar>(0xDC00 + ((c - 0x10000) & 0x3FF)));
}
} // namespace

Charset charsetOf(std::string_view text) noexcept
{
    if (isAscii(text))
        return Charset::ascii;
    return isUtf8(text) ? Charset::utf8 : Charset::windows1252;
}

std::basic_string<OdChar> decoded(std::string_view raw, Charset charset)
{
    if (charset == Charset::ascii && (raw.empty() || !std::memchr(raw.data(), '\\', raw.size())))
        return std::basic_string<OdChar>(raw.begin(), raw.end());

    std::basic_string<OdChar> out;
    out.reserve(raw.size());
    for (std::size_t i = 0; i < raw.size();)
    {
        const auto byte = static_cast<unsigned char>(raw[i]);
        if (const int unit = byte == '\\' ? escapeAtFront(raw.substr(i)) : -1; unit >= 0)
        {
            out.push_back(static_cast<OdChar>(unit));
            i += escapeLength;
        }
        else if (byte >= 0x80 && charset == Charset::utf8)
            appendCodePoint(out, odNextCodePoint(raw, i));
        else
        {
            out.push_back(byte >= 0x80 && byte < 0xA0 ? windows1252High[byte - 0x80] : static_cast<OdChar>(byte));
            ++i;
        }
    }
    return out;
}
} // namespace pia
