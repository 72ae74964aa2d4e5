#pragma once

#include "host/CGarmPath.h"
#include "kernel/OdString.h"
#include "win32/windows/SystemHandles.h"

// Full path of a file among the fixtures, which lie beside the test program.
inline OdString fixture(const OdString& name)
{
    OdChar program[MAX_PATH] = {};
    ::GetModuleFileNameW(nullptr, program, MAX_PATH);
    return CGarmPath(program).fullFolder() + OD_T("host_fixtures\\") + name;
}

inline bool isInProcess(const OdString& file)
{
    return ::GetModuleHandleW(file.c_str()) != nullptr;
}

// Whether something is mapped where a library handle points; the handle of a resource mapping carries flags in its
// lowest bits, which do not matter here.
inline bool isMapped(HINSTANCE library)
{
    MEMORY_BASIC_INFORMATION info = {};
    return ::VirtualQuery(reinterpret_cast<const void*>(library), &info, sizeof(info)) && info.State != MEM_FREE;
}

template <class Function>
Function exported(HINSTANCE library, const char* name)
{
    return reinterpret_cast<Function>(reinterpret_cast<void (*)()>(::GetProcAddress(library, name)));
}
