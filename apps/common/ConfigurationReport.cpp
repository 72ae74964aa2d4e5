#include "common/ConfigurationReport.h"

#include "GarmPC3Editor/Model/FieldVisitor.h"
#include "common/Printable.h"

#include <array>
#include <charconv>
#include <cmath>
#include <utility>
#include <variant>
#include <vector>

namespace apps
{
namespace
{
// For names and values of block "custom".
constexpr std::size_t mostShown = 64;

std::string numberText(double value)
{
    std::array<char, 400> text;
    const auto [end, error] = std::to_chars(text.data(), text.data() + text.size(), value);
    return {text.data(), end};
}

struct TextValue
{
    std::string operator()(bool value) const { return value ? "true" : "false"; }
    std::string operator()(std::int32_t value) const { return std::to_string(value); }
    std::string operator()(double value) const { return numberText(value); }
    std::string operator()(const OdString& value) const { return "\"" + printable(value) + "\""; }
    std::string operator()(const GmOptionalFlag& value) const { return value ? (*this)(*value) : "absent"; }
};

struct JsonValue
{
    Json operator()(bool value) const { return value; }
    Json operator()(std::int32_t value) const { return value; }
    // JSON has no NaN and no infinity, so these are texts.
    Json operator()(double value) const { return std::isfinite(value) ? Json(value) : Json(numberText(value)); }
    Json operator()(const OdString& value) const { return jsonText(value); }
    Json operator()(const GmOptionalFlag& value) const { return value ? Json(*value) : Json(); }
};

template <class Value>
auto valueOf(const Field& field, Value value)
{
    return std::visit([&value](const auto* member) { return value(*member); }, field.member);
}

// Calls report(kind, name, value) for the items of the custom data in the order in which they are written.
template <class Report>
void forEachItem(const GmCustomNode& custom, Report report)
{
    for (const auto& [name, text] : custom.m_numbers)
        report("number", name, text);
    for (const auto& [name, text] : custom.m_binaries)
        report("binary", name, text);
    for (const auto& [name, text] : custom.m_strings)
        report("string", name, text);
    for (const auto& [name, flag] : custom.m_flags)
        report("flag", name, flag != 0);
}

class TextReport : public FieldVisitor
{
public:
    explicit TextReport(bool full) : m_most(full ? OdStringView::npos : mostShown) {}

    std::string take() { return std::move(m_text); }

    void field(const Field& field) override { m_lines.push_back({odToUtf8(field.key), valueOf(field, TextValue())}); }

    bool beginBlock(const FieldBlock& block) override
    {
        flush();
        m_text += std::string(2 * m_depth, ' ') + odToUtf8(block.key) + (block.isPresent ? "\n" : ": absent\n");
        ++m_depth;
        return true;
    }

    void endBlock() override
    {
        flush();
        --m_depth;
    }

    void customItems(GmCustomNode& custom) override
    {
        forEachItem(custom,
                    [this](const char* kind, const OdString& name, const auto& value) {
                        m_lines.push_back({shortened(name, m_most), kind, itemText(value)});
                    });
    }

private:
    std::string itemText(const OdString& text) const { return shortened(text, m_most, "\""); }
    static std::string itemText(bool flag) { return TextValue()(flag); }

    void flush()
    {
        m_text += columns(m_lines, 2 * m_depth);
        m_lines.clear();
    }

    std::size_t m_most;
    std::string m_text;
    std::vector<std::vector<std::string>> m_lines; // of the current block
    std::size_t m_depth = 0;
};

class JsonReport : public FieldVisitor
{
public:
    Json take() { return std::move(m_blocks.front().second); }

    void field(const Field& field) override
    {
        m_blocks.back().second[odToUtf8(field.key)] = valueOf(field, JsonValue());
    }

    bool beginBlock(const FieldBlock& block) override
    {
        m_blocks.emplace_back(odToUtf8(block.key), block.isPresent ? Json::object() : Json());
        return true;
    }

    void endBlock() override
    {
        auto [key, json] = std::move(m_blocks.back());
        m_blocks.pop_back();
        m_blocks.back().second[key] = std::move(json);
    }

    // A list: the driver may use one key in several kinds.
    void customItems(GmCustomNode& custom) override
    {
        Json& list = m_blocks.back().second = Json::array();
        forEachItem(custom,
                    [&list](const char* kind, const OdString& name, const auto& value) {
                        list.push_back({{"name", jsonText(name)}, {"kind", kind}, {"value", JsonValue()(value)}});
                    });
    }

private:
    std::vector<std::pair<std::string, Json>> m_blocks{{"", Json::object()}}; // open ones, by name
};

// A walk may change what it visits, so it uses a copy.
template <class Report>
auto walked(GmPlotCfg3 configuration, Report report)
{
    forEachField(configuration, report);
    return report.take();
}
} // namespace

std::string configurationText(const GmPlotCfg3& configuration, bool full)
{
    return walked(configuration, TextReport(full));
}

Json configurationJson(const GmPlotCfg3& configuration)
{
    return walked(configuration, JsonReport());
}
} // namespace apps
