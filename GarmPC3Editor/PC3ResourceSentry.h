#pragma once

#include "GarmPC3Editor/Export.h"
#include "win32/Win32.h"

// For a scope, makes the module's language resource library the source of dialogs, texts and pictures: the first object
// in every function that shows something. Main thread only.
//
// The end of the scope restores the handle that was current at its beginning, whatever happened since; a copy restores
// the same handle again.
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
