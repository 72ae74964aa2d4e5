// The start and the end of the module with each allocation failing in its turn: nothing is thrown out of the library's
// entry point, and a module that is not loaded leaves nothing behind.

#include "kernel/OdEdCommandStack.h"
#include "tests/support/processcounts/ProcessCounts.h"
#include "tests/win/module/LoadedModule.h"
#include "tests/win/support/FailingMemory.h"
#include "tests/win/support/MessageBoxAnswerer.h"

#include <gtest/gtest.h>

#include <new>

namespace
{
class ModuleOutOfMemory : public ::testing::Test
{
protected:
    ModuleOutOfMemory()
    {
        // What the system loads for good with the first one is not ours.
        const LoadedModule warmUp;
    }

    // The module object, null when there is none; the host's loader may itself be what lacks the memory.
    OdRxModule* loadFailing(unsigned n, bool& reached)
    {
        const FailingMemory failing(n);
        OdRxModule* object = nullptr;
        try
        {
            object = GmModuleLoader::load(m_path).module;
        }
        catch (const std::bad_alloc&)
        {
            EXPECT_EQ(object, nullptr);
        }
        reached = failing.reached();
        return object;
    }

    static void expectGone(unsigned n)
    {
        EXPECT_FALSE(LoadedModule::isInProcess()) << n;
        EXPECT_TRUE(odedRegCmds()->commands().empty()) << n;
    }

    // Under Wine the spooler's library leaks a handle each time it is unloaded, so it stays loaded.
    const LibraryHandle m_spooler{::LoadLibraryW(L"winspool.drv")};
    const OdString m_path = textOf(builtModule());
    MessageBoxAnswerer m_answerer; // without memory the language library may be missing
};
} // namespace

TEST_F(ModuleOutOfMemory, loadRegistersWhatMemoryAllows)
{
    int loaded = 0;
    int incomplete = 0;
    int refused = 0;
    std::size_t handles = 0;
    std::size_t views = 0;
    for (unsigned n = 1;; ++n)
    {
        bool reached = false;
        OdRxModule* object = loadFailing(n, reached);
        const std::size_t commands = odedRegCmds()->commands().size();
        ++(!object ? refused : commands == 2 ? loaded : incomplete);
        if (object)
        {
            EXPECT_LE(commands, 2U);
            EXPECT_EQ(GmModuleLoader::unload(object), OdString()) << n;
        }
        expectGone(n);
        if (n == 1)
        {
            handles = openSystemHandles();
            views = mappedViews();
        }
        if (!reached)
        {
            EXPECT_EQ(commands, 2U);
            RecordProperty("allocations", static_cast<int>(n) - 1);
            break;
        }
    }
    EXPECT_EQ(openSystemHandles(), handles);
    EXPECT_EQ(mappedViews(), views);
    EXPECT_GT(incomplete, 4);
    EXPECT_GT(refused, 4);
    EXPECT_GE(loaded, 1);
}

TEST_F(ModuleOutOfMemory, itIsUnloadedWhateverFails)
{
    for (unsigned n = 1;; ++n)
    {
        bool reached = false;
        OdRxModule* object = loadFailing(0, reached);
        ASSERT_NE(object, nullptr);
        OdString whyNot = L"it threw";
        {
            const FailingMemory failing(n);
            EXPECT_NO_THROW(whyNot = GmModuleLoader::unload(object)) << n;
            reached = failing.reached();
        }
        EXPECT_EQ(whyNot, OdString()) << n;
        expectGone(n);
        if (!reached)
            break;
    }
}
