#pragma once

#include "kernel/OdString.h"
#include "win32/Win32.h"

// The language of the host's user interface and the language libraries of the modules. Main thread only.

// Told when the language changes; asks GmLoadAppLangResourceDLL for the library of the new language and answers
// whether it is content.
using GmLangReloadCallback = BOOL (*)();

// The library with the texts, dialogs and pictures of a module in the language of the user interface, or null when the
// module has none for it: TAG/NAMERes.dll beside NAME.grx (findLanguageLibrary has the rules). It is mapped as
// resources only: nothing in it is run, so this may be called from a module's entry point. Each call gives a handle of
// its own, which the caller frees with FreeLibrary.
//
// With a callback the module is told of later changes of the language, in place of an earlier callback of the same
// module; null leaves the one it has. Callbacks are kept also when the answer is null, and forgotten when the module
// is gone. The second and the fourth argument have no meaning and are null.
HINSTANCE GmLoadAppLangResourceDLL(HINSTANCE module, void* reserved1, GmLangReloadCallback callback, void* reserved2);

// The tag of the language; "en" at the start.
OdString uiLanguage();

// Switches to another language and calls the callbacks in the order in which the modules registered. True when all
// switched, which they do when there are none, and when the language is that one already: then nobody is called.
//
// False when the text is no language tag, or when a callback answered FALSE, threw, or was given no library. Then
// everything is as before: modules that had switched are called once more, to go back.
//
// A change from within a callback is refused.
bool setUiLanguage(const OdString& tag);

// Drops the callbacks of modules that are no longer in the process. Whoever frees a module calls it.
void forgetCallbacksOfGoneModules() noexcept;

// Of how many modules the host has a callback.
std::size_t languageCallbackCount() noexcept;
