#include "GarmPC3Editor/Commands/BackgroundCheck.h"

#include "win32/windows/SystemHandles.h"

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

// One more reference on the library that this function is in; none when the system gives none.
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
    // Both are the thread's from here on.
    static_cast<void>(start.release());
    static_cast<void>(module.release());
    return true;
}
