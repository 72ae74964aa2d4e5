#pragma once

#include "kernel/OdString.h"
#include "win32/windows/SystemHandles.h"

// Modules (programs and DLLs) of this process.

// Full path of the module's file, of any length; empty when the system does not know it.
OdString moduleFileName(HINSTANCE module);

// The module that contains this address, or null. Its reference count stays as it is.
HINSTANCE moduleAt(const void* address) noexcept;

// One more reference on a module, which keeps it loaded; none when it is no longer there.
LibraryHandle pinnedModule(HINSTANCE module) noexcept;
