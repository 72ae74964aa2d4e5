#include "GarmPC3Editor/GmMetaNode.h"
#include "common/Printable.h"
#include "plothost/Reports.h"

#include <array>
#include <cstdio>

namespace plothost
{
using apps::columns;
using apps::printable;

namespace
{
using Lines = std::vector<std::vector<std::string>>;

// At most this many private bytes are dumped; --out and --json write all of them.
constexpr std::size_t mostDumped = 64;

std::string yesNo(bool value)
{
    return value ? "yes" : "no";
}

std::string orNone(const OdString& text)
{
    return text.isEmpty() ? "-" : printable(text);
}

std::string hex(DWORD value)
{
    std::array<char, 16> text;
    std::snprintf(text.data(), text.size(), "0x%X", static_cast<unsigned>(value));
    return text.data();
}

std::string valueText(const DevModeField& field)
{
    if (const auto* number = std::get_if<std::int64_t>(&field.value))
        return std::to_string(*number);
    if (const auto* text = std::get_if<OdString>(&field.value))
        return "\"" + printable(*text) + "\"";
    return "not in the block";
}

std::string flagText(const DevModeField& field)
{
    return !field.flagged ? "" : *field.flagged ? "flagged" : "-";
}

std::string dump(const std::vector<BYTE>& bytes)
{
    std::string text;
    for (std::size_t i = 0; i < bytes.size() && i < mostDumped; ++i)
    {
        text += (i % 16 == 0 ? (i == 0 ? "    " : "\n    ") : " ") + odHex<char>({&bytes[i], 1});
    }
    if (bytes.size() > mostDumped)
        text += "\n    ...";
    return text + "\n";
}

std::string textOf(const DecodedDevMode& devMode)
{
    if (!devMode.problem.empty())
        return "DEVMODE: " + devMode.problem + "\n";

    std::string text = "DEVMODE: " + std::to_string(devMode.size) + " + " + std::to_string(devMode.driverExtra) +
                       " bytes, dmFields " + hex(devMode.flags) + "\n";
    if (devMode.unnamedFlags != 0)
        text += "  flags without a name: " + hex(devMode.unnamedFlags) + "\n";
    if (devMode.bytesBehind != 0)
        text += "  bytes after the block: " + std::to_string(devMode.bytesBehind) + "\n";
    Lines lines;
    for (const DevModeField& field : devMode.fields)
        lines.push_back({field.name, flagText(field), valueText(field), field.symbol});
    text += columns(lines, 2);
    text += "  private bytes: " + std::to_string(devMode.privateBytes.size()) + "\n";
    if (!devMode.privateBytes.empty())
        text += dump(devMode.privateBytes);
    return text;
}
} // namespace

std::string driverTypeName(std::int16_t driverType)
{
    return driverType == eWindowsDriver ? "Windows system printer" : "";
}

std::string driverTypeText(std::int16_t driverType)
{
    const std::string name = driverTypeName(driverType);
    return std::to_string(driverType) + (name.empty() ? "" : " (" + name + ")");
}

std::string textOf(const ListReport& report)
{
    std::string text = report.printers.empty() ? "No printers\n" : "Printers\n";
    Lines printers;
    if (!report.printers.empty())
        printers.push_back({"", "name", "driver", "port"});
    for (const ListReport::Printer& printer : report.printers)
        printers.push_back(
            {printer.isDefault ? "*" : "", orNone(printer.name), orNone(printer.driver), orNone(printer.port)});
    text += columns(printers, 0);

    text += report.configurations.empty() ? "No configurations on the search path\n" : "Configurations\n";
    Lines configurations;
    for (const ListReport::Configuration& configuration : report.configurations)
        configurations.push_back({printable(configuration.name), printable(configuration.path)});
    text += columns(configurations, 3);

    text += "Search path\n";
    for (const OdString& folder : report.folders)
        text += "   " + printable(folder) + "\n";
    return text;
}

std::string textOf(const DevModeReport& report)
{
    std::string text = columns({{"device", printable(report.deviceName)},
                                {"result", yesNo(report.result)},
                                {"printer", orNone(report.printerName)},
                                {"paper", orNone(report.paperName)},
                                {"driver type", driverTypeText(report.driverType)},
                                {"model", orNone(report.canonicalModelName)}},
                               0);
    return text + (report.devMode.empty() ? "DEVMODE: none\n" : textOf(decodeDevMode(report.devMode)));
}

std::string textOf(const BackgroundReport& report)
{
    return columns({{"device", printable(report.deviceName)}, {"flag", report.flag ? "1" : "0"}}, 0);
}

std::string textOf(const EditReport& report)
{
    return columns({{report.isPrinter ? "printer" : "configuration", printable(report.name)},
                    {"file", orNone(report.fileName)},
                    {"paper", orNone(report.paperName)},
                    {"result", driverTypeText(report.result)},
                    {"model", orNone(report.canonicalModelName)}},
                   0);
}

std::string textOf(const CommandsReport& report)
{
    if (report.commands.empty())
        return "No commands\n";
    Lines lines = {{"global name", "local name", "group"}};
    for (const CommandsReport::Command& command : report.commands)
        lines.push_back({printable(command.globalName), printable(command.localName), printable(command.group)});
    return columns(lines, 0);
}
} // namespace plothost
