#include "plothost/DetailRows.h"

#include "common/Printable.h"
#include "spooler/DevModeView.h"

#include <array>
#include <cstdio>

namespace plothost
{
using apps::printable;

namespace
{
std::string hex(DWORD value)
{
    std::array<char, 16> text;
    std::snprintf(text.data(), text.size(), "0x%X", static_cast<unsigned>(value));
    return text.data();
}

std::string shownValue(const DevModeField& field)
{
    if (const auto* number = std::get_if<std::int64_t>(&field.value))
        return std::to_string(*number);
    if (const auto* text = std::get_if<OdString>(&field.value))
        return printable(*text);
    return "not in the block";
}

void addDevMode(std::vector<DetailRow>& rows, std::span<const BYTE> bytes)
{
    const DecodedDevMode devMode = decodeDevMode(bytes);
    if (!devMode.problem.empty())
    {
        rows.push_back({"DEVMODE", bytes.empty() ? "none" : devMode.problem, "", ""});
        return;
    }
    rows.push_back({"dmSize", std::to_string(devMode.size), "", ""});
    rows.push_back({"dmDriverExtra", std::to_string(devMode.driverExtra), "", ""});
    rows.push_back({"dmFields", hex(devMode.flags),
                    devMode.unnamedFlags == 0 ? "" : "without a name: " + hex(devMode.unnamedFlags), ""});
    for (const DevModeField& field : devMode.fields)
    {
        const std::string flagged = !field.flagged ? "" : *field.flagged ? "yes" : "no";
        rows.push_back({field.name, shownValue(field), field.symbol, flagged});
    }
}
} // namespace

std::vector<DetailRow> configurationRows(const DevModeReport& report)
{
    // The module leaves everything empty for a file that it cannot read.
    if (report.canonicalModelName.isEmpty() && report.paperName.isEmpty() && report.printerName.isEmpty())
        return {};
    std::vector<DetailRow> rows = {
        {"Printer", printable(report.printerName), "", ""},
        {"Paper", printable(report.paperName), "", ""},
        {"Driver type", std::to_string(report.driverType), driverTypeName(report.driverType), ""},
        {"Model", printable(report.canonicalModelName), "", ""}};
    addDevMode(rows, report.devMode);
    return rows;
}

std::vector<DetailRow> printerRows(std::span<const BYTE> devMode)
{
    std::vector<DetailRow> rows;
    addDevMode(rows, devMode);
    return rows;
}

bool isLandscape(std::span<const BYTE> devMode)
{
    const DevModeView view(devMode);
    return view.has(DM_ORIENTATION) && view.fields().dmOrientation == DMORIENT_LANDSCAPE;
}
} // namespace plothost
