#include "GarmPC3Editor/HexText.h"

#include <algorithm>
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

OdString withUpperCaseHexDigits(OdStringView text)
{
    std::basic_string<OdChar> upper(text);
    for (OdChar& c : upper)
        c = isLowerCaseHexDigit(c) ? static_cast<OdChar>(c - 'a' + 'A') : c;
    return OdString(std::move(upper));
}
