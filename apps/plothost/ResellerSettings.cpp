#include "plothost/ResellerSettings.h"

#include "host/GmResellerData.h"
#include "kernel/OdText.h"

namespace plothost
{
namespace
{
constexpr std::string_view byteOrderMark = "\xEF\xBB\xBF";

OdStringView trimmed(OdStringView text)
{
    return odTrimmed(text, [](OdChar c) { return c == ' ' || c == '\t' || c == '\r'; });
}
} // namespace

std::optional<ResellerSetting> resellerSetting(OdStringView text)
{
    const std::size_t equals = text.find('=');
    if (equals == OdStringView::npos)
        return std::nullopt;
    const OdStringView key = trimmed(text.substr(0, equals));
    const OdStringView value = trimmed(text.substr(equals + 1));
    if (key.empty() || value.empty())
        return std::nullopt;
    return ResellerSetting{OdString(key), OdString(value)};
}

ResellerSettings parseResellerSettings(std::string_view utf8)
{
    ResellerSettings result;
    if (utf8.starts_with(byteOrderMark))
        utf8.remove_prefix(byteOrderMark.size());
    for (std::size_t line = 1; !utf8.empty(); ++line)
    {
        const std::size_t end = utf8.find('\n');
        const auto text = odFromUtf8(utf8.substr(0, end));
        utf8.remove_prefix(end == std::string_view::npos ? utf8.size() : end + 1);
        const OdStringView content = trimmed(text);
        if (content.empty() || content.front() == '#' || content.front() == ';')
            continue;
        auto setting = resellerSetting(content);
        if (!setting)
        {
            result.problem = "line " + std::to_string(line) + " is not KEY=VALUE";
            return result;
        }
        result.settings.push_back(std::move(*setting));
    }
    return result;
}

void storeResellerSettings(const std::vector<ResellerSetting>& settings)
{
    for (const ResellerSetting& setting : settings)
        GmResellerData::set(setting.key, setting.value);
}
} // namespace plothost
