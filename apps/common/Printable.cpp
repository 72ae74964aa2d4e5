#include "common/Printable.h"

#include <algorithm>

namespace apps
{
namespace
{
bool isControl(OdChar c)
{
    const bool classic = c < 0x20 || (c >= 0x7F && c <= 0x9F);
    const bool separator = c == 0x2028 || c == 0x2029;
    const bool direction = c == 0x200E || c == 0x200F || (c >= 0x202A && c <= 0x202E) || (c >= 0x2066 && c <= 0x2069);
    return classic || separator || direction;
}

constexpr std::size_t widestColumn = 64;
} // namespace

std::string printable(OdStringView text)
{
    std::basic_string<OdChar> shown;
    shown.reserve(text.size());
    for (const OdChar c : text)
    {
        if (!isControl(c))
        {
            shown.push_back(c);
            continue;
        }
        shown.push_back('\\');
        shown.push_back('u');
        for (const int shift : {12, 8, 4, 0})
            shown.push_back(static_cast<OdChar>(odHexDigits[static_cast<std::size_t>(c >> shift) & 0xF]));
    }
    return odToUtf8(shown);
}

std::string quoted(OdStringView text)
{
    return "'" + printable(text) + "'";
}

std::string shortened(OdStringView text, std::size_t most, std::string_view quote)
{
    OdStringView part = text.substr(0, most);
    if (part.size() < text.size() && !part.empty() && part.back() >= 0xD800 && part.back() <= 0xDBFF)
        part.remove_suffix(1); // the first half of a character
    std::string shown = std::string(quote) + printable(part) + std::string(quote);
    return part.size() == text.size() ? shown : shown + "... (" + std::to_string(text.size()) + " characters)";
}

std::size_t displayWidth(std::string_view utf8) noexcept
{
    return static_cast<std::size_t>(
        std::count_if(utf8.begin(), utf8.end(), [](char c) { return (static_cast<unsigned char>(c) & 0xC0) != 0x80; }));
}

std::string columns(const std::vector<std::vector<std::string>>& lines, std::size_t indent)
{
    std::vector<std::size_t> widths;
    for (const auto& line : lines)
    {
        widths.resize(std::max(widths.size(), line.size()));
        for (std::size_t i = 0; i < line.size(); ++i)
            if (const std::size_t width = displayWidth(line[i]); width <= widestColumn)
                widths[i] = std::max(widths[i], width);
    }
    std::string text;
    for (const auto& line : lines)
    {
        std::string row(indent, ' ');
        for (std::size_t i = 0; i < line.size(); ++i)
        {
            row += line[i];
            const std::size_t width = displayWidth(line[i]);
            row.append(widths[i] - std::min(width, widths[i]) + 2, ' ');
        }
        row.erase(row.find_last_not_of(' ') + 1);
        text += row + "\n";
    }
    return text;
}
} // namespace apps
