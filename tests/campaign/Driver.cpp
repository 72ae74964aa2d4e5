#include "campaign/Driver.h"

#include "plothost/DriverQuestions.h"
#include "spooler/PrinterQueries.h"

#include <algorithm>
#include <iterator>

#include <windows.h>
#include <winspool.h>

namespace campaign
{
namespace
{
OdString driverName(HANDLE printer)
{
    const std::optional<WideText> name = driverOfPrinter(printer);
    return name ? OdString(OdStringView(*name)) : OdString();
}
} // namespace

Json fieldsOf(const DevModeView& block)
{
    if (!block)
        return "no block";
    const DEVMODEW& fields = block.fields();
    Json json = {{"dmSize", block.size()}, {"dmDriverExtra", block.driverExtra()}, {"dmFields", block.rawFlags()}};
    const auto add = [&](DWORD flag, const char* name, const Json& value)
    {
        if (block.has(flag))
            json[name] = value;
    };
    add(DM_ORIENTATION, "dmOrientation", fields.dmOrientation);
    add(DM_PAPERSIZE, "dmPaperSize", fields.dmPaperSize);
    add(DM_SCALE, "dmScale", fields.dmScale);
    add(DM_COPIES, "dmCopies", fields.dmCopies);
    add(DM_DEFAULTSOURCE, "dmDefaultSource", fields.dmDefaultSource);
    add(DM_PRINTQUALITY, "dmPrintQuality", fields.dmPrintQuality);
    add(DM_COLOR, "dmColor", fields.dmColor);
    add(DM_DUPLEX, "dmDuplex", fields.dmDuplex);
    add(DM_TTOPTION, "dmTTOption", fields.dmTTOption);
    add(DM_COLLATE, "dmCollate", fields.dmCollate);
    add(DM_FORMNAME, "dmFormName", odToUtf8(odBoundedView(fields.dmFormName, std::size(fields.dmFormName))));
    return json;
}

Driver::Driver(const OdString& printer) : m_name(printer), m_printer(openPrinter(printer.c_str()))
{
    m_open = {"OpenPrinterW", odToUtf8(m_name), m_printer ? Json("a handle") : Json({{"error", ::GetLastError()}})};
}

DevModeBlock Driver::defaults() const
{
    return m_printer ? defaultDevMode(m_printer.get(), m_name.c_str()) : DevModeBlock();
}

Merged Driver::merge(std::span<const BYTE> bytes) const
{
    Merged merged;
    merged.call = {"DocumentPropertiesW DM_IN_BUFFER | DM_OUT_BUFFER", fieldsOf(DevModeView(bytes)), nullptr};
    DevModeMerge answer = mergeDevMode(nullptr, m_printer.get(), m_name.c_str(), bytes, DM_IN_BUFFER | DM_OUT_BUFFER);
    merged.result = answer.result;
    merged.block = std::move(answer.block);
    merged.call.answered = {{"result", merged.result}, {"block", fieldsOf(merged.block.view())}};
    return merged;
}

std::vector<ListedPaper> Driver::papers() const
{
    std::vector<ListedPaper> papers;
    for (const plothost::DriverPaper& paper : plothost::driverPapers(m_name))
        papers.push_back({paper.name, paper.code, 0, 0});
    // Our list lacks papers without a name, so only lists of equal length match.
    if (::DeviceCapabilitiesW(m_name.c_str(), nullptr, DC_PAPERSIZE, nullptr, nullptr) !=
        static_cast<int>(papers.size()))
        return papers;
    std::vector<POINT> sizes(2 * papers.size() + 1);
    if (::DeviceCapabilitiesW(m_name.c_str(), nullptr, DC_PAPERSIZE, reinterpret_cast<WCHAR*>(sizes.data()), nullptr) !=
        static_cast<int>(papers.size()))
        return papers;
    for (std::size_t i = 0; i < papers.size(); ++i)
    {
        papers[i].width = sizes[i].x / 10.0;
        papers[i].length = sizes[i].y / 10.0;
    }
    return papers;
}

Sheet Driver::sheet(const DevModeView& mode) const
{
    const DevModeBlock block = DevModeBlock::copyOf(mode);
    const DeviceContext dc = createDeviceContext(driverName(m_printer.get()).c_str(), m_name.c_str(), block.get());
    const int dpiX = dc ? ::GetDeviceCaps(dc.get(), LOGPIXELSX) : 0;
    const int dpiY = dc ? ::GetDeviceCaps(dc.get(), LOGPIXELSY) : 0;
    if (dpiX == 0 || dpiY == 0)
        return {};
    const auto millimetres = [&](int capability, int dpi)
    { return ::GetDeviceCaps(dc.get(), capability) * 25.4 / dpi; };
    return {millimetres(PHYSICALWIDTH, dpiX), millimetres(PHYSICALHEIGHT, dpiY), millimetres(PHYSICALOFFSETX, dpiX),
            millimetres(PHYSICALOFFSETY, dpiY)};
}

std::vector<Call> Driver::interview() const
{
    std::vector<Call> calls = {m_open};
    if (!m_printer)
        return calls;
    OdChar* const name = const_cast<OdChar*>(m_name.c_str());
    const LONG size = ::DocumentPropertiesW(nullptr, m_printer.get(), name, nullptr, nullptr, 0);
    calls.push_back({"DocumentPropertiesW 0", "the size", size});
    const DevModeBlock block = defaults();
    calls.push_back({"DocumentPropertiesW DM_OUT_BUFFER", nullptr, fieldsOf(block.view())});
    const OdString driver = driverName(m_printer.get());
    calls.push_back({"GetPrinterDriverW 3", nullptr, odToUtf8(driver)});
    calls.push_back(
        {"DeviceCapabilitiesW DC_PAPERS", nullptr, ::DeviceCapabilitiesW(name, nullptr, DC_PAPERS, nullptr, nullptr)});
    calls.push_back({"DeviceCapabilitiesW DC_PAPERNAMES", nullptr,
                     ::DeviceCapabilitiesW(name, nullptr, DC_PAPERNAMES, nullptr, nullptr)});
    const DeviceContext dc = createDeviceContext(driver.c_str(), name, block.get());
    calls.push_back({"CreateDCW", odToUtf8(driver), dc ? "a device context" : "null"});
    return calls;
}
} // namespace campaign
