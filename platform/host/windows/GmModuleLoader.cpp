#include "host/GmModuleLoader.h"

#include "files/FileChecks.h"
#include "files/FullPath.h"
#include "host/GmLanguage.h"
#include "win32/windows/SystemHandles.h"

#include <algorithm>
#include <optional>
#include <string>
#include <utility>

namespace
{
struct LoadedModule
{
    LibraryHandle library;
    OdRxModule* object = nullptr;
};

std::vector<LoadedModule>& loadedModules()
{
    // Never destroyed: modules that were not unloaded stay loaded until the process ends.
    static auto* const modules = new std::vector<LoadedModule>;
    return *modules;
}

// Without a library the last error says why.
LibraryHandle loadLibrary(const OdString& file)
{
    // Without this the system may show a box of its own about a damaged file.
    DWORD errorMode = 0;
    const BOOL changed = ::SetThreadErrorMode(SEM_FAILCRITICALERRORS | SEM_NOOPENFILEERRORBOX, &errorMode);
    // What the module needs is looked for beside it, beside the program and in the system's folder; neither in the
    // current folder nor in those of PATH, where any user's library may be.
    constexpr DWORD trustedFolders =
        LOAD_LIBRARY_SEARCH_DLL_LOAD_DIR | LOAD_LIBRARY_SEARCH_APPLICATION_DIR | LOAD_LIBRARY_SEARCH_SYSTEM32;
    LibraryHandle library(::LoadLibraryExW(file.c_str(), nullptr, trustedFolders));
    // Wine for a file on a share, and Windows 7 before its update, refuse these flags. Beside the module comes first
    // then too, and a program has dropped the current folder (LibrarySearch.h).
    if (!library && ::GetLastError() == ERROR_INVALID_PARAMETER)
        library = LibraryHandle(::LoadLibraryExW(file.c_str(), nullptr, LOAD_WITH_ALTERED_SEARCH_PATH));
    const DWORD error = ::GetLastError();
    if (changed)
        ::SetThreadErrorMode(errorMode, nullptr);
    ::SetLastError(error);
    return library;
}

// Null when the library has no such export.
template <class Function>
Function exportOf(const LibraryHandle& library, const char* name) noexcept
{
    return reinterpret_cast<Function>(reinterpret_cast<void (*)()>(::GetProcAddress(library.get(), name)));
}

OdString loadErrorText(DWORD error)
{
    switch (error)
    {
    case ERROR_BAD_EXE_FORMAT:
        return OD_T("it is not a library for this system");
    case ERROR_MOD_NOT_FOUND:
        return OD_T("a library that it needs is missing");
    case ERROR_PROC_NOT_FOUND:
        return OD_T("a library that it needs has the wrong version");
    case ERROR_DLL_INIT_FAILED:
        return OD_T("it refused to start; its language library may be missing");
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

// Makes the module object and lets it start. A text when that failed; the object is gone then.
std::optional<OdString> start(const LibraryHandle& library, OdRxModule*& object)
{
    const auto create = exportOf<OdRxCreateModuleObject>(library, "odrxCreateModuleObject");
    const auto getVersion = exportOf<OdRxGetApiVersion>(library, "odrxGetAPIVersion");
    if (!create || !getVersion)
        return OdString(OD_T("it is not a module: it does not export odrxCreateModuleObject and odrxGetAPIVersion"));

    if (!guarded([&] { object = create(); }) || !object)
        return OdString(OD_T("it could not create its module object"));

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

GmModuleLoader::Loaded GmModuleLoader::load(const OdString& file)
{
    const OdString path = fullPath(file);
    const auto refuse = [&](const OdString& reason) {
        return Loaded{nullptr, OD_T("The module ") + path + OD_T(" cannot be loaded: ") + reason + OD_T(".")};
    };

    if (!isRegularFile(path))
        return refuse(OD_T("there is no such file"));

    auto& modules = loadedModules();
    modules.reserve(modules.size() + 1);

    // Runs after the library was freed: its entry point may have registered a callback before the load failed.
    const struct Cleanup
    {
        ~Cleanup() { forgetCallbacksOfGoneModules(); }
    } cleanup;
    LibraryHandle library = loadLibrary(path);
    if (!library)
        return refuse(loadErrorText(::GetLastError()));
    const auto isThis = [&](const LoadedModule& loaded) { return loaded.library.get() == library.get(); };
    if (std::ranges::any_of(modules, isThis))
        return refuse(OD_T("it is loaded already"));

    OdRxModule* object = nullptr;
    if (const auto reason = start(library, object))
        return refuse(*reason);

    modules.push_back({std::move(library), object});
    return {object};
}
OdString GmModuleLoader::unload(OdRxModule* module)
{
    auto& modules = loadedModules();
    const auto found = std::ranges::find(modules, module, &LoadedModule::object);
    if (found == modules.end())
        return OD_T("The module cannot be unloaded: it is not loaded.");
    if (module->lockCount() != 0)
        return OD_T("The module ") + module->moduleName() + OD_T(" cannot be unloaded: it is in use.");

    LibraryHandle library = std::move(found->library);
    modules.erase(found);
    guarded([&] { module->uninitApp(); });
    guarded([&] { module->deleteModule(); });
    library.reset();
    forgetCallbacksOfGoneModules();
    return {};
}

std::vector<OdRxModule*> GmModuleLoader::modules()
{
    std::vector<OdRxModule*> result;
    for (const LoadedModule& loaded : loadedModules())
        result.push_back(loaded.object);
    return result;
}
