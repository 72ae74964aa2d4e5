#pragma once

#include "win32/Win32.h"

namespace ATL
{
// Where the ATL part of the libraries gets this module's resources from.
class CAtlBaseModule
{
public:
    HINSTANCE GetModuleInstance() const noexcept { return m_hInst; }
    HINSTANCE GetResourceInstance() const noexcept;

    // Makes the instance current in one atomic step and returns the previous one. A reader on another thread sees
    // either the old or the new library, and the caller knows which one it may free.
    HINSTANCE SetResourceInstance(HINSTANCE hInst) noexcept;

    HINSTANCE m_hInst = nullptr;
    HINSTANCE m_hInstResource = nullptr;
};

// One per module.
extern CAtlBaseModule _AtlBaseModule; // NOLINT(bugprone-reserved-identifier): the name users of ATL know
} // namespace ATL

using ATL::_AtlBaseModule;
