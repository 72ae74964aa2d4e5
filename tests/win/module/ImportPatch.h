#pragma once

#include "win32/Win32.h"

// Redirects a loaded library's calls of an imported function to another one, until the object is destroyed or the
// library is unloaded. The library must outlive the object unless forget() was called.
class ImportPatch
{
public:
    // Throws when the library imports nothing of that name.
    ImportPatch(HMODULE library, const char* name, const void* replacement);
    ~ImportPatch();
    ImportPatch(const ImportPatch&) = delete;
    ImportPatch& operator=(const ImportPatch&) = delete;

    // What the library called before.
    const void* original() const noexcept { return m_original; }

    // The library will be unloaded: leaves its memory alone.
    void forget() noexcept { m_slot = nullptr; }

private:
    const void** m_slot;
    const void* m_original;
};
