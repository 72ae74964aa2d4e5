#include <windows.h>

// A library that reports when it is unloaded, to see what is still in use then.
namespace
{
void (*onDetach)() = nullptr;
} // namespace

extern "C" __declspec(dllexport) void setDetachHook(void (*hook)())
{
    onDetach = hook;
}

extern "C" BOOL WINAPI DllMain(HINSTANCE /*instance*/, DWORD reason, LPVOID /*reserved*/)
{
    if (reason == DLL_PROCESS_DETACH && onDetach)
        onDetach();
    return TRUE;
}
