#pragma once

#include "win32/Win32.h"

// The language resource library as it is now, null before it is loaded. Borrowed: a language switch frees it, so ask
// again each time. Defined by the module's application object; a program that uses the commands without a module
// defines its own.
HINSTANCE garmPC3EditorResourceInstance() noexcept;
