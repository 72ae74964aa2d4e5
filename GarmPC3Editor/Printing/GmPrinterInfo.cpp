#include "GarmPC3Editor/Printing/GmPrinterInfo.h"

#include "spooler/PrinterQueries.h"

#include <algorithm>

namespace
{
// DC_PAPERNAMES delivers slots of this many units, without a terminator when a name fills its slot.
constexpr std::size_t paperNameLength = 64;

// Codes are 16-bit, so a driver that announces more papers than that has not returned a count.
constexpr int mostPapers = 0x10000;

// Room in every list whatever was announced: a driver that announced no papers may still deliver some.
constexpr std::size_t leastPapersRoom = 32;

// Empty output.
bool assignText(OdString& out, std::optional<WideText>&& text)
{
    if (text)
        out = OdString(std::move(*text));
    return !out.isEmpty();
}

// How many of the announced entries the driver delivered, by the return value of the fill.
std::size_t delivered(int answer, std::size_t announced)
{
    return std::min(answer > 0 ? static_cast<std::size_t>(answer) : 0, announced);
}
} // namespace

GmPrinterInfo::GmPrinterInfo(const OdString& name, const DEVMODEW* devMode)
    : m_printerName(name), m_devMode(devMode), m_printer(openPrinter(name.c_str())), m_openError(::GetLastError())
{
}

Fault GmPrinterInfo::openFault(FaultStage stage) const
{
    // Some failing calls do not set an error.
    const DWORD error = m_openError == ERROR_SUCCESS ? DWORD{ERROR_INVALID_PRINTER_NAME} : m_openError;
    return {.stage = stage, .code = FaultCode::printerNotOpened, .text = m_printerName, .systemError = error};
}

bool GmPrinterInfo::getPorts(OdString& out) const
{
    out.empty();
    return isOpen() && assignText(out, portsOfPrinter(handle()));
}

bool GmPrinterInfo::driverName(OdString& out) const
{
    out.empty();
    return isOpen() && assignText(out, driverOfPrinter(handle()));
}

DevModeBlock GmPrinterInfo::defaultDevMode() const
{
    return isOpen() ? ::defaultDevMode(handle(), m_printerName.c_str()) : DevModeBlock();
}

void GmPrinterInfo::loadPapers()
{
    if (m_papers)
        return;

    // A separate handle: the lists must not depend on what was done with the other one.
    const PrinterHandle second = openPrinter(m_printerName.c_str());
    if (!second)
        return;
    const SpoolerRecords records = queryInfo([&second](BYTE* buffer, DWORD size, DWORD* needed)
                                             { return ::GetPrinterW(second.get(), 2, buffer, size, needed); });
    const auto info = records.at<PRINTER_INFO_2W>(0);
    if (!info)
        return;
    const std::optional<WideText> port = records.text(info->pPortName);

    // The printer's own block is only 2-byte aligned and may claim more bytes than were delivered, so the driver gets a
    // checked copy or nothing.
    const DevModeBlock own = DevModeBlock::copyOf(DevModeView(records.bytesAt(info->pDevMode)));
    const DEVMODEW* const devMode = m_devMode ? m_devMode : own.get();
    const auto ask = [&](WORD capability, void* output)
    {
        return ::DeviceCapabilitiesW(m_printerName.c_str(), port ? port->c_str() : nullptr, capability,
                                     static_cast<WCHAR*>(output), devMode);
    };

    const int idCount = ask(DC_PAPERS, nullptr);
    if (idCount < 0 || idCount > mostPapers)
        return;
    const int nameCount = ask(DC_PAPERNAMES, nullptr);
    if (nameCount < 0 || nameCount > mostPapers)
        return;

    PaperLists lists;
    lists.count = static_cast<std::size_t>(idCount);
    lists.nameSlots = static_cast<std::size_t>(nameCount);
    // The counts may have grown before the lists are filled, and either may be right.
    const std::size_t room = 2 * std::max({lists.count, lists.nameSlots, leastPapersRoom});
    lists.ids.resize(room);
    lists.names.resize(room * paperNameLength);
    lists.idsDelivered = delivered(ask(DC_PAPERS, lists.ids.data()), lists.count);
    lists.namesDelivered = delivered(ask(DC_PAPERNAMES, lists.names.data()), lists.nameSlots);
    m_papers = std::move(lists);
}

OdStringView GmPrinterInfo::slot(std::size_t index) const noexcept
{
    if (index >= m_papers->nameSlots)
        return {};
    return odBoundedView(m_papers->names.data() + index * paperNameLength, paperNameLength);
}

int GmPrinterInfo::paperCount()
{
    loadPapers();
    return m_papers ? static_cast<int>(m_papers->count) : 0;
}

bool GmPrinterInfo::hasCode(std::size_t index) const noexcept
{
    return m_papers->ids[index] != 0 || index < m_papers->idsDelivered;
}

template <class IsWanted>
int GmPrinterInfo::firstNamed(IsWanted isWanted)
{
    // The number of codes limits the search, not the number of names.
    const auto count = static_cast<std::size_t>(paperCount());
    for (std::size_t i = 0; i < count; ++i)
    {
        const OdStringView text = slot(i);
        const bool hasName = !text.empty() || i < m_papers->namesDelivered;
        if (hasName && isWanted(text))
            return static_cast<int>(i);
    }
    return -1;
}

int GmPrinterInfo::paperIndexByName(OdStringView name)
{
    return firstNamed([name](OdStringView text) { return odEqualNoCase(text, name); });
}

int GmPrinterInfo::paperIndexByExactName(OdStringView name)
{
    return firstNamed([name](OdStringView text) { return text == name; });
}

int GmPrinterInfo::paperIndexById(int id)
{
    const auto wanted = static_cast<WORD>(id);
    const auto count = static_cast<std::size_t>(paperCount());
    for (std::size_t i = 0; i < count; ++i)
    {
        if (hasCode(i) && m_papers->ids[i] == wanted)
            return static_cast<int>(i);
    }
    return -1;
}

OdStringView GmPrinterInfo::paperName(int index)
{
    return index >= 0 && index < paperCount() ? slot(static_cast<std::size_t>(index)) : OdStringView();
}

WORD GmPrinterInfo::paperId(int index)
{
    return index >= 0 && index < paperCount() ? m_papers->ids[static_cast<std::size_t>(index)] : WORD{0};
}

bool GmPrinterInfo::hasPaperId(int index)
{
    return index >= 0 && index < paperCount() && hasCode(static_cast<std::size_t>(index));
}
