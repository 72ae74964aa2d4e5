#pragma once

#include "kernel/OdRxModule.h"

#include <vector>

// Loads and unloads modules. Main thread only.
namespace GmModuleLoader
{
// Loads a module: its library and its module object, then checks the interface version it was built against, which must
// be the host's, and calls initApp. The loader owns the object, which is valid until unload.
//
// Libraries that the module needs are loaded from beside it, beside the program, or the system folder.
//
// Null on failure; whyNot is then one line in English for the user, and nothing of the module is left in the process. A
// module that is already loaded is refused, under any path: each has one module object, and a second initApp would
// register its commands twice.
OdRxModule* load(const OdString& file, OdString& whyNot);

// Unloads a module: calls uninitApp, destroys its module object, frees its library and drops its language callback. A
// module that is not loaded or is locked is refused, with the reason.
bool unload(OdRxModule* module, OdString& whyNot);

// The loaded modules, in the order of loading.
std::vector<OdRxModule*> modules();
} // namespace GmModuleLoader
