#include "tests/unit/commands/ScriptedModule.h"

#include "GarmPC3Editor/Commands/BackgroundCheck.h"
#include "GarmPC3Editor/ThisModule.h"
#include "tests/support/EmptyModule.h"

#include <deque>
#include <thread>

namespace
{
struct Work
{
    void (*function)(void* context) noexcept;
    void* context;
};

class LockedModule final : public EmptyModule
{
};

LockedModule moduleObject;
HINSTANCE resourceLibrary = nullptr;
bool threadsRefused = false;
std::deque<Work>* waiting = nullptr;

void run(const Work& work)
{
    std::thread(work.function, work.context).join();
}
} // namespace

HINSTANCE garmPC3EditorResourceInstance() noexcept
{
    return resourceLibrary;
}

OdRxModule* garmPC3EditorModule() noexcept
{
    return &moduleObject;
}

bool startModuleThread(void (*work)(void* context) noexcept, void* context) noexcept
{
    if (threadsRefused || !waiting)
        return false;
    waiting->push_back({work, context});
    return true;
}

ScriptedModule::ScriptedModule()
{
    waiting = new std::deque<Work>();
}

ScriptedModule::~ScriptedModule()
{
    while (waitingThreads() > 0)
        runFirstThread();
    delete waiting;
    waiting = nullptr;
    threadsRefused = false;
    resourceLibrary = nullptr;
}

void ScriptedModule::setResourceInstance(HINSTANCE library) noexcept
{
    resourceLibrary = library;
}

OdRefCount ScriptedModule::locks() const noexcept
{
    return moduleObject.lockCount();
}

void ScriptedModule::refuseThreads() noexcept
{
    threadsRefused = true;
}

std::size_t ScriptedModule::waitingThreads() const noexcept
{
    return waiting->size();
}

void ScriptedModule::runFirstThread()
{
    const Work work = waiting->front();
    waiting->pop_front();
    run(work);
}

void ScriptedModule::runLastThread()
{
    const Work work = waiting->back();
    waiting->pop_back();
    run(work);
}

void ScriptedModule::runFirstThread(const std::function<void(const std::function<void()>& work)>& around)
{
    const Work work = waiting->front();
    waiting->pop_front();
    std::thread([&] { around([&work] { work.function(work.context); }); }).join();
}
