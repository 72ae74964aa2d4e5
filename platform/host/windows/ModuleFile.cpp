#include "host/windows/ModuleFile.h"

#include <vector>

OdString moduleFileName(HINSTANCE module)
{
    // A path that does not fit is cut to the buffer; no path is longer than 32767 units.
    for (DWORD capacity = MAX_PATH; capacity <= 0x10000; capacity *= 2)
    {
        std::vector<OdChar> path(capacity);
        const DWORD length = ::GetModuleFileNameW(module, path.data(), capacity);
        if (length < capacity)
            return OdString(OdStringView(path.data(), length));
    }
    return OdString();
}

HINSTANCE moduleAt(const void* address) noexcept
{
    HINSTANCE module = nullptr;
    constexpr DWORD flags = GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS | GET_MODULE_HANDLE_EX_FLAG_UNCHANGED_REFCOUNT;
    return ::GetModuleHandleExW(flags, static_cast<const OdChar*>(address), &module) ? module : nullptr;
}

PinnedModule::PinnedModule(HINSTANCE module) noexcept
{
    HINSTANCE pinned = nullptr;
    if (::GetModuleHandleExW(GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS, reinterpret_cast<const OdChar*>(module), &pinned))
        m_module = pinned;
}

PinnedModule::~PinnedModule()
{
    if (m_module)
        ::FreeLibrary(m_module);
}
