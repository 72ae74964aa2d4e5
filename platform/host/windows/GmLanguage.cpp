#include "host/GmLanguage.h"

#include "host/GmLanguageTag.h"
#include "host/windows/ModuleFile.h"

#include <algorithm>
#include <utility>
#include <vector>

namespace
{
struct Registration
{
    HINSTANCE module = nullptr;
    GmLangReloadCallback callback = nullptr;
    HINSTANCE callbackModule = nullptr; // contains the callback's code; usually the module itself
    bool refused = false;               // its latest request returned null
};

struct Languages
{
    OdString tag = OD_T("en");
    std::vector<Registration> registrations;
    bool switching = false;
};

Languages& languages()
{
    // Never destroyed: modules may still ask while the process ends.
    static auto* const instance = new Languages;
    return *instance;
}

Registration* registrationOf(HINSTANCE module)
{
    auto& all = languages().registrations;
    const auto found = std::ranges::find(all, module, &Registration::module);
    return found == all.end() ? nullptr : &*found;
}

const void* addressOf(GmLangReloadCallback callback)
{
    return reinterpret_cast<const void*>(callback);
}

bool isGone(const Registration& registration)
{
    return moduleAt(registration.module) != registration.module ||
           moduleAt(addressOf(registration.callback)) != registration.callbackModule;
}

// Notifies one module and returns whether it now has the library of the current language.
bool tell(HINSTANCE module)
{
    const Registration* registration = registrationOf(module);
    if (!registration)
        return true; // it was unloaded while another one was notified
    const GmLangReloadCallback callback = registration->callback;

    // One of the module's own threads may hold its last reference and end in the meantime.
    const PinnedModule pin(registration->callbackModule);
    registrationOf(module)->refused = false;
    bool content = false;
    try
    {
        content = callback() != FALSE;
    }
    catch (...)
    {
        // The callback is the module's code; an exception counts as a refusal.
    }
    const Registration* afterwards = registrationOf(module);
    return content && !(afterwards && afterwards->refused);
}
} // namespace

HINSTANCE GmLoadAppLangResourceDLL(HINSTANCE module, void*, GmLangReloadCallback callback, void*)
{
    if (!module)
        return nullptr;

    forgetCallbacksOfGoneModules();
    Registration* registration = registrationOf(module);
    if (callback)
    {
        if (!registration)
            registration = &languages().registrations.emplace_back();
        *registration = {module, callback, moduleAt(addressOf(callback)), false};
    }

    // As resources: the handle works for FindResource, LoadString, dialogs, icons and bitmaps, and no code is run. That
    // matters because modules ask from their entry point, and because the folder's name comes from a setting.
    const OdString file = findLanguageLibrary(moduleFileName(module), languages().tag);
    const HINSTANCE library =
        file.isEmpty()
            ? nullptr
            : ::LoadLibraryExW(file.c_str(), nullptr, LOAD_LIBRARY_AS_DATAFILE | LOAD_LIBRARY_AS_IMAGE_RESOURCE);
    if (registration)
        registration->refused = !library;
    return library;
}

OdString uiLanguage()
{
    return languages().tag;
}

bool setUiLanguage(const OdString& tag)
{
    Languages& state = languages();
    if (!isLanguageTag(tag) || state.switching)
        return false;
    if (odEqualNoCase(tag, state.tag))
        return true;

    forgetCallbacksOfGoneModules();
    OdString next = tag;
    std::vector<HINSTANCE> modules;
    for (const Registration& registration : state.registrations)
        modules.push_back(registration.module);

    // Nothing throws from here on, so the change is made or undone as a whole.
    OdString before = std::exchange(state.tag, std::move(next));
    state.switching = true;
    const auto refused = std::ranges::find_if_not(modules, &tell);
    const bool all = refused == modules.end();
    if (!all)
    {
        state.tag = std::move(before);
        std::for_each(modules.begin(), refused, &tell);
    }
    state.switching = false;
    return all;
}

void forgetCallbacksOfGoneModules() noexcept
{
    std::erase_if(languages().registrations, &isGone);
}

std::size_t languageCallbackCount() noexcept
{
    return languages().registrations.size();
}
