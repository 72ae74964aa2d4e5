#include "mfc/AfxDll.h"

// The entry point of every DLL that links this library and has none of its own. Global objects are constructed before
// the attach and destroyed after the detach.
extern "C" BOOL WINAPI DllMain(HINSTANCE hInstance, DWORD reason, LPVOID /*reserved*/)
{
    if (reason == DLL_PROCESS_ATTACH)
        return AfxDllProcessAttach(hInstance) ? TRUE : FALSE;
    if (reason == DLL_PROCESS_DETACH)
        AfxDllProcessDetach();
    return TRUE;
}
