#include <windows.h>

// A library that says when it goes, to see what is still in use at that moment.
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
