#include "tests/win/module/ImportPatch.h"

#include <cstring>
#include <stdexcept>
#include <string>

namespace
{
template <class T>
T* at(HMODULE library, DWORD offset)
{
    return reinterpret_cast<T*>(reinterpret_cast<char*>(library) + offset);
}

const void** importSlot(HMODULE library, const char* name)
{
    const auto* dos = at<IMAGE_DOS_HEADER>(library, 0);
    const auto* headers = at<IMAGE_NT_HEADERS>(library, static_cast<DWORD>(dos->e_lfanew));
    const DWORD imports = headers->OptionalHeader.DataDirectory[IMAGE_DIRECTORY_ENTRY_IMPORT].VirtualAddress;
    for (auto* from = at<IMAGE_IMPORT_DESCRIPTOR>(library, imports); from->Name; ++from)
    {
        const auto* names = at<IMAGE_THUNK_DATA>(library, from->OriginalFirstThunk);
        auto* slots = at<const void*>(library, from->FirstThunk);
        for (; names->u1.AddressOfData; ++names, ++slots)
        {
            if (IMAGE_SNAP_BY_ORDINAL(names->u1.Ordinal))
                continue;
            const auto* import = at<IMAGE_IMPORT_BY_NAME>(library, static_cast<DWORD>(names->u1.AddressOfData));
            if (std::strcmp(reinterpret_cast<const char*>(import->Name), name) == 0)
                return slots;
        }
    }
    throw std::runtime_error(std::string("not imported: ") + name);
}

void write(const void** slot, const void* value)
{
    DWORD protection = 0;
    ::VirtualProtect(slot, sizeof *slot, PAGE_READWRITE, &protection);
    *slot = value;
    ::VirtualProtect(slot, sizeof *slot, protection, &protection);
}
} // namespace

ImportPatch::ImportPatch(HMODULE library, const char* name, const void* replacement)
    : m_slot(importSlot(library, name)), m_original(*m_slot)
{
    write(m_slot, replacement);
}

ImportPatch::~ImportPatch()
{
    if (m_slot)
        write(m_slot, m_original);
}
