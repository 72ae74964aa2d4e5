#include "host/GmModuleLoader.h"

#include "Fixtures.h"
#include "host/GmLanguage.h"
#include "kernel/OdEdCommandStack.h"

#include <gtest/gtest.h>

namespace
{
class ModuleLoader : public testing::Test
{
protected:
    ~ModuleLoader() override
    {
        for (OdRxModule* module : GmModuleLoader::modules())
            EXPECT_EQ(GmModuleLoader::unload(module), OdString());
        EXPECT_EQ(languageCallbackCount(), 0U);
        EXPECT_TRUE(odedRegCmds()->commands().empty());
    }

    // Loads what must not load, and looks that nothing of it stays. Gives the reason without its beginning.
    static OdString refusal(const OdString& name)
    {
        const OdString file = fixture(name);
        const auto [module, reason] = GmModuleLoader::load(file);
        EXPECT_EQ(module, nullptr);
        EXPECT_TRUE(GmModuleLoader::modules().empty());
        EXPECT_FALSE(isInProcess(file));
        EXPECT_EQ(languageCallbackCount(), 0U);
        EXPECT_TRUE(odedRegCmds()->commands().empty());

        const OdString start = OD_T("The module ") + file + OD_T(" cannot be loaded: ");
        EXPECT_EQ(reason.left(start.getLength()), start);
        return reason.mid(start.getLength());
    }

    static OdRxModule* loadGood()
    {
        const auto [module, reason] = GmModuleLoader::load(goodFile());
        EXPECT_NE(module, nullptr) << reason;
        return module;
    }

    static OdString goodFile() { return fixture(OD_T("None.grx")); }
};
} // namespace

TEST_F(ModuleLoader, aLoadedModuleHasStarted)
{
    OdRxModule* module = loadGood();
    ASSERT_NE(module, nullptr);
    EXPECT_EQ(module->moduleName().iCompare(goodFile()), 0);
    EXPECT_EQ(module->sysData(), ::GetModuleHandleW(goodFile().c_str()));
    EXPECT_NE(odedRegCmds()->lookup(OD_T("_TESTMODULE")), nullptr);
    EXPECT_EQ(GmModuleLoader::modules(), std::vector<OdRxModule*>{module});
    EXPECT_EQ(languageCallbackCount(), 1U) << "it registered its callback from its entry point";
}

TEST_F(ModuleLoader, anUnloadedModuleLeavesNothing)
{
    EXPECT_EQ(GmModuleLoader::unload(loadGood()), OdString());
    EXPECT_FALSE(isInProcess(goodFile()));
    EXPECT_TRUE(GmModuleLoader::modules().empty());
    EXPECT_TRUE(odedRegCmds()->commands().empty());
    EXPECT_EQ(languageCallbackCount(), 0U);
}

TEST_F(ModuleLoader, loadsAndUnloadsTenTimes)
{
    for (int i = 0; i < 10; ++i)
    {
        OdRxModule* module = loadGood();
        ASSERT_NE(module, nullptr);
        ASSERT_NE(odedRegCmds()->lookup(OD_T("TESTMODULE")), nullptr);
        ASSERT_EQ(GmModuleLoader::unload(module), OdString());
        ASSERT_FALSE(isInProcess(goodFile()));
    }
}

TEST_F(ModuleLoader, secondLoadIsRefusedUnderEveryPath)
{
    OdRxModule* module = loadGood();
    for (const OdString& path : {goodFile(), fixture(OD_T("..\\host_fixtures\\NONE.GRX"))})
    {
        const auto [second, reason] = GmModuleLoader::load(path);
        EXPECT_EQ(second, nullptr);
        EXPECT_EQ(reason.right(23), OD_T(": it is loaded already.")) << reason;
    }
    EXPECT_EQ(GmModuleLoader::modules(), std::vector<OdRxModule*>{module});

    EXPECT_EQ(GmModuleLoader::unload(module), OdString());
    EXPECT_FALSE(isInProcess(goodFile())) << "the refused loads gave their references back";
}

TEST_F(ModuleLoader, absentFileIsReportedAsMissing)
{
    EXPECT_EQ(refusal(OD_T("Missing.grx")), OD_T("there is no such file."));
    EXPECT_EQ(refusal(OD_T("en")), OD_T("there is no such file.")) << "a folder is none";
}

TEST_F(ModuleLoader, invalidLibraryIsReported)
{
    EXPECT_EQ(refusal(OD_T("Text.grx")), OD_T("it is not a library for this system."));
}

TEST_F(ModuleLoader, libraryWithoutModuleExportsIsReported)
{
    EXPECT_EQ(refusal(OD_T("First.dll")),
              OD_T("it is not a module: it does not export odrxCreateModuleObject and odrxGetAPIVersion."));
}

TEST_F(ModuleLoader, missingDependencyIsReported)
{
    EXPECT_EQ(refusal(OD_T("Dependent.grx")), OD_T("a library that it needs is missing."));
}

TEST_F(ModuleLoader, anotherKernelVersionIsNamed)
{
    EXPECT_EQ(refusal(OD_T("OldVersion.grx")),
              OD_T("it was built for version 3.1.1.0 of the kernel, this is 4.1.1.0."));
}

TEST_F(ModuleLoader, refusedStartRemovesModuleAndCallback)
{
    EXPECT_EQ(refusal(OD_T("AttachRefused.grx")), OD_T("it refused to start; its language library may be missing."));
}

TEST_F(ModuleLoader, aModuleWithoutItsObjectIsRefused)
{
    EXPECT_EQ(refusal(OD_T("CreateThrows.grx")), OD_T("it could not create its module object."));
    EXPECT_EQ(refusal(OD_T("CreateGivesNull.grx")), OD_T("it could not create its module object."));
}

TEST_F(ModuleLoader, moduleWhoseStartThrowsIsTakenOutAgain)
{
    EXPECT_EQ(refusal(OD_T("InitThrows.grx")), OD_T("its start failed."));
}

TEST_F(ModuleLoader, relativePathIsTakenFromCurrentFolder)
{
    const auto [module, reason] = GmModuleLoader::load(OD_T("Missing.grx"));
    EXPECT_EQ(module, nullptr);
    OdChar full[MAX_PATH] = {};
    ::GetFullPathNameW(OD_T("Missing.grx"), MAX_PATH, full, nullptr);
    EXPECT_EQ(reason, OD_T("The module ") + OdString(full) + OD_T(" cannot be loaded: there is no such file."));
}

TEST_F(ModuleLoader, aLockedModuleIsNotUnloaded)
{
    OdRxModule* module = loadGood();
    {
        const OdRxModulePtr inUse(module);
        EXPECT_EQ(GmModuleLoader::unload(module),
                  OD_T("The module ") + module->moduleName() + OD_T(" cannot be unloaded: it is in use."));
        EXPECT_NE(odedRegCmds()->lookup(OD_T("_TESTMODULE")), nullptr);
    }
    EXPECT_EQ(GmModuleLoader::unload(module), OdString());
}

TEST_F(ModuleLoader, whatIsNotLoadedIsNotUnloaded)
{
    EXPECT_EQ(GmModuleLoader::unload(nullptr), OD_T("The module cannot be unloaded: it is not loaded."));
}

TEST_F(ModuleLoader, aCommandsErrorReachesWhoeverRanIt)
{
    loadGood();
    EXPECT_THROW(odedRegCmds()->executeCommand(OD_T("_TESTMODULE"), nullptr), OdError);
}
