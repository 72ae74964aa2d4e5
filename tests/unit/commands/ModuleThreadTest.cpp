#include "GarmPC3Editor/Commands/ModuleThread.h"

#include <gtest/gtest.h>

#include <semaphore>
#include <thread>

namespace
{
// Static: nobody waits for the end of such a thread, so it may still touch them when the test is over.
std::binary_semaphore entered(0);
std::binary_semaphore mayLeave(0);
std::binary_semaphore left(0);
std::thread::id workThread;
void* workContext = nullptr;

TEST(ModuleThread, RunsTheWorkWithItsContextOnAThreadOfItsOwn)
{
    int context = 0;
    ASSERT_TRUE(startModuleThread(
        [](void* given) noexcept
        {
            workThread = std::this_thread::get_id();
            workContext = given;
            left.release();
        },
        &context));
    left.acquire();
    EXPECT_NE(workThread, std::this_thread::get_id());
    EXPECT_EQ(workContext, &context);
}

TEST(ModuleThread, StartingDoesNotWaitForTheWork)
{
    ASSERT_TRUE(startModuleThread(
        [](void*) noexcept
        {
            entered.release();
            mayLeave.acquire();
            left.release();
        },
        nullptr));
    // Here while the work still waits for us.
    entered.acquire();
    mayLeave.release();
    left.acquire();
}
} // namespace
