// editordriver: operates the editor by script.
//
//   editordriver [--language TAG] [--search PATHS] [--pictures FOLDER] [--requests FOLDER] [--no-host-window] SCRIPT
//   editordriver --help
//
// Exit status 0 when every line was done, 1 when one could not be (standard error says which and why), 2 for wrong
// arguments.
#include "host/GarmInterfaces.h"
#include "host/GmLanguage.h"
#include "host/windows/LibrarySearch.h"
#include "kernel/OdText.h"
#include "tests/support/operator/Script.h"
#include "tests/support/operator/Steps.h"

#include <commctrl.h>
#include <cstdio>
#include <cstdlib>
#include <optional>
#include <stdexcept>
#include <thread>

namespace
{
using namespace editordriver;

struct Options
{
    OdString language = OD_T("en");
    OdString searchPath;
    OdString pictures = OD_T(".");
    OdString requests;
    OdString script;
    bool hostWindow = true;
};

std::optional<Options> optionsFrom(int count, wchar_t** values)
{
    Options options;
    for (int i = 1; i < count; ++i)
    {
        const OdString word(values[i]);
        const auto takesValue = [&](const OdChar* name) { return word == name && i + 1 < count; };
        if (takesValue(OD_T("--language")))
            options.language = values[++i];
        else if (takesValue(OD_T("--search")))
            options.searchPath = values[++i];
        else if (takesValue(OD_T("--pictures")))
            options.pictures = values[++i];
        else if (takesValue(OD_T("--requests")))
            options.requests = values[++i];
        else if (word == OD_T("--no-host-window"))
            options.hostWindow = false;
        else if (options.script.isEmpty() && !odStartsWithNoCase(word, OD_T("-")))
            options.script = word;
        else
            return std::nullopt;
    }
    return options.script.isEmpty() ? std::nullopt : std::optional(options);
}

// A step that failed leaves windows open that no script will close: the process ends at once.
[[noreturn]] void giveUp(const ScriptLine& line, const std::exception& error)
{
    std::fprintf(stderr, "line %u, %s %s: %s\n", static_cast<unsigned>(line.number), line.verb.c_str(),
                 line.rest.c_str(), error.what());
    std::fflush(nullptr);
    std::_Exit(1);
}

void operate(const Steps::Place& place, const std::vector<ScriptLine>& lines)
{
    Steps steps(place);
    for (const ScriptLine& line : lines)
    {
        try
        {
            steps.run(line);
        }
        catch (const std::exception& error)
        {
            giveUp(line, error);
        }
    }
    place.ui.quit();
}

int run(const Options& options)
{
    const std::vector<ScriptLine> lines = readScript(options.script);
    const INITCOMMONCONTROLSEX classes = {sizeof classes, ICC_WIN95_CLASSES};
    ::InitCommonControlsEx(&classes);
    getMainInternalInterface()->setPlotCfgSearchPath(options.searchPath);

    if (!setUiLanguage(options.language))
        throw std::runtime_error("'" + odToUtf8(options.language) + "' is not a language");
    HostedModule module;
    module.load();
    UiThread ui;
    std::optional<HostWindow> host;
    if (options.hostWindow)
        host.emplace();
    CheckWindow checks;
    const Steps::Place place{ui, checks, module, host ? &*host : nullptr, options.pictures, options.requests};
    std::jthread hands([&] { operate(place, lines); });
    ui.run();
    return 0;
}
} // namespace

extern "C" int wmain(int count, wchar_t** values)
{
    if (count == 2 && OdString(values[1]) == OD_T("--help"))
        return std::fputs(editordriver::Steps::help(), stdout) < 0;
    const auto options = optionsFrom(count, values);
    if (!options)
    {
        std::fputs("usage: editordriver [--language TAG] [--search PATHS] [--pictures FOLDER] [--requests FOLDER]\n"
                   "                    [--no-host-window] SCRIPT\n",
                   stderr);
        return 2;
    }
    try
    {
        dropCurrentFolderFromSearch();
        return run(*options);
    }
    catch (const std::exception& error)
    {
        std::fprintf(stderr, "%s\n", error.what());
        return 1;
    }
}
