#include "plothost/PlotDevices.h"

#include <gtest/gtest.h>

using namespace plothost;

namespace
{
ListReport sampleList()
{
    ListReport list;
    list.configurations = {
        {OD_T("a.pc3"), OD_T("/one/a.pc3")}, {OD_T("b.pc3"), OD_T("/one/b.pc3")}, {OD_T("A.PC3"), OD_T("/two/A.PC3")}};
    list.printers = {{OD_T("P1"), OD_T("D"), OD_T("X:"), false}, {OD_T("P2"), OD_T("D"), OD_T("X:"), true}};
    return list;
}

ListReport printersOnly()
{
    ListReport list = sampleList();
    list.configurations.clear();
    return list;
}
} // namespace

TEST(PlotDevices, configurationsComeBeforePrinters)
{
    EXPECT_EQ(plotDevices(sampleList()), (std::vector<PlotDevice>{{false, OD_T("a.pc3"), OD_T("/one/a.pc3")},
                                                                  {false, OD_T("b.pc3"), OD_T("/one/b.pc3")},
                                                                  {true, OD_T("P1"), OD_T("P1")},
                                                                  {true, OD_T("P2"), OD_T("P2")}}))
        << "a name of an earlier folder hides the same name of a later one";
    EXPECT_TRUE(plotDevices({}).empty());
}

TEST(PlotDevices, theFirstConfigurationElseTheDefaultPrinterIsChosen)
{
    EXPECT_EQ(deviceToBeginWith(plotDevices(sampleList()), sampleList()), 0U);
    EXPECT_EQ(deviceToBeginWith(plotDevices(printersOnly()), printersOnly()), 1U);
    ListReport noDefault = printersOnly();
    noDefault.printers[1].isDefault = false;
    EXPECT_EQ(deviceToBeginWith(plotDevices(noDefault), noDefault), 0U);
    EXPECT_EQ(deviceToBeginWith({}, {}), std::nullopt);
}

TEST(PlotDevices, aConfigurationIsFoundByFileNameAndByPath)
{
    const auto devices = plotDevices(sampleList());
    EXPECT_EQ(configurationNamed(devices, OD_T("B.pc3")), 1U);
    EXPECT_EQ(configurationNamed(devices, OD_T("/one/b.pc3")), 1U);
    EXPECT_EQ(configurationNamed(devices, OD_T("/three/b.pc3")), std::nullopt);
    EXPECT_EQ(configurationNamed(devices, OD_T("P1")), std::nullopt) << "a printer is no configuration";
    EXPECT_EQ(configurationNamed(devices, {}), std::nullopt);
}

TEST(PlotDevices, aPrinterAndAConfigurationOfOneNameAreTwoDevices)
{
    const std::vector<PlotDevice> devices = {{false, OD_T("x"), OD_T("x")}, {true, OD_T("x"), OD_T("x")}};
    EXPECT_EQ(indexOf(devices, devices[0]), 0U);
    EXPECT_EQ(indexOf(devices, devices[1]), 1U);
    EXPECT_EQ(indexOf(devices, {true, OD_T("y"), OD_T("y")}), std::nullopt);
}
