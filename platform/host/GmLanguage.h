#pragma once

#include "host/GmLanguageTag.h"
#include "win32/windows/SystemHandles.h"

// The language of the host's user interface, and the modules' language libraries. Main thread only.

// Called when the language changes; asks GmLoadAppLangResourceDLL for the library of the new language and returns
// whether it could switch.
using GmLangReloadCallback = BOOL (*)();

// The library with the texts, dialogs and pictures of a module in a language: TAG/NAMERes.dll beside NAME.grx
// (findLanguageLibrary has the rules). None when there is no such library, or when it is damaged. It is mapped as
// resources only: nothing in it is run.
LibraryHandle loadLanguageLibrary(const OdString& moduleFile, const GmLanguageTag& tag);

// The library of a loaded module in the language of the user interface, or null. It may be called from a module's entry
// point. Each call returns a handle of its own, which the caller frees with FreeLibrary.
//
// With a callback the module learns of later changes of the language; it replaces an earlier callback of the same
// module, and null leaves the one it has. Callbacks are kept even if the result is null, and forgotten when the module
// is unloaded. The second and the fourth argument have no meaning and are null.
HINSTANCE GmLoadAppLangResourceDLL(HINSTANCE module, void* reserved1, GmLangReloadCallback callback, void* reserved2);

// "en" at the start.
const GmLanguageTag& uiLanguage();

// Switches to another language and calls the callbacks in the order in which the modules registered. True when all
// switched, also when there are none, and when the language is that one already: then no callback is called.
//
// False when a callback returned FALSE, threw, or was given no library. Then everything is as before: modules that had
// switched are called once more, to go back.
//
// A change from within a callback is refused.
bool setUiLanguage(const GmLanguageTag& tag);

// The same for a text; false when it is not a language tag.
bool setUiLanguage(const OdString& text);

// Drops the callbacks of modules that are no longer in the process. To be called after a module was freed.
void forgetCallbacksOfGoneModules() noexcept;

// How many modules have a callback registered.
std::size_t languageCallbackCount() noexcept;
