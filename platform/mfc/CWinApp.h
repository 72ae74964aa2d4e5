#pragma once

#include "win32/Win32.h"

// The application object: one global object per program or DLL. Constructing it makes it the application of the module;
// AfxWinInit, run by the DLL's entry or by a program's main, gives it the instance.
class CWinApp
{
public:
    CWinApp() noexcept;
    CWinApp(const CWinApp&) = delete;
    CWinApp& operator=(const CWinApp&) = delete;

    // The language library is freed here, last of all: everything that could still show something is gone by then.
    virtual ~CWinApp();

    // Loads the language library and makes it the place resources come from: the module state's current resource handle
    // and the resource instance of ATL. Without one both stay as they are. An override calls the base first; FALSE
    // refuses the load of a DLL.
    virtual BOOL InitInstance();

    // Runs once after InitInstance, also when that answered FALSE. The result is a program's exit status.
    virtual int ExitInstance();

    // A new reference on the library with the application's texts, dialogs and pictures, which the application object
    // then owns, or null. The base has none.
    virtual HINSTANCE LoadAppLangResourceDLL();

    HINSTANCE m_hInstance = nullptr;
    HINSTANCE m_hLangResourceDLL = nullptr;
};

// Stores the instance in module state, application object and ATL base module; until a language library is loaded
// resources come from it too. Only the first argument has a meaning in this subset. Never fails.
BOOL AfxWinInit(HINSTANCE hInstance, HINSTANCE hPrevInstance, LPWSTR lpCmdLine, int nCmdShow) noexcept;
