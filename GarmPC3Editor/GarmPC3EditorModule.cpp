#include "GarmPC3Editor/GarmPC3EditorModule.h"

#include "GarmPC3Editor/Commands/CommandGroup.h"
#include "GarmPC3Editor/GarmPC3EditorApp.h"
#include "GarmPC3Editor/ThisModule.h"
#include "kernel/OdRxWin32Module.h"

// The results of the two routines are ignored: without our commands the host simply continues.
void GarmPC3EditorModule::initApp()
{
    registerCommands();
}

void GarmPC3EditorModule::uninitApp()
{
    unregisterCommands();
}

OdRxModule* odrxCreateModuleObject()
{
    return OdRxWin32Module<GarmPC3EditorModule>::create(theApp.m_hInstance);
}

OdRxModule* garmPC3EditorModule() noexcept
{
    return OdRxWin32Module<GarmPC3EditorModule>::current();
}

void odrxGetAPIVersion(int& major, int& minor, int& majorBuild, int& minorBuild)
{
    const OdRxApiVersion version;
    major = version.major;
    minor = version.minor;
    majorBuild = version.majorBuild;
    minorBuild = version.minorBuild;
}
