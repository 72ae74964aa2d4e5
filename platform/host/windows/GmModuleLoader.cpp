#include "host/GmModuleLoader.h"

#include "files/FileChecks.h"
#include "files/FullPath.h"
#include "host/GmLanguage.h"
#include "win32/Win32.h"

#include <algorithm>
#include <optional>
#include <string>

namespace
{
struct LoadedModule
{
    HINSTANCE library = nullptr;
    OdRxModule* object = nullptr;
};

std::vector<LoadedModule>& loadedModules()
{
    // Never destroyed: modules that were not unloaded stay loaded until the process ends.
    static auto* const modules = new std::vector<LoadedModule>;
    return *modules;
}

// A reference to a library that is released unless it is kept. The language callback goes with it: a module may have
// registered one in its entry point before the load failed.
class Library
{
public:
    explicit Library(const OdString& file)
    {
        // Otherwise the system may show its own message box about a damaged file.
        DWORD errorMode = 0;
        const BOOL changed = ::SetThreadErrorMode(SEM_FAILCRITICALERRORS | SEM_NOOPENFILEERRORBOX, &errorMode);
        // What the module needs is looked for beside it, beside the program and in the system folder, but neither in
        // the current folder nor in those of PATH, where anyone may have put a library.
        load(file,
             LOAD_LIBRARY_SEARCH_DLL_LOAD_DIR | LOAD_LIBRARY_SEARCH_APPLICATION_DIR | LOAD_LIBRARY_SEARCH_SYSTEM32);
        // Wine refuses these flags for a file on a share, and so does Windows 7 before its update. The module's own
        // folder is still searched first then, and a program has dropped the current folder (LibrarySearch.h).
        if (m_error == ERROR_INVALID_PARAMETER)
            load(file, LOAD_WITH_ALTERED_SEARCH_PATH);
        if (changed)
            ::SetThreadErrorMode(errorMode, nullptr);
    }

    ~Library()
    {
        if (m_handle)
            ::FreeLibrary(m_handle);
        forgetCallbacksOfGoneModules();
    }

    Library(const Library&) = delete;
    Library& operator=(const Library&) = delete;

    HINSTANCE handle() const noexcept { return m_handle; }
    DWORD error() const noexcept { return m_error; }
    void keep() noexcept { m_handle = nullptr; }

    // Null if the library has no such export.
    template <class Function>
    Function find(const char* name) const noexcept
    {
        return reinterpret_cast<Function>(reinterpret_cast<void (*)()>(::GetProcAddress(m_handle, name)));
    }

private:
    void load(const OdString& file, DWORD flags) noexcept
    {
        m_handle = ::LoadLibraryExW(file.c_str(), nullptr, flags);
        m_error = m_handle ? ERROR_SUCCESS : ::GetLastError();
    }

    HINSTANCE m_handle = nullptr;
    DWORD m_error = ERROR_SUCCESS;
};

OdString loadErrorText(DWORD error)
{
    switch (error)
    {
    case ERROR_BAD_EXE_FORMAT:
        return OD_T("it is no library of this system");
    case ERROR_MOD_NOT_FOUND:
        return OD_T("a library that it needs is missing");
    case ERROR_PROC_NOT_FOUND:
        return OD_T("a library that it needs is of another version");
    case ERROR_DLL_INIT_FAILED:
        return OD_T("its start was refused, as happens when its language library is missing");
    default:
        return OdString(odFromUtf8("the system says error " + std::to_string(error)));
    }
}

OdString versionText(const OdRxApiVersion& version)
{
    return OdString(odFromUtf8(std::to_string(version.major) + "." + std::to_string(version.minor) + "." +
                               std::to_string(version.majorBuild) + "." + std::to_string(version.minorBuild)));
}

// Calls into the module and returns whether the call succeeded. A module must not throw; if it does, it ends here.
template <class Call>
bool guarded(Call call) noexcept
{
    try
    {
        call();
        return true;
    }
    catch (...)
    {
        return false;
    }
}

// Creates the module object and starts it. On failure returns a text, and the object is destroyed.
std::optional<OdString> start(const Library& library, OdRxModule*& object)
{
    const auto create = library.find<OdRxCreateModuleObject>("odrxCreateModuleObject");
    const auto getVersion = library.find<OdRxGetApiVersion>("odrxGetAPIVersion");
    if (!create || !getVersion)
        return OdString(OD_T("it is no module: it does not export odrxCreateModuleObject and odrxGetAPIVersion"));

    if (!guarded([&] { object = create(); }) || !object)
        return OdString(OD_T("it could not make its module object"));

    OdRxApiVersion version{-1, -1, -1, -1};
    const bool answered =
        guarded([&] { getVersion(version.major, version.minor, version.majorBuild, version.minorBuild); });
    if (!answered || version != OdRxApiVersion())
    {
        guarded([&] { object->deleteModule(); });
        return OD_T("it was built for version ") + versionText(version) + OD_T(" of the kernel, this is ") +
               versionText(OdRxApiVersion());
    }

    if (!guarded([&] { object->initApp(); }))
    {
        guarded([&] { object->uninitApp(); });
        guarded([&] { object->deleteModule(); });
        return OdString(OD_T("its start failed"));
    }
    return std::nullopt;
}
} // namespace

OdRxModule* GmModuleLoader::load(const OdString& file, OdString& whyNot)
{
    const OdString path = fullPath(file);
    const auto refuse = [&](const OdString& reason) -> OdRxModule*
    {
        whyNot = OD_T("The module ") + path + OD_T(" cannot be loaded: ") + reason + OD_T(".");
        return nullptr;
    };

    if (!isRegularFile(path))
        return refuse(OD_T("there is no such file"));

    auto& modules = loadedModules();
    modules.reserve(modules.size() + 1);

    Library library(path);
    if (!library.handle())
        return refuse(loadErrorText(library.error()));
    if (std::ranges::find(modules, library.handle(), &LoadedModule::library) != modules.end())
        return refuse(OD_T("it is loaded already"));

    OdRxModule* object = nullptr;
    if (const auto reason = start(library, object))
        return refuse(*reason);

    modules.push_back({library.handle(), object});
    library.keep();
    return object;
}

bool GmModuleLoader::unload(OdRxModule* module, OdString& whyNot)
{
    auto& modules = loadedModules();
    const auto found = std::ranges::find(modules, module, &LoadedModule::object);
    if (found == modules.end())
    {
        whyNot = OD_T("The module cannot be unloaded: it is not loaded.");
        return false;
    }
    if (module->lockCount() != 0)
    {
        whyNot = OD_T("The module ") + module->moduleName() + OD_T(" cannot be unloaded: it is in use.");
        return false;
    }

    const HINSTANCE library = found->library;
    modules.erase(found);
    guarded([&] { module->uninitApp(); });
    guarded([&] { module->deleteModule(); });
    ::FreeLibrary(library);
    forgetCallbacksOfGoneModules();
    return true;
}

std::vector<OdRxModule*> GmModuleLoader::modules()
{
    std::vector<OdRxModule*> result;
    for (const LoadedModule& loaded : loadedModules())
        result.push_back(loaded.object);
    return result;
}
