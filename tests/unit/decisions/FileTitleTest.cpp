#include "GarmPC3Editor/Decisions/FileTitle.h"

#include <gtest/gtest.h>

namespace
{
TEST(FileTitle, isFileNameAndExtension)
{
    GmPlotCfg3 cfg;
    cfg.m_meta.m_win_device_name = OD_T("Plotter A");
    EXPECT_EQ(fileTitle(OD_T("C:\\plot\\PLOTTER.pc3"), cfg), OD_T("PLOTTER.pc3"));
    EXPECT_EQ(fileTitle(OD_T("C:\\plot\\.pc3"), cfg), OD_T(".pc3"));
    EXPECT_EQ(fileTitle(OD_T("A0"), cfg), OD_T("A0"));
}

TEST(FileTitle, isTheWindowsPrinterWithoutAFileName)
{
    GmPlotCfg3 cfg;
    EXPECT_EQ(fileTitle(OD_T(""), cfg), OD_T(""));
    cfg.m_meta.m_win_device_name = OD_T("\\\\srv\\Plotter A");
    EXPECT_EQ(fileTitle(OD_T(""), cfg), OD_T("\\\\srv\\Plotter A"));
    EXPECT_EQ(fileTitle(OD_T("C:\\plot\\"), cfg), OD_T("\\\\srv\\Plotter A"));
}
} // namespace
