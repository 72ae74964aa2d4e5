#include "GarmPC3Editor/Dialogs/RunsUnderWine.h"

#include "win32/Win32.h"

bool runsUnderWine() noexcept
{
    HKEY key = nullptr;
    if (::RegOpenKeyExW(HKEY_LOCAL_MACHINE, L"Software\\Wine\\Wine\\Config", 0, KEY_READ, &key) != ERROR_SUCCESS)
        return false;
    ::RegCloseKey(key);
    return true;
}
