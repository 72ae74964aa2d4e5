#include "mfc/CWinApp.h"

#include "mfc/AfxModuleState.h"
#include "mfc/AtlBaseModule.h"

#include <utility>

CWinApp::CWinApp() noexcept
{
    AfxGetStaticModuleState()->m_pCurrentWinApp = this;
}

CWinApp::~CWinApp()
{
    AFX_MODULE_STATE* state = AfxGetStaticModuleState();
    if (state->m_pCurrentWinApp == this)
        state->m_pCurrentWinApp = nullptr;

    const HINSTANCE library = std::exchange(m_hLangResourceDLL, nullptr);
    if (!library)
        return;
    // No code may find a library that is already freed.
    if (state->m_hCurrentResourceHandle == library)
        state->m_hCurrentResourceHandle = state->m_hCurrentInstanceHandle;
    if (_AtlBaseModule.GetResourceInstance() == library)
        _AtlBaseModule.SetResourceInstance(_AtlBaseModule.GetModuleInstance());
    ::FreeLibrary(library);
}

BOOL CWinApp::InitInstance()
{
    m_hLangResourceDLL = LoadAppLangResourceDLL();
    if (m_hLangResourceDLL)
    {
        AfxSetResourceHandle(m_hLangResourceDLL);
        _AtlBaseModule.SetResourceInstance(m_hLangResourceDLL);
    }
    return TRUE;
}

int CWinApp::ExitInstance()
{
    return 0;
}

HINSTANCE CWinApp::LoadAppLangResourceDLL()
{
    return nullptr;
}

BOOL AfxWinInit(HINSTANCE hInstance, HINSTANCE /*hPrevInstance*/, LPWSTR /*lpCmdLine*/, int /*nCmdShow*/) noexcept
{
    AFX_MODULE_STATE* state = AfxGetStaticModuleState();
    state->m_hCurrentInstanceHandle = hInstance;
    state->m_hCurrentResourceHandle = hInstance;
    _AtlBaseModule.m_hInst = hInstance;
    _AtlBaseModule.SetResourceInstance(hInstance);
    if (state->m_pCurrentWinApp)
        state->m_pCurrentWinApp->m_hInstance = hInstance;
    return TRUE;
}
