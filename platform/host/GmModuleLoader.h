#pragma once

#include "kernel/OdRxModule.h"

#include <vector>

// Loads and unloads modules. Main thread only.
namespace GmModuleLoader
{
struct Loaded
{
    OdRxModule* module = nullptr; // the loader's; valid until unload
    OdString whyNot = {};         // one line in English for the user, empty when the module is loaded
};

// Loads a module: its library, its module object, a look at the interface version it was built against (it has to be
// the host's own), initApp.
//
// Libraries that the module needs are loaded from beside it, beside the program, or the system folder.
//
// If that fails, nothing of the module is left in the process. A module that is loaded already is refused, under
// whatever path: each has one module object, and a second initApp would register its commands twice.
Loaded load(const OdString& file);

// Unloads a module: uninitApp, the end of its module object, the end of its library and of its language callback.
// Returns why it refuses, in one line like that of load, for a module that is not loaded or is locked; else empty.
OdString unload(OdRxModule* module);

// The loaded modules, in the order of loading.
std::vector<OdRxModule*> modules();
} // namespace GmModuleLoader
