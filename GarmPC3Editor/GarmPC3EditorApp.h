#pragma once

#include "GarmPC3Editor/Export.h"
#include "mfc/CWinApp.h"

// The application object of the module: owns its language resource library GarmPC3EditorRes.dll.
class GarmPC3EditorApp : public CWinApp
{
public:
    // Loads the language resource library; without one it says so in a message box and refuses the load of the module.
    BOOL InitInstance() override;

    // The library for the language of the host, which then calls back on each change of that language.
    HINSTANCE LoadAppLangResourceDLL() override;

    // Exchanges the library for that of the host's present language. Without one the old library stays in use.
    void ReloadAppLangResourceDLL();

    // The language resource library of this module, null until it is loaded. Borrowed.
    GARM_PC3EDITOR_API static HINSTANCE resourceInstance() noexcept;
};

// The one application object, constructed when the module is loaded and destroyed last when it goes.
extern GarmPC3EditorApp theApp;
