#include "plothost/windows/Verbs.h"

#include "files/FileChecks.h"
#include "files/FullPath.h"
#include "plothost/EditQuery.h"
#include "plothost/Refusals.h"
#include "plothost/windows/Console.h"
#include "plothost/windows/PlotDialog.h"
#include "plothost/windows/Printers.h"

// The verbs that show windows.
namespace plothost
{
ExitStatus runEdit(const Request& request, const OdString& searchPath)
{
    EditQuestion question;
    question.isPrinter = request.isPrinter;
    // The module looks on the search path only; a file in the caller's folder is passed with its folder.
    question.name = !request.isPrinter && isRegularFile(request.name) ? fullPath(request.name) : request.name;
    question.paperName = request.paper;
    if (request.isPrinter && !request.paper.isEmpty())
        note("a printer's new configuration starts with the driver's own paper; --paper changes nothing");

    // The editor would return as if the user had cancelled it.
    if (!canShowWindows())
        return answerNo(noDisplay);
    const EditAnswer answer = edit(question);
    if (!answer.problem.empty())
        return answerNo(answer.problem);
    if (!answer.report)
        return answerNo(whyNotEdited(question, searchPath));
    return answerYes(request.json ? jsonOf(*answer.report) : textOf(*answer.report));
}

ExitStatus runPlot(const OdString& searchPath)
{
    if (!canShowWindows())
        return answerNo(noDisplay);

    PlotSurroundings around;
    around.list = [&searchPath]
    {
        std::vector<OdString> unreadable; // an unreadable folder has no configurations in the dialog
        return plotterList(searchPath, unreadable);
    };
    around.papers = driverPapers;
    around.defaults = driverDefaults;
    around.whyNoPrinter = [&searchPath](const OdString& deviceName) { return whyNoPrinterFor(deviceName, searchPath); };
    around.whyNotEdited = [&searchPath](const EditQuestion& question) { return whyNotEdited(question, searchPath); };
    around.resetDrivers = resetDriverDefaults;

    PlotDialog dialog(std::move(around));
    DWORD error = 0;
    if (!dialog.run(::GetModuleHandleW(nullptr), error))
        return answerNo("the Plot dialog cannot be opened (error " + std::to_string(error) + ")");
    return exitYes;
}
} // namespace plothost
