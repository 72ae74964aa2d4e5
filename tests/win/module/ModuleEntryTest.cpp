#include "kernel/OdAlloc.h"
#include "kernel/OdAssert.h"
#include "kernel/OdEdCommandStack.h"
#include "kernel/OdError.h"
#include "tests/support/processcounts/ProcessCounts.h"
#include "tests/win/module/LoadedModule.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <exception>
#include <string>
#include <vector>

namespace
{
OdEdCommandPtr command(const OdChar* globalName)
{
    return odedRegCmds()->lookupGlobal(globalName);
}

TEST(ModuleEntry, loadingRegistersBothCommands)
{
    const LoadedModule module;
    ASSERT_TRUE(command(L"_PC3EDIT"));
    ASSERT_TRUE(command(L"_PC3GETDEVMODE"));
    EXPECT_EQ(command(L"_PC3EDIT"), odedRegCmds()->lookupLocal(L"PC3EDIT"));
    EXPECT_EQ(command(L"_PC3GETDEVMODE"), odedRegCmds()->lookupLocal(L"PC3GETDEVMODE"));
}

TEST(ModuleEntry, unloadingRemovesBothCommandsAtOnceAndLibrary)
{
    {
        const LoadedModule module;
        // By group: a command of ours under another name would go with them.
        EXPECT_EQ(command(L"_PC3EDIT")->groupName(), L"HIDDEN_GARM_COMMAND_PC3EDITOR");
        EXPECT_EQ(command(L"_PC3GETDEVMODE")->groupName(), L"HIDDEN_GARM_COMMAND_PC3EDITOR");
    }
    EXPECT_TRUE(odedRegCmds()->commands().empty());
    EXPECT_FALSE(LoadedModule::isInProcess());
}

TEST(ModuleEntry, undefineThrowsCode3AcrossBorderOfModule)
{
    const LoadedModule module;
    for (const OdChar* name : {L"_PC3EDIT", L"_PC3GETDEVMODE"})
        for (const bool off : {true, false})
        {
            int code = 0;
            try
            {
                command(name)->undefine(off);
            }
            catch (const OdError& error)
            {
                code = error.code();
            }
            EXPECT_EQ(code, 3);
            EXPECT_EQ(std::uncaught_exceptions(), 0) << "host and module do not share one C++ runtime";
            EXPECT_TRUE(command(name));
        }
}

TEST(ModuleEntry, answersTheVersionItWasBuiltAgainst)
{
    const LoadedModule module;
    int version[4] = {-1, -1, -1, -1};
    const auto getVersion = module.find<OdRxGetApiVersion>("odrxGetAPIVersion");
    ASSERT_NE(getVersion, nullptr);
    getVersion(version[0], version[1], version[2], version[3]);
    EXPECT_EQ(version[0], 4);
    EXPECT_EQ(version[1], 1);
    EXPECT_EQ(version[2], 1);
    EXPECT_EQ(version[3], 0);
}

TEST(ModuleEntry, givesTheSameModuleObjectEachTime)
{
    const LoadedModule module;
    const auto create = module.find<OdRxCreateModuleObject>("odrxCreateModuleObject");
    ASSERT_NE(create, nullptr);
    EXPECT_EQ(create(), module.object());
    EXPECT_EQ(create(), module.object());
}

TEST(ModuleEntry, moduleNameIsFullPathOfItsFile)
{
    const LoadedModule module;
    EXPECT_EQ(module.object()->moduleName(), textOf(builtModule()));
    EXPECT_EQ(module.library(), ::GetModuleHandleW(builtModule().c_str()));
}

std::vector<std::string>& assertedTexts()
{
    static std::vector<std::string> texts;
    return texts;
}

TEST(ModuleEntry, locksAreCountedAndExtraUnlocksAsserted)
{
    const LoadedModule module;
    EXPECT_EQ(module.object()->lockCount(), 0);
    module.object()->lock();
    module.object()->lock();
    EXPECT_EQ(module.object()->lockCount(), 2);

    assertedTexts().clear();
    const OdAssertHandler before =
        odSetAssertHandler([](const char* text, const char*, int) { assertedTexts().emplace_back(text); });
    module.object()->unlock();
    module.object()->unlock();
    EXPECT_TRUE(assertedTexts().empty());
    module.object()->unlock();
    EXPECT_EQ(assertedTexts(), std::vector<std::string>{"m_nLockCount"});
    odSetAssertHandler(before);
    EXPECT_EQ(module.object()->lockCount(), -1);
    module.object()->lock();
}

// -- The steps of the loader one by one ------------------------------------------------------------------------------

class ModuleLibrary : public ::testing::Test
{
protected:
    ~ModuleLibrary() override
    {
        odrxSetAllocSource(nullptr);
        if (m_library)
            ::FreeLibrary(m_library);
        EXPECT_FALSE(LoadedModule::isInProcess());
    }

    OdRxModule* create() const
    {
        return reinterpret_cast<OdRxCreateModuleObject>(
            reinterpret_cast<void (*)()>(::GetProcAddress(m_library, "odrxCreateModuleObject")))();
    }

    const HMODULE m_library = ::LoadLibraryW(builtModule().c_str());
};

int allocationsLeft = 0;

void allowAllocations(int count)
{
    odedRegCmds();
    allocationsLeft = count;
    odrxSetAllocSource([](std::size_t size) -> void* { return allocationsLeft-- > 0 ? std::malloc(size) : nullptr; });
}

TEST_F(ModuleLibrary, loadingItRegistersNothingYet)
{
    ASSERT_NE(m_library, nullptr);
    EXPECT_TRUE(odedRegCmds()->commands().empty());
}

TEST_F(ModuleLibrary, noMemoryForTheModuleObjectThrows)
{
    allowAllocations(0);
    try
    {
        create();
        FAIL() << "made without memory";
    }
    catch (const std::bad_alloc& error)
    {
        EXPECT_STREQ(error.what(), "bad allocation");
    }
    odrxSetAllocSource(nullptr);
    OdRxModule* module = create();
    ASSERT_NE(module, nullptr);
    module->deleteModule();
}

TEST_F(ModuleLibrary, afterDeleteNextObjectIsNewOne)
{
    OdRxModule* first = create();
    first->initApp();
    first->uninitApp();
    first->deleteModule();
    OdRxModule* second = create();
    EXPECT_EQ(second->lockCount(), 0);
    second->initApp();
    EXPECT_EQ(odedRegCmds()->commands().size(), 2U);
    second->uninitApp();
    second->deleteModule();
}

TEST_F(ModuleLibrary, initAppSwallowsExceptionsAndKeepsRegisteredCommands)
{
    OdRxModule* module = create();
    allowAllocations(1);
    EXPECT_NO_THROW(module->initApp());
    odrxSetAllocSource(nullptr);
    EXPECT_TRUE(command(L"_PC3EDIT"));
    EXPECT_FALSE(command(L"_PC3GETDEVMODE"));
    module->uninitApp();
    EXPECT_TRUE(odedRegCmds()->commands().empty());
    module->deleteModule();
}

TEST_F(ModuleLibrary, uninitAppWithoutCommandsIsFine)
{
    OdRxModule* module = create();
    EXPECT_NO_THROW(module->uninitApp());
    module->deleteModule();
}

// -- No trace --------------------------------------------------------------------------------------------------------

TEST(ModuleEntry, loadingAndUnloadingTenTimesLeavesNothingBehind)
{
    // Under Wine the spooler's library leaks a handle each time it is unloaded, so it stays loaded.
    const LibraryHandle spooler(::LoadLibraryW(L"winspool.drv"));
    {
        // What the system loads for good with the first one is not ours.
        const LoadedModule warmUp;
    }
    const std::size_t handles = openSystemHandles();
    const std::size_t views = mappedViews();
    for (int i = 0; i < 10; ++i)
    {
        const LoadedModule module;
        ASSERT_TRUE(command(L"_PC3EDIT"));
        EXPECT_GT(mappedViews(), views) << "the counter does not see the module";
    }
    EXPECT_EQ(openSystemHandles(), handles);
    EXPECT_EQ(mappedViews(), views);
}

TEST(ProcessCounts, seeWhatALeakWouldBe)
{
    const std::size_t handles = openSystemHandles();
    KernelHandle event(::CreateEventW(nullptr, TRUE, FALSE, nullptr));
    EXPECT_EQ(openSystemHandles(), handles + 1);
    event.reset();
    EXPECT_EQ(openSystemHandles(), handles);
}
} // namespace
