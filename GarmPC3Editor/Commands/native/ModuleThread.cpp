#include "GarmPC3Editor/Commands/BackgroundCheck.h"

#include <thread>

// A program's own code cannot be unloaded, so there is nothing to hold.
bool startModuleThread(void (*work)(void* context) noexcept, void* context) noexcept
{
    try
    {
        std::thread(work, context).detach();
        return true;
    }
    catch (...)
    {
        return false;
    }
}
