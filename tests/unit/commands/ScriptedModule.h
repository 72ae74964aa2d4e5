#pragma once

#include "kernel/OdRxModule.h"
#include "win32/Win32.h"

#include <cstddef>
#include <functional>

// Replaces the application object and the real threads in these tests: a test chooses the language resource library,
// and a started thread waits until the test runs its work.
class ScriptedModule
{
public:
    ScriptedModule();
    ~ScriptedModule(); // runs waiting threads, so that nothing leaks
    ScriptedModule(const ScriptedModule&) = delete;
    ScriptedModule& operator=(const ScriptedModule&) = delete;

    void setResourceInstance(HINSTANCE library) noexcept;

    // The number of references to the module object.
    OdRefCount locks() const noexcept;

    // No thread can be started from now on.
    void refuseThreads() noexcept;

    // Started but not run yet.
    std::size_t waitingThreads() const noexcept;

    // Runs the work of the first (last) waiting thread to its end, on a real thread.
    void runFirstThread();
    void runLastThread();

    // The same for the first one, called from code that its thread runs around the work.
    void runFirstThread(const std::function<void(const std::function<void()>& work)>& around);
};
