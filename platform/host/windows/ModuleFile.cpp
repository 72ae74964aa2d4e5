#include "host/windows/ModuleFile.h"

#include <vector>

namespace
{
// Wine returns the path of a module that it loaded from a share without its beginning: "UNC\\srv\\share\\x.grx". A
// module's path is never relative, so this cannot be a folder called UNC.
OdString withShare(OdStringView path)
{
    constexpr OdStringView rest = OD_T("UNC\\");
    return path.starts_with(rest) ? OD_T("\\\\") + OdString(path.substr(rest.size())) : OdString(path);
}
} // namespace

OdString moduleFileName(HINSTANCE module)
{
    // A path that does not fit is cut to the buffer. No path is longer than 32767 units.
    for (DWORD capacity = MAX_PATH; capacity <= 0x10000; capacity *= 2)
    {
        std::vector<OdChar> path(capacity);
        const DWORD length = ::GetModuleFileNameW(module, path.data(), capacity);
        if (length < capacity)
            return withShare(OdStringView(path.data(), length));
    }
    return OdString();
}

HINSTANCE moduleAt(const void* address) noexcept
{
    HINSTANCE module = nullptr;
    constexpr DWORD flags = GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS | GET_MODULE_HANDLE_EX_FLAG_UNCHANGED_REFCOUNT;
    return ::GetModuleHandleExW(flags, static_cast<const OdChar*>(address), &module) ? module : nullptr;
}

LibraryHandle pinnedModule(HINSTANCE module) noexcept
{
    HINSTANCE pinned = nullptr;
    const auto* const address = reinterpret_cast<const OdChar*>(module);
    return ::GetModuleHandleExW(GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS, address, &pinned) ? LibraryHandle(pinned)
                                                                                          : LibraryHandle();
}
