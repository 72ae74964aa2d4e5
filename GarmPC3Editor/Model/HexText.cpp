#include "GarmPC3Editor/Model/HexText.h"

#include <algorithm>
#include <cstdint>
#include <string>
#include <utility>

namespace
{
constexpr unsigned digitValue(OdChar c)
{
    if (c >= '0' && c <= '9')
        return static_cast<unsigned>(c - '0');
    if (c >= 'A' && c <= 'F')
        return static_cast<unsigned>(c - 'A' + 10);
    if (c >= 'a' && c <= 'f')
        return static_cast<unsigned>(c - 'a' + 10);
    return 0;
}

constexpr bool isLowerCaseHexDigit(OdChar c)
{
    return c >= 'a' && c <= 'f';
}
} // namespace

OdString hexFromBytes(std::span<const unsigned char> bytes)
{
    static constexpr OdChar digits[] = OD_T("0123456789ABCDEF");
    std::basic_string<OdChar> text(bytes.size() * 2, OdChar());
    auto* to = text.data();
    for (const unsigned byte : bytes)
    {
        *to++ = digits[byte >> 4];
        *to++ = digits[byte & 15];
    }
    return OdString(std::move(text));
}

void bytesFromHex(OdStringView text, std::span<unsigned char> out) noexcept
{
    const std::size_t count = std::min(text.size() / 2, out.size());
    for (std::size_t i = 0; i < count; ++i)
        out[i] = static_cast<unsigned char>(digitValue(text[2 * i]) << 4 | digitValue(text[2 * i + 1]));
}

OdString withUpperCaseHexDigits(OdString text)
{
    // Nearly every text is upper case already, and to see that in a long one costs far less than to copy it. In the
    // units' own width and without stopping, so that the compiler looks at many at once.
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
