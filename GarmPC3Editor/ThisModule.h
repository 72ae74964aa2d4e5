#pragma once

#include "kernel/OdRxModule.h"
#include "win32/Win32.h"

// What the commands need from their module. Defined by its entry and its application object; a program that uses the
// commands without the module defines its own.

// The module object, or null if there is none. A reference to it is a lock: the host does not unload the module while
// it is held.
OdRxModule* garmPC3EditorModule() noexcept;

// The language resource library as it is now, null before it is loaded. Borrowed: a language switch frees it, so ask
// again each time.
HINSTANCE garmPC3EditorResourceInstance() noexcept;
