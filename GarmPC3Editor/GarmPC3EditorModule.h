#pragma once

#include "GarmPC3Editor/Export.h"
#include "kernel/OdRxModule.h"

// The module object; made concrete by OdRxWin32Module. Main thread only, except for the lock count.
class GarmPC3EditorModule : public OdRxModule
{
public:
    void initApp() override;
    void uninitApp() override;
};

extern "C"
{
    // The module object, created by the first call. Throws OdBadAlloc.
    GARM_PC3EDITOR_API OdRxModule* odrxCreateModuleObject();

    // The version of the kernel's interface that the module was built against.
    GARM_PC3EDITOR_API void odrxGetAPIVersion(int& major, int& minor, int& majorBuild, int& minorBuild);
}
