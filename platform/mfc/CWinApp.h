#pragma once

#include "win32/Win32.h"

// The application object: one global object per program or DLL. Its constructor makes it the module's application;
// AfxWinInit, called by the DLL's entry point or a program's main, sets the instance.
class CWinApp
{
public:
    CWinApp() noexcept;
    CWinApp(const CWinApp&) = delete;
    CWinApp& operator=(const CWinApp&) = delete;

    // The language library is freed here, last of all, when nothing is left that could show anything.
    virtual ~CWinApp();

    // Loads the language library and makes it the source of resources: the module state's current resource handle and
    // the resource instance of ATL. Without a library both stay as they are. An override calls the base first; FALSE
    // refuses the load of a DLL.
    virtual BOOL InitInstance();

    // Runs once after InitInstance, even if that returned FALSE. The result is a program's exit status.
    virtual int ExitInstance();

    // Returns a new reference to the library with the application's texts, dialogs and pictures, which the application
    // object then owns, or null. The base has none.
    virtual HINSTANCE LoadAppLangResourceDLL();

    HINSTANCE m_hInstance = nullptr;
    HINSTANCE m_hLangResourceDLL = nullptr;
};

// Stores the instance in module state, application object and ATL base module. Resources come from it until a language
// library is loaded. Only the first argument is used. Never fails.
BOOL AfxWinInit(HINSTANCE hInstance, HINSTANCE hPrevInstance, LPWSTR lpCmdLine, int nCmdShow) noexcept;
