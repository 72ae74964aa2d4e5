#include "host/GmLanguage.h"

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
    HINSTANCE callbackModule = nullptr; // where the callback's code is, mostly the module itself
    bool refused = false;               // its latest request returned null
};

struct Languages
{
    GmLanguageTag tag = *GmLanguageTag::from(OD_T("en"));
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

// Calls one module back and returns whether it now has the library of the current language.
bool callBack(HINSTANCE module)
{
    const Registration* registration = registrationOf(module);
    if (!registration)
        return true; // unloaded while another one was called
    const GmLangReloadCallback callback = registration->callback;

    // A thread of the module's own may hold its last reference and end meanwhile.
    const LibraryHandle pin = pinnedModule(registration->callbackModule);
    registrationOf(module)->refused = false;
    bool switched = false;
    try
    {
        switched = callback() != FALSE;
    }
    catch (...)
    {
        // Whatever went wrong in the module's code counts as a refusal.
    }
    const Registration* afterwards = registrationOf(module);
    return switched && !(afterwards && afterwards->refused);
}
} // namespace

LibraryHandle loadLanguageLibrary(const OdString& moduleFile, const GmLanguageTag& tag)
{
    // As resources: the handle serves FindResource, LoadString, dialogs, icons and bitmaps, and no code is run, which
    // matters because modules ask from their entry point and because a folder name comes from a setting.
    constexpr DWORD asResources = LOAD_LIBRARY_AS_DATAFILE | LOAD_LIBRARY_AS_IMAGE_RESOURCE;
    const OdString file = findLanguageLibrary(moduleFile, tag);
    return LibraryHandle(file.isEmpty() ? nullptr : ::LoadLibraryExW(file.c_str(), nullptr, asResources));
}

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

    LibraryHandle library = loadLanguageLibrary(moduleFileName(module), languages().tag);
    if (registration)
        registration->refused = !library;
    return library.release();
}

const GmLanguageTag& uiLanguage()
{
    return languages().tag;
}

bool setUiLanguage(const OdString& text)
{
    const std::optional<GmLanguageTag> tag = GmLanguageTag::from(text.view());
    return tag && setUiLanguage(*tag);
}

bool setUiLanguage(const GmLanguageTag& tag)
{
    Languages& state = languages();
    if (state.switching)
        return false;
    if (odEqualNoCase(tag.text(), state.tag.text()))
        return true;

    forgetCallbacksOfGoneModules();
    GmLanguageTag next = tag;
    std::vector<HINSTANCE> modules;
    for (const Registration& registration : state.registrations)
        modules.push_back(registration.module);

    // From here on nothing throws, so the change is made or undone as a whole.
    GmLanguageTag before = std::exchange(state.tag, std::move(next));
    state.switching = true;
    const auto refused = std::ranges::find_if_not(modules, &callBack);
    const bool all = refused == modules.end();
    if (!all)
    {
        state.tag = std::move(before);
        std::for_each(modules.begin(), refused, &callBack);
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
