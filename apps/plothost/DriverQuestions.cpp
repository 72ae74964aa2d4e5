#include "plothost/DriverQuestions.h"

#include "spooler/Handles.h"
#include "spooler/PrinterQueries.h"

#include <algorithm>

namespace plothost
{
namespace
{
constexpr std::size_t nameLength = 64; // of each slot that a driver fills
constexpr int mostPapers = 10'000;     // no driver has as many; a larger count is an error
constexpr std::size_t leastRoom = 64;

// Printer drivers are third-party code in our process; their exceptions must not make us fail.
template <class Answer, class Ask>
Answer askDriver(Answer none, Ask ask)
{
    try
    {
        return ask();
    }
    catch (...)
    {
        return none;
    }
}

SpoolerRecords settingsRecord(HANDLE printer)
{
    return queryInfo([printer](BYTE* buffer, DWORD size, DWORD* needed)
                     { return ::GetPrinterW(printer, 2, buffer, size, needed); });
}

// One list from a driver: elements of that many WCHARs, as many as it delivers.
class DriverList
{
public:
    DriverList(const OdString& printer, const WCHAR* port, WORD capability, std::size_t elementLength)
        : m_elementLength(elementLength)
    {
        const int count = ::DeviceCapabilitiesW(printer.c_str(), port, capability, nullptr, nullptr);
        if (count <= 0 || count > mostPapers)
            return;
        // There may be more by the time they are delivered.
        m_units.resize(2 * std::max(static_cast<std::size_t>(count), leastRoom) * elementLength);
        const int filled = ::DeviceCapabilitiesW(printer.c_str(), port, capability, m_units.data(), nullptr);
        m_count = static_cast<std::size_t>(std::clamp(filled, 0, count));
    }

    std::size_t count() const noexcept { return m_count; }
    const OdChar* at(std::size_t index) const noexcept { return m_units.data() + index * m_elementLength; }

private:
    std::size_t m_elementLength;
    std::vector<OdChar> m_units;
    std::size_t m_count = 0;
};

std::vector<DriverPaper> papersOf(const OdString& name)
{
    const PrinterHandle printer = openPrinter(name.c_str());
    if (!printer)
        return {};
    const SpoolerRecords records = settingsRecord(printer.get());
    const auto info = records.at<PRINTER_INFO_2W>(0);
    const std::optional<WideText> port = info ? records.text(info->pPortName) : std::nullopt;
    const WCHAR* const portName = port ? port->c_str() : nullptr;
    const DriverList names(name, portName, DC_PAPERNAMES, nameLength);
    const DriverList codes(name, portName, DC_PAPERS, 1);

    std::vector<DriverPaper> papers;
    for (std::size_t i = 0; i < names.count(); ++i)
        if (const OdStringView paper = odBoundedView(names.at(i), nameLength); !paper.empty())
            papers.push_back({OdString(paper), i < codes.count() ? static_cast<WORD>(*codes.at(i)) : WORD{0}});
    return papers;
}

std::vector<BYTE> defaultsOf(const OdString& name)
{
    const PrinterHandle printer = openPrinter(name.c_str());
    if (!printer)
        return {};
    const DevModeBlock block = defaultDevMode(printer.get(), name.c_str());
    const DevModeView view = block.view();
    return {view.bytes().begin(), view.bytes().end()};
}

bool reset(const OdString& name)
{
    const PrinterHandle printer = openPrinter(name.c_str());
    if (!printer)
        return false;
    const SpoolerRecords records = settingsRecord(printer.get());
    const auto info = records.at<PRINTER_INFO_2W>(0);
    if (!info)
        return false;
    const std::span<const BYTE> kept = records.bytesAt(info->pDevMode);
    return mergeDevMode(nullptr, printer.get(), name.c_str(), kept, DM_IN_BUFFER | DM_OUT_BUFFER).result == IDOK;
}
} // namespace

std::vector<DriverPaper> driverPapers(const OdString& printer)
{
    return askDriver(std::vector<DriverPaper>(), [&printer] { return papersOf(printer); });
}

std::vector<BYTE> driverDefaults(const OdString& printer)
{
    return askDriver(std::vector<BYTE>(), [&printer] { return defaultsOf(printer); });
}

void resetDriverDefaults()
{
    // Connections are left out: their drivers keep no state here, and opening them can take long. For the others, names
    // are enough; a level with more information queries each printer and takes three times as long.
    const auto printers =
        askDriver(std::vector<InstalledPrinter>(), [] { return installedPrinters(PRINTER_ENUM_LOCAL, 4); });
    for (const InstalledPrinter& printer : printers)
        if (printer.name)
            askDriver(false, [&printer] { return reset(OdString(OdStringView(*printer.name))); });
}
} // namespace plothost
