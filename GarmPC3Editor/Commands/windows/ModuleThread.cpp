#include "GarmPC3Editor/Commands/BackgroundCheck.h"

#include "win32/windows/SystemHandles.h"

#include <memory>
#include <new>

namespace
{
struct Start
{
    HMODULE module; // the thread's own reference
    void (*work)(void* context) noexcept;
    void* context;
};

// Everything with a destructor is destroyed when it returns: the thread then exits without returning.
HMODULE run(void* parameter) noexcept
{
    const std::unique_ptr<Start> start(static_cast<Start*>(parameter));
    start->work(start->context);
    return start->module;
}

// One system call releases the reference and ends the thread: a thread that released the reference itself would return
// into code that may already be unloaded.
DWORD WINAPI threadMain(void* parameter) noexcept
{
    // cppcheck-suppress missingReturn ; this call does not return
    ::FreeLibraryAndExitThread(run(parameter), 0);
}

// One more reference on the library that this function is in; null if the system refuses.
LibraryHandle referenceToThisModule() noexcept
{
    HMODULE module = nullptr;
    const BOOL found = ::GetModuleHandleExW(GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS,
                                            reinterpret_cast<LPCWSTR>(&referenceToThisModule), &module);
    return LibraryHandle(found ? module : nullptr);
}
} // namespace

bool startModuleThread(void (*work)(void* context) noexcept, void* context) noexcept
{
    LibraryHandle module = referenceToThisModule();
    if (!module)
        return false;
    std::unique_ptr<Start> start(new (std::nothrow) Start{module.get(), work, context});
    const KernelHandle thread(start ? ::CreateThread(nullptr, 0, &threadMain, start.get(), 0, nullptr) : nullptr);
    if (!thread)
        return false;
    // The thread owns both from here on.
    static_cast<void>(start.release());
    static_cast<void>(module.release());
    return true;
}
