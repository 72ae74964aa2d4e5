#include "Actions.h"
#include "host/GarmInterfaces.h"
#include "host/GmLanguage.h"
#include "host/GmModuleLoader.h"
#include "kernel/OdEdCommandStack.h"
#include "kernel/OdResBuf.h"
#include "kernel/OdText.h"
#include "resources/Resource.h"
#include "tests/support/processcounts/ProcessCounts.h"

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <iterator>
#include <string>

#include <windows.h>

#include <psapi.h>

namespace
{
// The first rounds fill system caches: the spooler, its drivers, the fonts.
constexpr int warmUp = 3;

struct Counts
{
    std::size_t handles = 0;
    std::size_t libraries = 0;
};

std::vector<HMODULE> librariesInProcess()
{
    std::vector<HMODULE> libraries(1024);
    DWORD needed = 0;
    if (!::K32EnumProcessModules(::GetCurrentProcess(), libraries.data(),
                                 static_cast<DWORD>(libraries.size() * sizeof(HMODULE)), &needed))
        return {};
    libraries.resize(std::min(libraries.size(), needed / sizeof(HMODULE)));
    return libraries;
}

Counts countsNow()
{
    Counts counts;
    counts.handles = openSystemHandles();
    counts.libraries = librariesInProcess().size();
    return counts;
}

OdRxModule* loadModule(const OdString& file)
{
    const auto [module, whyNot] = GmModuleLoader::load(file);
    if (!module)
        std::fprintf(stderr, "not loaded: %s\n", odToUtf8(whyNot).c_str());
    return module;
}

bool unloadModule(OdRxModule* module)
{
    const OdString whyNot = GmModuleLoader::unload(module);
    if (whyNot.isEmpty())
        return true;
    std::fprintf(stderr, "not unloaded: %s\n", odToUtf8(whyNot).c_str());
    return false;
}

// Whether the command found the printer of the device.
bool askForDevMode(const OdString& device)
{
    GmServicesManagerInterface& values = *getServicesManagerInterface(getGarmInterfaces().get());
    values.clear();
    values.set(OD_T("deviceName"), OdResBuf::newRb(kRtString, device));
    values.set(OD_T("printerName"), OdResBuf::newRb(kRtString, OdString()));
    if (!odedRegCmds()->executeCommand(OD_T("PC3GETDEVMODE"), getGarmInterfaces().get()))
        return false;
    const OdResBufPtr result = OdResBuf::cast(values.get(OD_T("result")).get());
    const bool found = result && result->getBool();
    values.clear();
    return found;
}

bool oneRound(const OdString& file, const OdString& device)
{
    OdRxModule* const module = loadModule(file);
    if (!module)
        return false;
    const bool found = askForDevMode(device);
    if (!found)
        std::fputs("the command found no printer\n", stderr);
    const bool switched = setUiLanguage(OD_T("de")) && setUiLanguage(OD_T("en"));
    if (!switched)
        std::fputs("the language was not switched\n", stderr);
    return unloadModule(module) && found && switched;
}

// The text for a failed save in the current language library of the module.
std::string textInUse()
{
    const HMODULE library = ::GetModuleHandleW(L"GarmPC3Editor.grx");
    const auto get = reinterpret_cast<HINSTANCE (*)()>(
        reinterpret_cast<void (*)()>(::GetProcAddress(library, "_ZN16GarmPC3EditorApp16resourceInstanceEv")));
    OdChar text[512] = {};
    if (get)
        ::LoadStringW(get(), IDS_SAVE_FAILED, text, static_cast<int>(std::size(text)));
    const std::string utf8 = odToUtf8(OdString(text));
    return utf8.substr(0, utf8.find('\n'));
}
} // namespace

int repeatLoading(const ActionArguments& arguments)
{
    const int rounds = static_cast<int>(std::wcstol(arguments[2].c_str(), nullptr, 10));
    Counts before;
    for (int round = 0; round < warmUp + rounds; ++round)
    {
        if (round == warmUp)
            before = countsNow();
        if (!oneRound(arguments[0], arguments[1]))
            return 1;
    }
    const Counts after = countsNow();
    std::printf("rounds: %d\nhandles: %zu\nhandles before: %zu\nlibraries: %zu\nlibraries before: %zu\ncommands: %zu\n",
                rounds, after.handles, before.handles, after.libraries, before.libraries,
                odedRegCmds()->commands().size());
    return after.handles <= before.handles && after.libraries <= before.libraries ? 0 : 1;
}

int switchLanguages(const ActionArguments& arguments)
{
    OdRxModule* const module = loadModule(arguments[0]);
    if (!module)
        return 1;
    std::printf("start: %s, %s\n", odToUtf8(uiLanguage().text()).c_str(), textInUse().c_str());
    for (std::size_t i = 1; i < arguments.size(); ++i)
    {
        const bool switched = setUiLanguage(arguments[i]);
        std::printf("%s: %s, %s, %s\n", odToUtf8(arguments[i]).c_str(), switched ? "switched" : "refused",
                    odToUtf8(uiLanguage().text()).c_str(), textInUse().c_str());
    }
    return unloadModule(module) ? 0 : 1;
}
