#pragma once

#include "win32/Win32.h"

class CWinApp;

// What each module (program or DLL) has for itself: its application object, its instance and the library that its
// resources currently come from.
class AFX_MODULE_STATE
{
public:
    CWinApp* m_pCurrentWinApp = nullptr;
    HINSTANCE m_hCurrentInstanceHandle = nullptr;
    HINSTANCE m_hCurrentResourceHandle = nullptr;
};

// The state of the module this library is linked into.
AFX_MODULE_STATE* AfxGetStaticModuleState() noexcept;

// The state that is current on this thread: the one set with AfxSetModuleState, otherwise the module's own.
AFX_MODULE_STATE* AfxGetModuleState() noexcept;

// Makes a state current on this thread (null: the module's own) and returns the previous one.
AFX_MODULE_STATE* AfxSetModuleState(AFX_MODULE_STATE* newState) noexcept;

// Makes a module state current for a scope. The first line of every function that is called from outside the module.
class AFX_MAINTAIN_STATE2
{
public:
    explicit AFX_MAINTAIN_STATE2(AFX_MODULE_STATE* moduleState) noexcept
        : m_pPrevModuleState(AfxSetModuleState(moduleState))
    {
    }
    ~AFX_MAINTAIN_STATE2() { AfxSetModuleState(m_pPrevModuleState); }

    AFX_MAINTAIN_STATE2(const AFX_MAINTAIN_STATE2&) = delete;
    AFX_MAINTAIN_STATE2& operator=(const AFX_MAINTAIN_STATE2&) = delete;

private:
    AFX_MODULE_STATE* m_pPrevModuleState;
};

#define AFX_MANAGE_STATE(moduleState) const AFX_MAINTAIN_STATE2 ctlState(moduleState)

// Parts of the state that is current on this thread.
CWinApp* AfxGetApp() noexcept;
HINSTANCE AfxGetInstanceHandle() noexcept;
HINSTANCE AfxGetResourceHandle() noexcept;
void AfxSetResourceHandle(HINSTANCE hInstResource) noexcept;
