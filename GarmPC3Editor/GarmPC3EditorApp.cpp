#include "GarmPC3Editor/GarmPC3EditorApp.h"

#include "GarmPC3Editor/ThisModule.h"
#include "host/GmLanguage.h"
#include "mfc/AfxModuleState.h"
#include "mfc/AtlBaseModule.h"

#include <utility>

GarmPC3EditorApp theApp;

namespace
{
// Called by the host when the user interface language has changed. Always succeeds, so that the host calls it again at
// the next change.
BOOL onLanguageChanged()
{
    try
    {
        theApp.ReloadAppLangResourceDLL();
    }
    catch (...)
    {
        // The old library stays.
    }
    return TRUE;
}
} // namespace

BOOL GarmPC3EditorApp::InitInstance()
{
    CWinApp::InitInstance();
    if (m_hLangResourceDLL)
        return TRUE;
    ::MessageBoxW(nullptr, L"Can't load GarmPC3EditorRes.dll\nPC3 Editor commands will be unavailable.", L"Garmont",
                  MB_ICONERROR);
    return FALSE;
}

HINSTANCE GarmPC3EditorApp::LoadAppLangResourceDLL()
{
    return GmLoadAppLangResourceDLL(m_hInstance, nullptr, &onLanguageChanged, nullptr);
}

void GarmPC3EditorApp::ReloadAppLangResourceDLL()
{
    AFX_MANAGE_STATE(AfxGetStaticModuleState());
    // Without the callback: the host keeps the one it has.
    const HINSTANCE library = GmLoadAppLangResourceDLL(m_hInstance, nullptr, nullptr, nullptr);
    if (!library)
        return;
    const HINSTANCE old = std::exchange(m_hLangResourceDLL, library);
    AfxSetResourceHandle(library);
    _AtlBaseModule.SetResourceInstance(library);
    // Last, when nothing refers to it any more.
    ::FreeLibrary(old);
}

HINSTANCE GarmPC3EditorApp::resourceInstance() noexcept
{
    return theApp.m_hLangResourceDLL;
}

HINSTANCE garmPC3EditorResourceInstance() noexcept
{
    return GarmPC3EditorApp::resourceInstance();
}
