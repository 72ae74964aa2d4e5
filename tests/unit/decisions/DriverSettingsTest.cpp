#include "GarmPC3Editor/Decisions/DriverSettings.h"
#include "GarmPC3Editor/Decisions/DeviceLabels.h"

#include <gtest/gtest.h>

namespace
{
GmDriverSettings settingsOf(std::int32_t driverType, const OdChar* model)
{
    GmMetaNode meta;
    meta.m_driver_type = driverType;
    meta.m_canonical_model_name = model;
    return driverSettings(meta);
}
} // namespace

TEST(DriverSettings, aWindowsPrinterHasThoseOfItsDriverWhateverItsModel)
{
    EXPECT_EQ(settingsOf(1, OD_T("")), GmDriverSettings::windowsDriver);
    EXPECT_EQ(settingsOf(1, OD_T("pdf")), GmDriverSettings::windowsDriver);
}

TEST(DriverSettings, ePlotFormatsAreKnownByTheirModelWithoutRegardToCase)
{
    EXPECT_EQ(settingsOf(3, OD_T("DWF6_ePlot_for_plotting")), GmDriverSettings::ePlotFormat);
    EXPECT_EQ(settingsOf(3, OD_T("dwfx_eplot_FOR_plotting")), GmDriverSettings::ePlotFormat);
    EXPECT_EQ(settingsOf(3, OD_T("PDF")), GmDriverSettings::ePlotFormat);
    EXPECT_EQ(settingsOf(3, OD_T("png")), GmDriverSettings::none);
    EXPECT_EQ(settingsOf(3, OD_T("pdf ")), GmDriverSettings::none);
}

TEST(DriverSettings, imageFormatsAreKnownByTheirModelWithoutRegardToCase)
{
    EXPECT_EQ(settingsOf(0, OD_T("png")), GmDriverSettings::imageFormat);
    EXPECT_EQ(settingsOf(0, OD_T("JFIF")), GmDriverSettings::imageFormat);
    EXPECT_EQ(settingsOf(0, OD_T("pdf")), GmDriverSettings::none);
    EXPECT_EQ(settingsOf(0, OD_T("")), GmDriverSettings::none);
}

TEST(DriverSettings, otherDriverTypesHaveNone)
{
    for (const std::int32_t type : {-1, 2, 4, 1000})
        EXPECT_EQ(settingsOf(type, OD_T("pdf")), GmDriverSettings::none);
}

TEST(VectorPage, onlyADepthOfOneBitIsMonochrome)
{
    GmResColorMemNode color;
    color.m_color_depth = 1;
    color.m_num_colors = 2;
    EXPECT_TRUE(isMonochrome(color));
    // One colour is what a depth of 32 bits gives as their number.
    color.m_color_depth = 32;
    color.m_num_colors = 1;
    EXPECT_FALSE(isMonochrome(color));
}
