#include "tests/win/support/FailingMemory.h"

#include "tests/win/module/ImportPatch.h"
#include "win32/Win32.h"

#include <cstdlib>

namespace
{
DWORD failingThread = 0;
unsigned failAt = 0;
unsigned count = 0;

void* failingMalloc(std::size_t size)
{
    if (::GetCurrentThreadId() == failingThread && !FailingMemory::Exempt::isOn() && ++count == failAt)
        return nullptr;
    return std::malloc(size);
}
} // namespace

FailingMemory::FailingMemory(unsigned n)
{
    for (const wchar_t* library : {L"libstdc++-6.dll", L"GarmHost.dll"})
        m_patches.push_back(std::make_unique<ImportPatch>(::GetModuleHandleW(library), "malloc",
                                                          reinterpret_cast<const void*>(&failingMalloc)));
    count = 0;
    failAt = n;
    failingThread = ::GetCurrentThreadId();
}

FailingMemory::~FailingMemory()
{
    failingThread = 0;
}

unsigned FailingMemory::made() const noexcept
{
    return count;
}

bool FailingMemory::reached() const noexcept
{
    return count >= failAt;
}
