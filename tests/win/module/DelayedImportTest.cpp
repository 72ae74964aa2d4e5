#include "GarmPC3Editor/GmPlotCfg3.h"
#include "GarmPC3Editor/GmPrnHelper.h"
#include "tests/win/module/LoadedModule.h"

#include <gtest/gtest.h>

#include <filesystem>

// This program links the module's delay-import library and is started without the module: that it comes so far as to
// run tests is the first of them.
namespace
{
TEST(DelayedImport, aProgramStartsWithoutTheModule)
{
    EXPECT_FALSE(LoadedModule::isInProcess());
}

TEST(DelayedImport, exportedClassesWorkOnceTheModuleIsLoaded)
{
    const LoadedModule module;
    ASSERT_TRUE(LoadedModule::isInProcess());

    GmPrnHelper printer(L"no such printer");
    EXPECT_FALSE(printer.isValid());

    const std::filesystem::path file = std::filesystem::temp_directory_path() / L"garm-delayed-import.pc3";
    {
        const OdSharedPtr<GmPlotCfg3> made = printer.getNewPlotCfg3Ptr();
        ASSERT_TRUE(made);
        made->m_media.m_size.m_name = L"A paper";
        ASSERT_TRUE(made->write(textOf(file)));
    }
    bool modified = false;
    const OdSharedPtr<GmPlotCfg3> read = GmPlotCfg3::read(textOf(file), modified);
    std::filesystem::remove(file);
    ASSERT_TRUE(read);
    EXPECT_EQ(read->m_media.m_size.m_name, L"A paper");

    GmPlotCfg3 copy(*read);
    EXPECT_EQ(copy.m_media.m_size.m_name, L"A paper");
    copy = GmPlotCfg3();
    EXPECT_EQ(copy.m_media.m_size.m_name, L"");
}
} // namespace
