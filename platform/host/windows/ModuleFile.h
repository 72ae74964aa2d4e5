#pragma once

#include "kernel/OdString.h"
#include "win32/Win32.h"

// Modules (programs and DLLs) of this process.

// Full path of the module's file, of any length; empty if the system does not know it.
OdString moduleFileName(HINSTANCE module);

// The module that contains this address, or null. Its reference count does not change.
HINSTANCE moduleAt(const void* address) noexcept;

// Keeps a module loaded for a scope.
class PinnedModule
{
public:
    explicit PinnedModule(HINSTANCE module) noexcept;
    ~PinnedModule();

    PinnedModule(const PinnedModule&) = delete;
    PinnedModule& operator=(const PinnedModule&) = delete;

private:
    HINSTANCE m_module = nullptr;
};
