#include "plothost/ShowReport.h"

#include "plothost/Json.h"
#include "plothost/Printable.h"

#include <array>
#include <charconv>
#include <cmath>

namespace plothost
{
namespace
{
// Names and values of block "custom" are shown up to here; --full and --json give all of them.
constexpr std::size_t mostShown = 64;

std::string numberText(double value)
{
    std::array<char, 400> text;
    const auto [end, error] = std::to_chars(text.data(), text.data() + text.size(), value);
    return {text.data(), end};
}

std::string valueText(const KeyValue& value)
{
    if (const auto* flag = std::get_if<bool>(&value))
        return *flag ? "true" : "false";
    if (const auto* whole = std::get_if<std::int32_t>(&value))
        return std::to_string(*whole);
    if (const auto* number = std::get_if<double>(&value))
        return numberText(*number);
    if (const auto* text = std::get_if<OdString>(&value))
        return "\"" + printable(*text) + "\"";
    return "absent";
}

// JSON has no NaN and no infinity, so these are texts.
Json valueJson(const KeyValue& value)
{
    if (const auto* flag = std::get_if<bool>(&value))
        return *flag;
    if (const auto* whole = std::get_if<std::int32_t>(&value))
        return *whole;
    if (const auto* number = std::get_if<double>(&value))
        return std::isfinite(*number) ? Json(*number) : Json(numberText(*number));
    if (const auto* text = std::get_if<OdString>(&value))
        return jsonText(*text);
    return nullptr;
}

bool isPresent(const ConfigurationBlock& block, const GmPlotCfg3& configuration)
{
    return block.isRequired || configuration.m_media.m_destination;
}

std::size_t depthOf(const ConfigurationBlock& block)
{
    const OdStringView path = block.path;
    std::size_t depth = 0;
    for (const OdChar c : path)
        depth += c == '/' ? 1 : 0;
    return depth;
}

OdStringView nameOf(const ConfigurationBlock& block)
{
    const OdStringView path = block.path;
    return path.substr(path.rfind('/') + 1); // npos + 1 is 0
}

std::string blockText(const ConfigurationBlock& block, const GmPlotCfg3& configuration)
{
    const std::size_t indent = 2 * depthOf(block);
    std::string text = std::string(indent, ' ') + odToUtf8(nameOf(block));
    if (!isPresent(block, configuration))
        return text + ": absent\n";
    std::vector<std::vector<std::string>> lines;
    for (const ConfigurationKey& key : block.keys)
        lines.push_back({odToUtf8(key.name), valueText(key.value(configuration))});
    return text + "\n" + columns(lines, indent + 2);
}

std::string customText(const GmPlotCfg3& configuration, bool full)
{
    if (!configuration.m_custom)
        return "custom: absent\n";
    const std::size_t most = full ? OdStringView::npos : mostShown;
    std::vector<std::vector<std::string>> lines;
    for (const CustomItem& item : customItems(*configuration.m_custom))
    {
        const auto* text = std::get_if<OdString>(&item.value);
        lines.push_back(
            {shortened(item.name, most), item.kind, text ? shortened(*text, most, "\"") : valueText(item.value)});
    }
    return "custom\n" + columns(lines, 2);
}

Json blockJson(const ConfigurationBlock& block, const GmPlotCfg3& configuration)
{
    if (!isPresent(block, configuration))
        return nullptr;
    Json json = Json::object();
    for (const ConfigurationKey& key : block.keys)
        json[odToUtf8(key.name)] = valueJson(key.value(configuration));
    return json;
}

// A list: the driver's keys may be equal in different kinds.
Json customJson(const GmPlotCfg3& configuration)
{
    if (!configuration.m_custom)
        return nullptr;
    Json json = Json::array();
    for (const CustomItem& item : customItems(*configuration.m_custom))
        json.push_back({{"name", jsonText(item.name)}, {"kind", item.kind}, {"value", valueJson(item.value)}});
    return json;
}

const char* bindingName(ShowReport::Binding binding)
{
    switch (binding)
    {
    case ShowReport::Binding::same:
        return "same";
    case ShowReport::Binding::rebound:
        return "rebound";
    case ShowReport::Binding::none:
        break;
    }
    return "none";
}

std::string bindingText(const ShowReport& report)
{
    const std::string printer = "\"" + printable(report.configuration->m_meta.m_win_device_name) + "\"";
    switch (report.binding)
    {
    case ShowReport::Binding::same:
        return "bound to " + printer;
    case ShowReport::Binding::rebound:
        return "rebound to " + printer + "; the file names \"" + printable(report.storedPrinter) + "\"";
    case ShowReport::Binding::none:
        break;
    }
    return "not bound to a Windows driver";
}
} // namespace

std::vector<CustomItem> customItems(const GmCustomNode& custom)
{
    std::vector<CustomItem> items;
    for (const auto& [name, text] : custom.m_numbers)
        items.push_back({"number", name, text});
    for (const auto& [name, text] : custom.m_binaries)
        items.push_back({"binary", name, text});
    for (const auto& [name, text] : custom.m_strings)
        items.push_back({"string", name, text});
    for (const auto& [name, flag] : custom.m_flags)
        items.push_back({"flag", name, flag != 0});
    return items;
}

std::string textOf(const ShowReport& report)
{
    std::string text = columns({{"file", printable(report.path)}, {"printer", bindingText(report)}}, 0);
    for (const ConfigurationBlock& block : configurationBlocks())
        text += blockText(block, *report.configuration);
    return text + customText(*report.configuration, report.full);
}

std::string jsonOf(const ShowReport& report)
{
    Json configuration = Json::object();
    for (const ConfigurationBlock& block : configurationBlocks())
        configuration[Json::json_pointer("/" + odToUtf8(block.path))] = blockJson(block, *report.configuration);
    configuration["custom"] = customJson(*report.configuration);
    return printed({{"file", jsonText(report.path)},
                    {"binding", bindingName(report.binding)},
                    {"storedPrinter", jsonText(report.storedPrinter)},
                    {"printer", jsonText(report.configuration->m_meta.m_win_device_name)},
                    {"configuration", configuration}});
}
} // namespace plothost
