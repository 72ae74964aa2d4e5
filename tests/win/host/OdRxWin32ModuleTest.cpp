#include "kernel/OdRxWin32Module.h"

#include "Fixtures.h"
#include "kernel/OdAlloc.h"
#include "tests/support/RecordedAsserts.h"

#include <gtest/gtest.h>

#include <thread>
#include <vector>

namespace
{
class Probe : public OdRxModule
{
public:
    using Impl = OdRxWin32Module<Probe>;

    void initApp() override {}
    void uninitApp() override {}

    inline static int living = 0;
    inline static OdRxModule* currentAtEnd = nullptr;

protected:
    Probe() { ++living; }
    ~Probe() override
    {
        --living;
        currentAtEnd = Impl::current();
    }
};

class Win32Module : public testing::Test
{
protected:
    Win32Module() : module(Probe::Impl::create(::GetModuleHandleW(nullptr))) {}
    ~Win32Module() override
    {
        if (Probe::Impl::current())
            Probe::Impl::current()->deleteModule();
    }

    OdRxModule* module;
};

void* noMemory(std::size_t)
{
    return nullptr;
}
} // namespace

TEST_F(Win32Module, thereIsOneObjectPerLoad)
{
    EXPECT_EQ(Probe::living, 1);
    EXPECT_EQ(Probe::Impl::create(nullptr), module) << "a later call gives the same object, whatever it passes";
    EXPECT_EQ(Probe::Impl::current(), module);
    EXPECT_EQ(Probe::living, 1);
}

TEST_F(Win32Module, keepsItsLibraryHandle)
{
    EXPECT_EQ(module->sysData(), ::GetModuleHandleW(nullptr));
}

TEST_F(Win32Module, itsNameIsFullPathOfItsFile)
{
    OdChar path[MAX_PATH] = {};
    ::GetModuleFileNameW(nullptr, path, MAX_PATH);
    EXPECT_EQ(module->moduleName(), OdString(path));
}

TEST_F(Win32Module, deletingClearsThePointerBeforeTheObjectGoes)
{
    Probe::currentAtEnd = module;
    module->deleteModule();
    EXPECT_EQ(Probe::currentAtEnd, nullptr);
    EXPECT_EQ(Probe::living, 0);
    EXPECT_EQ(Probe::Impl::current(), nullptr);
}

TEST_F(Win32Module, aLaterLoadMakesANewObject)
{
    module->deleteModule();
    EXPECT_NE(Probe::Impl::create(::GetModuleHandleW(nullptr)), nullptr);
    EXPECT_EQ(Probe::living, 1);
}

TEST_F(Win32Module, locksAreCounted)
{
    EXPECT_EQ(module->lockCount(), 0);
    module->lock();
    module->lock();
    EXPECT_EQ(module->lockCount(), 2);
    module->unlock();
    EXPECT_EQ(module->lockCount(), 1);
    module->unlock();
    EXPECT_EQ(module->lockCount(), 0);
}

TEST_F(Win32Module, extraUnlockAssertsAndStillCounts)
{
    const RecordedAsserts asserts;
    module->unlock();
    ASSERT_EQ(asserts.reports().size(), 1U);
    EXPECT_EQ(asserts.reports()[0], "m_nLockCount | platform/kernel/OdRxWin32Module");
    EXPECT_EQ(module->lockCount(), -1);

    module->lock();
    module->lock();
    module->unlock();
    EXPECT_EQ(asserts.reports().size(), 1U);
}

TEST_F(Win32Module, referenceIsALockButNotTheOwner)
{
    {
        const OdRxModulePtr reference(module);
        EXPECT_EQ(module->lockCount(), 1);
        EXPECT_EQ(module->refCount(), 1);
    }
    EXPECT_EQ(module->lockCount(), 0);
    EXPECT_EQ(Probe::living, 1);
}

TEST_F(Win32Module, lockCountMayBeChangedByManyThreads)
{
    std::vector<std::thread> threads;
    for (int i = 0; i < 4; ++i)
        threads.emplace_back(
            [this]
            {
                for (int k = 0; k < 1000; ++k)
                {
                    module->lock();
                    module->unlock();
                }
            });
    for (std::thread& thread : threads)
        thread.join();
    EXPECT_EQ(module->lockCount(), 0);
}

TEST_F(Win32Module, outOfMemoryThrowsBadAllocation)
{
    module->deleteModule();
    const OdAllocSource before = odrxSetAllocSource(&noMemory);
    EXPECT_THROW(Probe::Impl::create(nullptr), OdBadAlloc);
    odrxSetAllocSource(before);
    EXPECT_EQ(Probe::Impl::current(), nullptr);
    EXPECT_EQ(Probe::living, 0);
}
