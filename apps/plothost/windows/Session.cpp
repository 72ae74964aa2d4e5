#include "plothost/windows/Session.h"

#include "common/Printable.h"
#include "files/FileAccess.h"
#include "files/FileChecks.h"
#include "files/FullPath.h"
#include "host/CGarmPath.h"
#include "host/GarmInterfaces.h"
#include "host/GmLanguage.h"
#include "host/GmModuleLoader.h"
#include "host/windows/ModuleFile.h"
#include "kernel/OdRxModule.h"
#include "kernel/OdText.h"
#include "plothost/Paths.h"

#include <vector>
#include <windows.h>

#include <delayimp.h>

namespace plothost
{
using apps::printable;
using apps::quoted;

namespace
{
const OdChar* const moduleName = OD_T("GarmPC3Editor.grx");
const OdChar* const settingsName = OD_T("plothost.ini");
const OdChar* const searchPathVariable = OD_T("PLOTHOST_SEARCH_PATH");
const OdChar* const defaultLanguage = OD_T("en");

// The module that exported classes are bound to at their first call.
HMODULE loadedModule = nullptr;

// The loaded module may have another file name than the one in the import library.
FARPROC WINAPI bindToLoadedModule(unsigned notification, DelayLoadInfo* info)
{
    const bool isModule = notification == dliNotePreLoadLibrary && odEqualNoCase(odFromUtf8(info->szDll), moduleName);
    return isModule ? reinterpret_cast<FARPROC>(loadedModule) : nullptr;
}

OdString environmentText(const OdChar* name)
{
    std::vector<OdChar> text(::GetEnvironmentVariableW(name, nullptr, 0));
    if (text.empty())
        return {};
    const DWORD length = ::GetEnvironmentVariableW(name, text.data(), static_cast<DWORD>(text.size()));
    return length < text.size() ? OdString(OdStringView(text.data(), length)) : OdString();
}

OdString programFolder()
{
    return CGarmPath(moduleFileName(nullptr)).fullFolder();
}
} // namespace

Session::Session(const Request& request)
    : m_request(request), m_searchPath(chosenSearchPath(request.searchPath, environmentText(searchPathVariable)))
{
    getMainInternalInterface()->setPlotCfgSearchPath(m_searchPath);
}

Session::~Session()
{
    // A refusal does not matter: the process ends anyway.
    if (m_module)
        GmModuleLoader::unload(m_module);
}

bool Session::readSettings(std::string& whyNot) const
{
    const OdString file =
        m_request.settings ? fullPath(*m_request.settings) : CGarmPath::join(programFolder(), OdString(settingsName));
    if (m_request.settings || isRegularFile(file))
    {
        files::ByteBuffer bytes;
        const char* const reason = files::readFile(file.c_str(), bytes);
        const ResellerSettings read = reason ? ResellerSettings{reason, {}} : parseResellerSettings(bytes.view());
        if (!read.problem.empty())
        {
            whyNot = "the settings file " + quoted(file) + " cannot be used: " + read.problem;
            return false;
        }
        storeResellerSettings(read.settings);
    }
    storeResellerSettings(m_request.reseller);
    return true;
}

Session::Loaded Session::loadModule()
{
    const OdString file =
        m_request.module ? fullPath(*m_request.module) : CGarmPath::join(programFolder(), OdString(moduleName));

    Loaded result;
    if (isRegularFile(file))
    {
        const OdString wanted = m_request.language.value_or(OdString(defaultLanguage));
        const std::optional<GmLanguageTag> tag = GmLanguageTag::from(wanted.view());
        const bool hasTexts = tag && loadLanguageLibrary(file, *tag);
        if (!tag)
            result.notes = quoted(wanted) + " is not a language tag; the texts are in English";
        else if (hasTexts)
            setUiLanguage(*tag);
        else if (m_request.language)
            result.notes = "there are no texts in " + quoted(wanted) + "; they are in English";

        // Without texts the module would show a message box before it refuses, and there may be no user to close it.
        if (!hasTexts && !loadLanguageLibrary(file, uiLanguage()))
        {
            result.whyNot =
                "The module " + printable(file) + " cannot be loaded: its language library is missing or damaged.";
            return result;
        }
    }

    const GmModuleLoader::Loaded loaded = GmModuleLoader::load(file);
    m_module = loaded.module;
    if (!m_module)
    {
        result.whyNot = printable(loaded.whyNot);
        return result;
    }
    loadedModule = static_cast<HMODULE>(m_module->sysData());
    return result;
}
} // namespace plothost

// The name is given by the delay-load helper, which calls this before it loads anything.
extern "C" PfnDliHook __pfnDliNotifyHook2;
PfnDliHook __pfnDliNotifyHook2 = plothost::bindToLoadedModule;
