#include "host/windows/LibrarySearch.h"
#include "plothost/Arguments.h"
#include "plothost/windows/Console.h"
#include "plothost/windows/PrintServer.h"
#include "plothost/windows/Session.h"
#include "plothost/windows/Verbs.h"

#include <exception>

// The runtime would expand names with a question mark or an asterisk to matching files, but printers may have such
// names.
extern "C" int _dowildcard;
int _dowildcard = 0;

namespace
{
using namespace plothost;

ExitStatus run(const Request& request, const OdString& searchPath)
{
    switch (request.verb)
    {
    case Verb::list:
        return runList(request, searchPath);
    case Verb::devmode:
        return runDevMode(request, searchPath);
    case Verb::edit:
        return runEdit(request, searchPath);
    case Verb::create:
        return runCreate(request);
    case Verb::show:
        return runShow(request, searchPath);
    case Verb::commands:
        return runCommands();
    case Verb::plot:
        break;
    }
    return runPlot(searchPath);
}

ExitStatus answer(const std::vector<OdString>& arguments)
{
    const ParsedArguments parsed = parseArguments(arguments);
    if (!parsed.request)
    {
        const bool told = writeOutput(parsed.output) && writeError(parsed.error);
        return told || parsed.status != exitYes ? parsed.status : answerNo("standard output cannot be written");
    }
    // Everything that follows needs the print spooler, starting with the module.
    if (const int seconds = parsed.request->wait; !printServerAnswers(static_cast<DWORD>(seconds) * 1000))
    {
        note("the print server did not answer within " + std::to_string(seconds) +
             (seconds == 1 ? " second" : " seconds"));
        endWithoutPrintServer(exitNo);
    }
    Session session(*parsed.request);
    std::string whyNot;
    if (!session.readSettings(whyNot))
        return answerNo(whyNot);
    const Session::Loaded module = session.loadModule();
    if (!module.notes.empty())
        note(module.notes);
    if (!module.whyNot.empty())
    {
        note(module.whyNot);
        return exitNoModule;
    }
    return run(*parsed.request, session.searchPath());
}
} // namespace

extern "C" int wmain(int count, wchar_t** values)
{
    try
    {
        dropCurrentFolderFromSearch();
        return answer(std::vector<OdString>(values + (count > 0 ? 1 : 0), values + count));
    }
    catch (const std::exception& error)
    {
        return answerNo(error.what());
    }
}
