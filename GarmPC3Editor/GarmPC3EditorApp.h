#pragma once

#include "GarmPC3Editor/Export.h"
#include "mfc/CWinApp.h"

// The application object of the module: owns its language resource library GarmPC3EditorRes.dll.
class GarmPC3EditorApp : public CWinApp
{
public:
    // Loads the language resource library; if there is none, shows a message box and refuses to load the module.
    BOOL InitInstance() override;

    // The library for the host's language; the host then calls back at each language change.
    HINSTANCE LoadAppLangResourceDLL() override;

    // Replaces the library with the one for the host's current language. If there is none, the old one stays in use.
    void ReloadAppLangResourceDLL();

    // The language resource library of this module, null until it is loaded. Borrowed.
    GARM_PC3EDITOR_API static HINSTANCE resourceInstance() noexcept;
};

// The one application object, constructed when the module is loaded and destroyed last when it is unloaded.
extern GarmPC3EditorApp theApp;
