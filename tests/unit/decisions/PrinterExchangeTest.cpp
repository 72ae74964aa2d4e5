#include "GarmPC3Editor/Decisions/PrinterExchange.h"

#include <gtest/gtest.h>

namespace
{
OdSharedPtr<GmPlotCfg3> configuration(const OdChar* printer, const OdChar* driver, std::int32_t driverVersion)
{
    OdSharedPtr<GmPlotCfg3> cfg(new GmPlotCfg3);
    cfg->m_meta.m_win_device_name = printer;
    cfg->m_meta.m_short_net_name = printer;
    cfg->m_meta.m_win_driver_name = driver;
    cfg->m_meta.m_dm_driver_version = driverVersion;
    return cfg;
}

TEST(PrinterExchange, APrinterOnTheSameDriverGivesOnlyItsName)
{
    const OdSharedPtr<GmPlotCfg3> cfg = configuration(OD_T("A"), OD_T("Acme HP-GL"), 3);
    cfg->m_media.m_number_of_copies = 7;
    const OdSharedPtr<GmPlotCfg3> chosen = configuration(OD_T("B"), OD_T("ACME hp-gl"), 3);
    EXPECT_EQ(exchangedForPrinter(cfg, chosen), cfg);
    EXPECT_EQ(cfg->m_meta.m_win_device_name, OD_T("B"));
    EXPECT_EQ(cfg->m_meta.m_short_net_name, OD_T("A"));
    EXPECT_EQ(cfg->m_meta.m_win_driver_name, OD_T("Acme HP-GL"));
    EXPECT_EQ(cfg->m_media.m_number_of_copies, 7);
}

TEST(PrinterExchange, AnotherDriverOrVersionBringsTheNewConfiguration)
{
    const OdSharedPtr<GmPlotCfg3> cfg = configuration(OD_T("A"), OD_T("Acme HP-GL"), 3);
    for (const OdSharedPtr<GmPlotCfg3>& chosen :
         {configuration(OD_T("B"), OD_T("Acme HP-GL"), 4), configuration(OD_T("B"), OD_T("Acme HP-GL2"), 3)})
    {
        EXPECT_EQ(exchangedForPrinter(cfg, chosen), chosen);
        EXPECT_EQ(cfg->m_meta.m_win_device_name, OD_T("A"));
    }
}
} // namespace
