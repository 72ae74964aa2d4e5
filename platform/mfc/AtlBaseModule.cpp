#include "mfc/AtlBaseModule.h"

#include <atomic>

namespace ATL
{
// Constant-initialised: the application object's constructor may run before the constructors in this file.
constinit CAtlBaseModule _AtlBaseModule; // NOLINT(bugprone-reserved-identifier)

HINSTANCE CAtlBaseModule::GetResourceInstance() const noexcept
{
    return std::atomic_ref(const_cast<HINSTANCE&>(m_hInstResource)).load();
}

HINSTANCE CAtlBaseModule::SetResourceInstance(HINSTANCE hInst) noexcept
{
    return std::atomic_ref(m_hInstResource).exchange(hInst);
}
} // namespace ATL
