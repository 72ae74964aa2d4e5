// Every allocation of a read and of a write fails once.
#include "GarmPC3Editor/GmPlotCfg3.h"
#include "tests/support/Blocks.h"
#include "tests/support/FailingAllocation.h"
#include "tests/support/TemporaryFolder.h"
#include "tests/support/room/PrinterRoom.h"

#include <gtest/gtest.h>

namespace
{
// With all optional parts, so that each is allocated.
GmPlotCfg3 full()
{
    GmPlotCfg3 configuration;
    configuration.m_meta.m_config_description = OD_T("a text that is too long to be kept inside the object itself");
    configuration.m_meta.m_default_system_cfg = new bool(true);
    configuration.m_res_color_mem.m_lines_overwrite = new bool(true);
    configuration.m_media.m_destination = new GmDestinationNode;
    configuration.m_media.m_destination->setCollating(true);
    configuration.m_custom = new GmCustomNode;
    configuration.m_custom->setNumber(220, OD_T("dmSize"), true);
    configuration.m_custom->setRawData(OD_T("00112233445566778899AABBCCDDEEFF"), true);
    return configuration;
}
} // namespace

// A file that was read only in part would lose the user's settings at the next write: it is read whole or not at all.
TEST(OutOfMemory, aFileIsReadWholeOrNot)
{
    const TemporaryFolder folder;
    const OdString path = folder.at("a.pc3");
    ASSERT_TRUE(full().write(path));
    const unsigned failures = failEachAllocation(
        [&]
        {
            bool modified = true;
            auto configuration = GmPlotCfg3::read(path, modified);
            EXPECT_TRUE(modified);
            return configuration;
        },
        [](const OdSharedPtr<GmPlotCfg3>& configuration, bool failed)
        {
            ASSERT_EQ(configuration.isNull(), failed);
            if (failed)
                return;
            EXPECT_TRUE(configuration->m_media.m_destination);
            EXPECT_TRUE(configuration->m_meta.m_default_system_cfg);
            ASSERT_TRUE(configuration->m_custom);
            EXPECT_EQ(configuration->m_custom->m_binaries.size(), 1U);
        });
    EXPECT_GT(failures, 10U);
}

TEST(OutOfMemory, aFailedWriteLeavesTheOldFileAndNoOther)
{
    const TemporaryFolder folder;
    const OdString path = folder.at("a.pc3");
    ASSERT_TRUE(GmPlotCfg3().write(path));
    const std::string before = folder.bytesOf("a.pc3");
    const GmPlotCfg3 configuration = full();
    const unsigned failures = failEachAllocation([&] { return configuration.write(path); },
                                                 [&](bool done, bool failed)
                                                 {
                                                     ASSERT_EQ(done, !failed);
                                                     EXPECT_EQ(folder.bytesOf("a.pc3") == before, failed);
                                                     EXPECT_EQ(folder.names(), (std::set<std::string>{"a.pc3"}));
                                                 });
    EXPECT_GT(failures, 10U);
}

TEST(OutOfMemory, settingTheDefaultsIsAnsweredAndLosesNoHandle)
{
    PrinterRoom printers;
    printers.add({.name = OD_T("Plotter A"), .driver = OD_T("Acme HP-GL"), .papers = {{9, OD_T("A4")}}});
    GmPlotCfg3 configuration = full();
    configuration.m_meta.m_win_device_name = OD_T("Plotter A");
    configuration.m_meta.m_win_driver_name = OD_T("Acme HP-GL");
    const unsigned failures = failEachAllocation([&] { return configuration.setToDefault(); },
                                                 [&](bool, bool)
                                                 {
                                                     EXPECT_EQ(printers.openHandles(), 0);
                                                     EXPECT_EQ(printers.openContexts(), 0);
                                                 });
    EXPECT_GT(failures, 3U);
}
