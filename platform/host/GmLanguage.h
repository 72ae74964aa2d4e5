#pragma once

#include "kernel/OdString.h"
#include "win32/Win32.h"

// The language of the host's user interface, and the modules' language libraries. Main thread only.

// Called when the language changes. Asks GmLoadAppLangResourceDLL for the library of the new language and returns
// whether the module accepts the change.
using GmLangReloadCallback = BOOL (*)();

// The library with a module's texts, dialogs and pictures in the language of the user interface: TAG/NAMERes.dll beside
// NAME.grx (for the rules see findLanguageLibrary). Null if the module has no library for that language. It is mapped
// as resources only and runs no code, so this may be called from a module's entry point. Each call returns its own
// handle, which the caller frees with FreeLibrary.
//
// A callback is called after later changes of the language and replaces an earlier one of the same module; null keeps
// the earlier one. It is stored even when null is returned, and forgotten when the module is unloaded. The second and
// the fourth argument are unused and must be null.
HINSTANCE GmLoadAppLangResourceDLL(HINSTANCE module, void* reserved1, GmLangReloadCallback callback, void* reserved2);

// The tag of the current language; initially "en".
OdString uiLanguage();

// Switches to another language and calls the callbacks in the order in which the modules registered. True if all
// modules switched, if there are none, and if the language is the current one already, in which case no callback is
// called.
//
// False if the text is not a language tag, or if a callback returned FALSE, threw, or was given no library. Everything
// is then as before: the modules that had switched are called once more, to switch back.
//
// A change from within a callback is refused.
bool setUiLanguage(const OdString& tag);

// Drops the callbacks of modules that are no longer in the process. To be called by the code that frees a module.
void forgetCallbacksOfGoneModules() noexcept;

// The number of modules whose callback the host has.
std::size_t languageCallbackCount() noexcept;
