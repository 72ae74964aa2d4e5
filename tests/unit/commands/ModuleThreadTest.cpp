#include "GarmPC3Editor/Commands/BackgroundCheck.h"

#include "tests/support/FailingAllocation.h"

#include <gtest/gtest.h>

#include <condition_variable>
#include <mutex>
#include <thread>

namespace
{
// An event that one thread waits for and another signals. The library's semaphores sometimes lose a wake-up on systems
// without waiting on addresses.
class Signal
{
public:
    void give()
    {
        const std::lock_guard lock(m_mutex);
        m_given = true;
        m_changed.notify_one();
    }

    void await()
    {
        std::unique_lock lock(m_mutex);
        m_changed.wait(lock, [this] { return m_given; });
        m_given = false;
    }

private:
    std::mutex m_mutex;
    std::condition_variable m_changed;
    bool m_given = false;
};

// Static: such a thread is never joined, so it may still use them after the test.
Signal entered;
Signal mayLeave;
Signal left;
std::thread::id workThread;
void* workContext = nullptr;

TEST(ModuleThread, runsTheWorkOnItsOwnThread)
{
    int context = 0;
    ASSERT_TRUE(startModuleThread(
        [](void* given) noexcept
        {
            workThread = std::this_thread::get_id();
            workContext = given;
            left.give();
        },
        &context));
    left.await();
    EXPECT_NE(workThread, std::this_thread::get_id());
    EXPECT_EQ(workContext, &context);
}

TEST(ModuleThread, startingDoesNotWaitForTheWork)
{
    ASSERT_TRUE(startModuleThread(
        [](void*) noexcept
        {
            entered.give();
            mayLeave.await();
            left.give();
        },
        nullptr));
    // Reached while the work still waits for us.
    entered.await();
    mayLeave.give();
    left.await();
}

TEST(ModuleThread, workOfAnUnstartedThreadNeverRuns)
{
    static int runs = 0;
    const unsigned failed = failEachAllocation(
        []
        {
            return startModuleThread(
                [](void*) noexcept
                {
                    ++runs;
                    left.give();
                },
                nullptr);
        },
        [](bool started, bool reached)
        {
            EXPECT_EQ(started, !reached);
            if (started)
                left.await();
        });
    EXPECT_GE(failed, 1U);
    EXPECT_EQ(runs, 1) << "also the work of a thread that did not start was run";
}
} // namespace
