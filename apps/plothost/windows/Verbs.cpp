#include "plothost/windows/Verbs.h"

#include "GarmPC3Editor/GmPlotCfg3.h"
#include "common/Explanation.h"
#include "common/Printable.h"
#include "files/FileChecks.h"
#include "files/FullPath.h"
#include "kernel/OdEdCommandStack.h"
#include "plothost/Paths.h"
#include "plothost/Refusals.h"
#include "plothost/Reports.h"
#include "plothost/ShowReport.h"
#include "plothost/windows/Console.h"
#include "plothost/windows/Printers.h"

namespace plothost
{
using apps::quoted;

ExitStatus runList(const Request& request, const OdString& searchPath)
{
    std::vector<OdString> unreadable;
    const ListReport report = plotterList(searchPath, unreadable);
    for (const OdString& folder : unreadable)
        note("the folder " + quoted(folder) + " cannot be read");
    return answerYes(request.json ? jsonOf(report) : textOf(report));
}

ExitStatus runCreate(const Request& request)
{
    const OdSharedPtr<GmPlotCfg3> configuration = GmPlotCfg3::create(request.name);
    if (!configuration)
        return answerNo(whyNotCreated(request.name));
    const OdString path = fullPath(request.file);
    const bool replaced = isRegularFile(path);
    if (!configuration->write(path))
        return answerNo(whyNotWritten(path));
    return answerYes(quoted(path) + " was " + (replaced ? "replaced" : "created") + " for printer " +
                     quoted(request.name) + "\n");
}

ExitStatus runShow(const Request& request, const OdString& searchPath)
{
    ShowReport report;
    if (!findConfiguration(request.file, report.path))
        return answerNo(whyNotFound(request.file, searchPath));

    bool modified = false;
    const OdSharedPtr<GmPlotCfg3> configuration = GmPlotCfg3::read(report.path, modified);
    if (!configuration)
        return answerNo(whyNotShown(report.path));
    report.storedPrinter = apps::storedPrinter(report.path);
    if (!configuration->m_meta.m_win_driver_name.isEmpty())
        report.binding = modified ? ShowReport::Binding::rebound : ShowReport::Binding::same;
    report.configuration = configuration.get();
    report.full = request.full;
    return answerYes(request.json ? jsonOf(report) : textOf(report));
}

ExitStatus runCommands()
{
    CommandsReport report;
    for (const OdEdCommandPtr& command : odedRegCmds()->commands())
        report.commands.push_back({command->groupName(), command->globalName(), command->localName()});
    return answerYes(textOf(report));
}
} // namespace plothost
