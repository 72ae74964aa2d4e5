#include "tests/support/processcounts/ProcessCounts.h"
#include "win32/windows/SystemHandles.h"

#include <stdexcept>

#include <tlhelp32.h>

std::size_t threads()
{
    const KernelHandle snapshot(::CreateToolhelp32Snapshot(TH32CS_SNAPTHREAD, 0));
    if (!snapshot)
        throw std::runtime_error("the system does not tell its threads");
    const DWORD own = ::GetCurrentProcessId();
    std::size_t count = 0;
    THREADENTRY32 entry = {};
    entry.dwSize = sizeof entry;
    for (BOOL more = ::Thread32First(snapshot.get(), &entry); more; more = ::Thread32Next(snapshot.get(), &entry))
        count += entry.th32OwnerProcessID == own;
    if (count == 0)
        throw std::runtime_error("the system does not tell the threads of this process");
    return count;
}
