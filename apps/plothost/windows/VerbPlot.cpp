#include "plothost/windows/Verbs.h"

#include "plothost/Refusals.h"
#include "plothost/windows/Answers.h"
#include "plothost/windows/Display.h"
#include "plothost/windows/PlotDialog.h"
#include "plothost/windows/Printers.h"

namespace plothost
{
ExitStatus runPlot(const OdString& searchPath)
{
    if (!canShowWindows())
        return answerNo(noDisplay);

    PlotSurroundings around;
    around.list = [&searchPath]
    {
        std::vector<OdString> unreadable; // has no configurations, and that is all the dialog shows
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
