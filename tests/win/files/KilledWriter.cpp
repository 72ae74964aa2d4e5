// A program that dies in the middle of a write: killed_writer FILE N ends itself right after the N-th call that
// changes the disk, with status 3. With fewer calls it comes to its end: status 0, or 1 when the write failed.

#include "files/FileAccess.h"
#include "tests/win/files/WinFileCalls.h"

#include <string>

int wmain(int count, wchar_t** arguments)
{
    if (count != 3)
        return 2;
    const int n = std::stoi(arguments[2]);
    WinFileCalls calls;
    calls.after = [&calls, n](WinFileCalls::Call)
    {
        if (calls.made == n)
            ::TerminateProcess(::GetCurrentProcess(), 3);
    };
    return files::replaceFile(arguments[1], "brand new") ? 1 : 0;
}
