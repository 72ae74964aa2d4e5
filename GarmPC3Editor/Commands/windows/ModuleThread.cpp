#include "GarmPC3Editor/Commands/ModuleThread.h"

#include "win32/Win32.h"

#include <memory>
#include <new>

namespace
{
struct Start
{
    HMODULE module; // a reference of the thread's own
    void (*work)(void* context) noexcept;
    void* context;
};

// Everything with a destructor is gone when it returns: the thread leaves without coming back.
HMODULE run(void* parameter) noexcept
{
    const std::unique_ptr<Start> start(static_cast<Start*>(parameter));
    start->work(start->context);
    return start->module;
}

// The reference and the thread end in one call of the system: a thread that gave the reference back itself would
// return into code that may be unloaded by then.
DWORD WINAPI threadMain(void* parameter) noexcept
{
    // cppcheck-suppress missingReturn ; this call does not return
    ::FreeLibraryAndExitThread(run(parameter), 0);
}

// One more reference on the library that this function is in; null when there is none to be had.
HMODULE referenceToThisModule() noexcept
{
    HMODULE module = nullptr;
    const BOOL found = ::GetModuleHandleExW(GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS,
                                            reinterpret_cast<LPCWSTR>(&referenceToThisModule), &module);
    return found ? module : nullptr;
}
} // namespace

bool startModuleThread(void (*work)(void* context) noexcept, void* context) noexcept
{
    const HMODULE module = referenceToThisModule();
    if (!module)
        return false;
    std::unique_ptr<Start> start(new (std::nothrow) Start{module, work, context});
    const HANDLE thread = start ? ::CreateThread(nullptr, 0, &threadMain, start.get(), 0, nullptr) : nullptr;
    if (!thread)
    {
        ::FreeLibrary(module);
        return false;
    }
    start.release(); // NOLINT(bugprone-unused-return-value): the thread's from here on
    ::CloseHandle(thread);
    return true;
}
