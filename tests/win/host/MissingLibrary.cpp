#include <windows.h>

__declspec(dllexport) int missingAnswer();

int missingAnswer()
{
    return 42;
}

// Leaves a file in the current folder when it is loaded into a process.
extern "C" BOOL WINAPI DllMain(HINSTANCE, DWORD reason, LPVOID)
{
    if (reason == DLL_PROCESS_ATTACH)
    {
        const HANDLE trace =
            ::CreateFileW(L"trace", GENERIC_WRITE, 0, nullptr, CREATE_ALWAYS, FILE_ATTRIBUTE_NORMAL, nullptr);
        if (trace != INVALID_HANDLE_VALUE)
            ::CloseHandle(trace);
    }
    return TRUE;
}
