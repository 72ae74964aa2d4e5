// Deliberately the module's only header: including it is enough for the configuration and its printer.
#include "GarmPC3Editor/GmPlotCfg3.h"

#include "tests/support/PrinterRoomTest.h"

namespace
{
using OneHeader = PrinterRoomTest;
}

TEST_F(OneHeader, givesTheConfigurationAndThePrinterBinding)
{
    room.add({.name = OD_T("Plotter A"), .port = OD_T("FILE:")});
    GmPrnHelper helper(OD_T("Plotter A"));
    ASSERT_TRUE(helper.isValid());
    OdString ports;
    EXPECT_TRUE(helper.getPorts(ports));
    EXPECT_EQ(ports, OD_T("FILE:"));
    const OdSharedPtr<GmPlotCfg3> configuration = helper.getNewPlotCfg3Ptr();
    ASSERT_TRUE(configuration);

    bool modified = true;
    EXPECT_FALSE(configuration->updateFromDevMode(DevModeView(), OD_T("Plotter A"), modified));
    DEVMODEW devMode = {};
    EXPECT_FALSE(configuration->updateFromDevMode(devMode, OD_T("Plotter A"), modified));
}
