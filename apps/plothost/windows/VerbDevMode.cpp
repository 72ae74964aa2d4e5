#include "plothost/windows/Verbs.h"

#include "common/Printable.h"
#include "files/FileAccess.h"
#include "files/FileChecks.h"
#include "files/FullPath.h"
#include "plothost/DevModeQuery.h"
#include "plothost/Paths.h"
#include "plothost/Refusals.h"
#include "plothost/Reports.h"
#include "plothost/windows/BackgroundWait.h"
#include "plothost/windows/Console.h"

#include <string_view>

namespace plothost
{
using apps::quoted;

namespace
{
constexpr DWORD longestWait = 60'000; // milliseconds

// The module looks on the search path only; a file in the caller's folder is passed with its folder.
OdString deviceNameFor(const OdString& typed)
{
    return isConfigurationName(typed) && isRegularFile(typed) ? fullPath(typed) : typed;
}

ExitStatus writeBytes(const DevModeReport& report, const OdString& typed)
{
    const OdString path = fullPath(typed);
    if (report.devMode.empty())
    {
        note(quoted(report.deviceName) + " carries no DEVMODE; " + quoted(path) + " is not written");
        return exitYes;
    }
    const std::string_view bytes(reinterpret_cast<const char*>(report.devMode.data()), report.devMode.size());
    if (const char* reason = files::replaceFile(path.c_str(), bytes))
        return answerNo(whyNotWritten(path, reason));
    return exitYes;
}

ExitStatus runInBackground(const Request& request, const OdString& searchPath)
{
    const OdString deviceName = deviceNameFor(request.name);
    BackgroundWait wait;
    if (!wait.window())
        return answerNo("cannot create a message window");
    if (const std::string problem = startBackgroundCheck(deviceName, wait.window()); !problem.empty())
        return answerNo(problem);
    const std::optional<WPARAM> flag = wait.waitFor(backgroundMessage, longestWait);
    if (!flag)
        return answerNo("no message came within " + std::to_string(longestWait / 1000) + " seconds");

    BackgroundReport report;
    report.deviceName = deviceName;
    report.flag = *flag != 0;
    const ExitStatus printed = answerYes(request.json ? jsonOf(report) : textOf(report));
    return report.flag ? printed : answerNo(whyNoPrinterFor(deviceName, searchPath));
}
} // namespace

ExitStatus runDevMode(const Request& request, const OdString& searchPath)
{
    if (request.background)
        return runInBackground(request, searchPath);

    const DevModeAnswer answer = askDevMode(deviceNameFor(request.name));
    if (!answer.problem.empty())
        return answerNo(answer.problem);
    const DevModeReport& report = answer.report;
    // Even if no printer was determined, a configuration that was read has its paper and model; programs always get
    // JSON.
    const bool tellsSomething = report.result || !report.paperName.isEmpty() || !report.canonicalModelName.isEmpty();
    const ExitStatus printed =
        request.json ? answerYes(jsonOf(report)) : answerYes(tellsSomething ? textOf(report) : "");
    if (printed != exitYes)
        return printed;
    if (!report.result)
        return answerNo(whyNoPrinterFor(report.deviceName, searchPath));
    return request.out ? writeBytes(report, *request.out) : exitYes;
}
} // namespace plothost
