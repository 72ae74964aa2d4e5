// modulebench: repeats the same request to the module many times.
//
//   modulebench load CONFIGURATION PRINTER CALLS CHECKS OPENINGS
//   modulebench command CONFIGURATION PRINTER ROUNDS
//   modulebench editor CONFIGURATION PRINTER ROUNDS
//
// CONFIGURATION is the full path of a file that is bound to PRINTER. The exit status is 0 if everything worked, 1 if
// something failed (standard error says what), and 2 for wrong arguments.
#include "bench/module/Actions.h"
#include "win32/Win32.h"

#include <commctrl.h>
#include <cstdio>
#include <cwchar>
#include <exception>
#include <functional>

namespace
{
using namespace modulebench;

unsigned numberIn(const wchar_t* text)
{
    return static_cast<unsigned>(std::wcstoul(text, nullptr, 10));
}

std::function<void()> actionFor(int count, wchar_t** values)
{
    if (count < 5)
        return {};
    const OdString name(values[1]);
    const Subject subject = {OdString(values[2]), OdString(values[3])};
    const unsigned first = numberIn(values[4]);
    if (name == OD_T("load") && count == 7)
        return [subject, load = Load{first, numberIn(values[5]), numberIn(values[6])}] { runLoad(subject, load); };
    if (name == OD_T("command") && count == 5)
        return [subject, first] { timeCommand(subject, first); };
    if (name == OD_T("editor") && count == 5)
        return [subject, first] { timeEditor(subject, first); };
    return {};
}
} // namespace

extern "C" int wmain(int count, wchar_t** values)
{
    const std::function<void()> action = actionFor(count, values);
    if (!action)
    {
        std::fputs("usage: modulebench load CONFIGURATION PRINTER CALLS CHECKS OPENINGS\n"
                   "       modulebench command|editor CONFIGURATION PRINTER ROUNDS\n",
                   stderr);
        return 2;
    }
    try
    {
        const INITCOMMONCONTROLSEX classes = {sizeof classes, ICC_WIN95_CLASSES};
        ::InitCommonControlsEx(&classes);
        action();
        return 0;
    }
    catch (const std::exception& error)
    {
        std::fprintf(stderr, "%s\n", error.what());
        return 1;
    }
}
