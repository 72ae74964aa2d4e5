#include "common/Json.h"
#include "plothost/Reports.h"

namespace plothost
{
using apps::Json;
using apps::jsonText;
using apps::printed;

namespace
{
Json jsonValue(const DevModeField& field)
{
    if (const auto* number = std::get_if<std::int64_t>(&field.value))
        return *number;
    if (const auto* text = std::get_if<OdString>(&field.value))
        return jsonText(*text);
    return nullptr;
}

Json jsonOf(const DevModeField& field)
{
    Json json = {{"name", field.name}, {"value", jsonValue(field)}};
    json["symbol"] = field.symbol.empty() ? Json() : Json(field.symbol);
    json["flagged"] = field.flagged ? Json(*field.flagged) : Json();
    return json;
}

// Null for none, an object with "problem" for bytes that are not a DEVMODEW.
Json devModeJson(const std::vector<BYTE>& bytes)
{
    if (bytes.empty())
        return nullptr;
    const DecodedDevMode devMode = decodeDevMode(bytes);
    Json json = {{"bytes", devMode.byteCount}};
    if (!devMode.problem.empty())
    {
        json["problem"] = devMode.problem;
        return json;
    }
    json["size"] = devMode.size;
    json["driverExtra"] = devMode.driverExtra;
    json["bytesBehind"] = devMode.bytesBehind;
    json["flags"] = devMode.flags;
    json["flagNames"] = devMode.flagNames;
    json["unnamedFlags"] = devMode.unnamedFlags;
    json["fields"] = Json::array();
    for (const DevModeField& field : devMode.fields)
        json["fields"].push_back(jsonOf(field));
    json["privateBytes"] = {{"size", devMode.privateBytes.size()}, {"hex", odHex<char>(devMode.privateBytes)}};
    return json;
}
} // namespace

std::string jsonOf(const ListReport& report)
{
    Json json = {{"printers", Json::array()}, {"configurations", Json::array()}, {"searchPath", Json::array()}};
    for (const ListReport::Printer& printer : report.printers)
        json["printers"].push_back({{"name", jsonText(printer.name)},
                                    {"driver", jsonText(printer.driver)},
                                    {"port", jsonText(printer.port)},
                                    {"default", printer.isDefault}});
    for (const ListReport::Configuration& configuration : report.configurations)
        json["configurations"].push_back(
            {{"name", jsonText(configuration.name)}, {"path", jsonText(configuration.path)}});
    for (const OdString& folder : report.folders)
        json["searchPath"].push_back(jsonText(folder));
    return printed(json);
}

std::string jsonOf(const DevModeReport& report)
{
    return printed({{"deviceName", jsonText(report.deviceName)},
                    {"result", report.result},
                    {"printerName", jsonText(report.printerName)},
                    {"paperName", jsonText(report.paperName)},
                    {"driverType", report.driverType},
                    {"canonicalModelName", jsonText(report.canonicalModelName)},
                    {"devMode", devModeJson(report.devMode)}});
}

std::string jsonOf(const BackgroundReport& report)
{
    return printed({{"deviceName", jsonText(report.deviceName)}, {"flag", report.flag ? 1 : 0}});
}

std::string jsonOf(const EditReport& report)
{
    return printed({{"plotCfgName", jsonText(report.name)},
                    {"bSystemPrinter", report.isPrinter},
                    {"fileName", jsonText(report.fileName)},
                    {"paperName", jsonText(report.paperName)},
                    {"result", report.result},
                    {"canonicalModelName", jsonText(report.canonicalModelName)}});
}
} // namespace plothost
