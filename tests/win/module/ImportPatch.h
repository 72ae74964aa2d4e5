#pragma once

#include "win32/Win32.h"

// Sends what a loaded library calls under an imported name to another function, until the object goes or the library
// does. The library must outlive the object unless forget() was called.
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

    // The library will be gone: leaves its memory alone.
    void forget() noexcept { m_slot = nullptr; }

private:
    const void** m_slot;
    const void* m_original;
};
