#include "campaign/Times.h"

#include "GarmPC3Editor/GmPlotCfg3.h"
#include "plothost/DevModeQuery.h"
#include "plothost/DriverQuestions.h"
#include "spooler/Handles.h"
#include "spooler/PrinterQueries.h"

#include <chrono>
#include <functional>

#include <windows.h>
#include <winspool.h>

namespace campaign
{
namespace
{
constexpr int repetitions = 15;

void tell(const char* name, Transcript& transcript, const std::function<bool()>& work)
{
    using Milliseconds = std::chrono::duration<double, std::milli>;
    Json times = Json::array();
    // The first one also loads what the process lacks: the driver, its papers, fonts.
    for (int i = 0; i <= repetitions; ++i)
    {
        const auto begin = std::chrono::steady_clock::now();
        const bool done = work();
        const Milliseconds time = std::chrono::steady_clock::now() - begin;
        if (!done)
            return transcript.failed("times", name, {});
        if (i > 0)
            times.push_back(time.count());
    }
    transcript.fact(name, times);
}

bool isEnumerated(DWORD level)
{
    return !installedPrinters(PRINTER_ENUM_LOCAL, level).empty();
}

bool isResolved(const OdString& device)
{
    const plothost::DevModeAnswer answer = plothost::askDevMode(device);
    return answer.problem.empty() && answer.report.result;
}
} // namespace

void tellTimes(const OdString& printer, const OdString& folder, Transcript& transcript)
{
    const OdString path = folder + OD_T("\\") + printer + OD_T(".pc3");
    const OdSharedPtr<GmPlotCfg3> configuration = GmPlotCfg3::create(printer);
    if (!configuration || !configuration->write(path))
        return transcript.failed("times", "no configuration", {});

    // What the system needs, for comparison.
    tell("OpenPrinterW", transcript, [&] { return static_cast<bool>(openPrinter(printer.c_str())); });
    tell("EnumPrintersW 1", transcript, [] { return isEnumerated(1); });
    tell("EnumPrintersW 4", transcript, [] { return isEnumerated(4); });
    tell("EnumPrintersW 5", transcript, [] { return isEnumerated(5); });
    tell("EnumPrintersW 2", transcript, [] { return isEnumerated(2); });

    tell("PC3GETDEVMODE file", transcript, [&] { return isResolved(path); });
    tell("PC3GETDEVMODE printer", transcript, [&] { return isResolved(printer); });
    // Of a printer that is gone: another one with its driver is looked for among all.
    configuration->m_meta.m_win_device_name = OD_T("no such printer");
    if (!configuration->write(path))
        return transcript.failed("times", "no second configuration", {});
    tell("PC3GETDEVMODE rebound", transcript, [&] { return isResolved(path); });
    tell("reset drivers", transcript,
         []
         {
             plothost::resetDriverDefaults();
             return true;
         });
}
} // namespace campaign
