#pragma once

#include "kernel/OdRxModule.h"
#include "win32/Win32.h"

// What the commands need of the module that they are in. Defined by its entry and its application object; a program
// that uses the commands without a module defines its own.

// The module object, null when there is none. A reference on it is a lock: the host does not unload the module
// meanwhile.
OdRxModule* garmPC3EditorModule() noexcept;

// The language resource library as it is now, null before it is loaded. Borrowed: a language switch frees it, so ask
// again each time.
HINSTANCE garmPC3EditorResourceInstance() noexcept;
