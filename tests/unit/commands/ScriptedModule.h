#pragma once

#include "kernel/OdRxModule.h"
#include "win32/Win32.h"

#include <cstddef>
#include <functional>

// What the module around the commands does in these tests, in place of the application object and the real threads:
// the language resource library is whatever a test says, and a started thread waits until the test runs its work.
class ScriptedModule
{
public:
    ScriptedModule();
    ~ScriptedModule(); // runs what still waits, so that nothing leaks
    ScriptedModule(const ScriptedModule&) = delete;
    ScriptedModule& operator=(const ScriptedModule&) = delete;

    void setResourceInstance(HINSTANCE library) noexcept;

    // How many hold the module object.
    OdRefCount locks() const noexcept;

    // No thread can be started from now on.
    void refuseThreads() noexcept;

    // Started and not run yet.
    std::size_t waitingThreads() const noexcept;

    // Runs the work of the first (last) thread that waits, on a thread of its own, to its end.
    void runFirstThread();
    void runLastThread();

    // The first one, from within something that its thread does around it.
    void runFirstThread(const std::function<void(const std::function<void()>& work)>& around);
};
