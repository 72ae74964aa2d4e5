#include "plothost/PlotSession.h"

#include "common/Printable.h"
#include "plothost/DevModeQuery.h"
#include "plothost/PaperList.h"

#include <utility>

namespace plothost
{
using apps::printable;

namespace
{
// Sets a flag for the duration of a call, however it ends.
class Meanwhile
{
public:
    explicit Meanwhile(bool& flag) : m_flag(flag) { m_flag = true; }
    ~Meanwhile() { m_flag = false; }
    Meanwhile(const Meanwhile&) = delete;
    Meanwhile& operator=(const Meanwhile&) = delete;

private:
    bool& m_flag;
};
} // namespace

PlotSession::PlotSession(PlotSurroundings surroundings) : m_surroundings(std::move(surroundings))
{
    const ListReport list = m_surroundings.list();
    m_view.devices = plotDevices(list);
    m_view.device = deviceToBeginWith(m_view.devices, list);
    check();
}

void PlotSession::choose(std::size_t index)
{
    if (m_editing || index >= m_view.devices.size())
        return;
    m_view.device = index;
    m_keptPaper = OdString();
    m_keptLandscape.reset();
    check();
}

void PlotSession::check()
{
    m_question = 0;
    m_view.isKnown = false;
    m_view.papers.clear();
    m_view.paper.reset();
    m_view.details.clear();
    if (!m_view.device)
    {
        m_view.state = "There is nothing to plot on: no printer is installed, and no folder of the search path holds a "
                       "configuration.";
        return;
    }
    m_view.state = "Checking...";
    m_question = ++m_lastQuestion;
    const std::string problem = m_surroundings.startCheck(m_view.devices[*m_view.device].name, m_question);
    if (problem.empty())
        return;
    m_question = 0;
    m_view.state = "Not checked: " + problem + ".";
}

bool PlotSession::answer(unsigned question, bool found)
{
    if (m_editing || question != m_question || m_question == 0)
        return false;
    m_question = 0;
    show(m_view.devices[*m_view.device], found);
    return true;
}

void PlotSession::show(const PlotDevice& device, bool found)
{
    const DevModeAnswer answer = askDevMode(device.name);
    if (!answer.problem.empty())
    {
        m_view.state = "Not ready: " + answer.problem + ".";
        return;
    }
    const DevModeReport& report = answer.report;
    // A system printer has no DEVMODE of its own here; it plots with its driver's default.
    const std::vector<BYTE> devMode = device.isPrinter ? m_surroundings.defaults(device.name) : report.devMode;
    const OdString& printer = device.isPrinter ? device.name : report.printerName;
    // It may have been added or removed since the check.
    const bool ready = found && report.result;
    if (!ready)
        m_view.state = "Not ready: " + m_surroundings.whyNoPrinter(device.name) + ".";
    else
        m_view.state = device.isPrinter ? "Ready." : "Ready: plots on " + printable(printer) + ".";
    m_view.details = device.isPrinter ? printerRows(devMode) : configurationRows(report);

    const std::vector<DriverPaper> papers = ready ? m_surroundings.papers(printer) : std::vector<DriverPaper>();
    const OdString ownPaper = device.isPrinter ? paperOf(devMode, papers) : report.paperName;
    m_view.papers = paperList(papers, ownPaper);
    m_view.paper = paperNamed(m_view.papers, m_keptPaper.isEmpty() ? ownPaper : m_keptPaper);
    m_view.landscape = m_keptLandscape.value_or(isLandscape(devMode));
    m_view.isKnown = true;
}

std::string PlotSession::edit(const std::function<PlotControls()>& controls)
{
    if (m_editing || !m_view.device)
        return {};
    const PlotDevice device = m_view.devices[*m_view.device];
    const PlotControls before = controls();
    const EditQuestion question = {device.name, device.isPrinter, before.paper};
    EditAnswer answer;
    PlotControls after;
    {
        const Meanwhile editing(m_editing);
        answer = plothost::edit(question);
        after = controls();
    }
    m_surroundings.resetDrivers();
    std::string problem = answer.problem;
    if (problem.empty() && !answer.report)
        problem = m_surroundings.whyNotEdited(question);

    keepFromEditor(before, after, answer);
    chooseAfterEdit(device, answer);
    check();
    return problem;
}

void PlotSession::keepFromEditor(const PlotControls& before, const PlotControls& after, const EditAnswer& answer)
{
    // The editor's dialogs may have made a choice in these controls; otherwise the paper from the editor's results
    // applies.
    m_keptPaper = after.paper;
    if (after.paper == before.paper && answer.report && !answer.report->paperName.isEmpty())
        m_keptPaper = answer.report->paperName;
    m_keptLandscape.reset();
    if (after.landscape != m_view.landscape)
        m_keptLandscape = after.landscape;
}

void PlotSession::chooseAfterEdit(const PlotDevice& before, const EditAnswer& answer)
{
    const ListReport list = m_surroundings.list();
    m_view.devices = plotDevices(list);
    m_view.device = answer.report ? configurationNamed(m_view.devices, answer.report->fileName) : std::nullopt;
    if (!m_view.device)
        m_view.device = indexOf(m_view.devices, before);
    if (m_view.device && m_view.devices[*m_view.device] == before)
        return;
    // Another device: choices for the previous one do not apply.
    m_keptPaper = OdString();
    m_keptLandscape.reset();
    if (!m_view.device)
        m_view.device = deviceToBeginWith(m_view.devices, list);
}
} // namespace plothost
