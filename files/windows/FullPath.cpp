#include "files/FullPath.h"

#include "win32/Win32.h"

#include <vector>

OdString fullPath(const OdString& path)
{
    if (path.isEmpty() || path.find(OdChar()) >= 0)
        return path;
    std::vector<OdChar> full(MAX_PATH);
    for (;;)
    {
        const DWORD length = ::GetFullPathNameW(path.c_str(), static_cast<DWORD>(full.size()), full.data(), nullptr);
        if (length == 0)
            return path;
        if (length < full.size())
            return OdString(OdStringView(full.data(), length));
        // The current folder may have changed in the meantime, so the size asked for may not be enough.
        full.resize(length + std::size_t{1});
    }
}

OdChar pathSeparator() noexcept
{
    return '\\';
}
