#pragma once

#include "kernel/OdRxModule.h"

#include <vector>

// Brings modules into the process and takes them out again. Main thread only.
namespace GmModuleLoader
{
// Loads a module: its library, its module object, a look at the interface version it was built against (it has to be
// the host's own), initApp. The object stays the loader's; it is valid until unload.
//
// Libraries that the module needs are those beside it, beside the program and in the system's folder.
//
// Null when that does not work; whyNot is then one line in English for the user, and nothing of the module is left in
// the process. A module that is loaded already is refused, under whatever path: each has one module object, and a
// second initApp would register its commands twice.
OdRxModule* load(const OdString& file, OdString& whyNot);

// Unloads a module: uninitApp, the end of its module object, the end of its library and of its language callback.
// Refused with the reason for a module that is not loaded or is locked.
bool unload(OdRxModule* module, OdString& whyNot);

// What is loaded, in the order of loading.
std::vector<OdRxModule*> modules();
} // namespace GmModuleLoader
