#pragma once

#include "win32/Win32.h"

#include <functional>

// The calls by which the file layer in GarmHost.dll changes the disk, intercepted while the object lives: they can be
// made to fail one by one, and a test can do something in the middle of a write. One object at a time.
class WinFileCalls
{
public:
    enum Call
    {
        createFile,
        setSecurity,
        writeFile,
        flush,
        setInformation,
        closeHandle,
        replaceFile,
        moveFile,
        deleteFile
    };

    WinFileCalls();
    ~WinFileCalls();
    WinFileCalls(const WinFileCalls&) = delete;
    WinFileCalls& operator=(const WinFileCalls&) = delete;

    int failAt = 0;                       // this call fails, 1 being the first; 0: none does
    DWORD error = ERROR_NOT_ENOUGH_QUOTA; // with this
    int made = 0;                         // so far

    // Run before and after each call; not in the calls that they make themselves. before may set failAt to made.
    std::function<void(Call)> before;
    std::function<void(Call)> after;

    // In place of the system's; null: the system's. SetFileInformationByHandle as the file layer calls it.
    std::function<BOOL(HANDLE, FILE_INFO_BY_HANDLE_CLASS, void*, DWORD)> onSetInformation;
    std::function<BOOL(const wchar_t* replaced)> onReplaceFile;

    // Whether the file layer finds what Wine has beside Windows; without it, it does what it does on Windows.
    bool wineTools = false;

    // How often the file layer waited, and what runs in place of a wait. Time advances by what it waited, and by
    // nothing else.
    int waits = 0;
    std::function<void()> onWait;
};
