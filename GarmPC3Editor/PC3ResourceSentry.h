#pragma once

#include "GarmPC3Editor/Export.h"
#include "win32/Win32.h"

// Makes the module's language resource library the place dialogs, texts and pictures come from, for a scope: the first
// object of every function that shows something. Main thread only.
//
// The end of the scope restores the handle that was current at its beginning whatever has happened since, so a copy,
// which knows the same handle, restores it once more.
class GARM_PC3EDITOR_API PC3ResourceSentry
{
public:
    PC3ResourceSentry() noexcept;
    PC3ResourceSentry(const PC3ResourceSentry& other) noexcept;
    PC3ResourceSentry& operator=(const PC3ResourceSentry& other) noexcept;
    virtual ~PC3ResourceSentry();

private:
    HINSTANCE m_hSavedResource;
};
