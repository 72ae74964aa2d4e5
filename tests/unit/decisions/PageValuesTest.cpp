#include "GarmPC3Editor/Decisions/PageValues.h"

#include "tests/support/RecordedAsserts.h"

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

TEST(CollatingPage, withoutADestinationNothingIsWritten)
{
    GmPlotCfg3 cfg;
    EXPECT_EQ(collatingChoice(cfg), 0);
    EXPECT_FALSE(storeCollating(cfg, 1));
    EXPECT_TRUE(cfg.m_media.m_destination.isNull());
}

TEST(CollatingPage, theSameChoiceStillRewritesTheText)
{
    GmPlotCfg3 cfg;
    cfg.m_media.m_destination = OdSharedPtr<GmDestinationNode>(new GmDestinationNode);
    cfg.m_media.m_destination->m_collating_name = OD_T("edited by hand");
    EXPECT_FALSE(storeCollating(cfg, 0));
    EXPECT_EQ(cfg.m_media.m_destination->m_collating_name, OD_T("None"));
    EXPECT_TRUE(storeCollating(cfg, 1));
    EXPECT_EQ(cfg.m_media.m_destination->m_collating_name, OD_T("Regular"));
    EXPECT_EQ(collatingChoice(cfg), 1);
    // No selection must not count as the second entry.
    EXPECT_TRUE(storeCollating(cfg, -1));
    EXPECT_EQ(cfg.m_media.m_destination->m_collating_type, 0);
}

TEST(CollatingPage, aStalePageWritesItsOldChoiceBack)
{
    GmPlotCfg3 cfg;
    cfg.m_media.m_destination = OdSharedPtr<GmDestinationNode>(new GmDestinationNode);
    const int held = collatingChoice(cfg);
    cfg.m_media.m_destination->setCollating(true); // behind the page's back
    EXPECT_TRUE(storeCollating(cfg, held));
    EXPECT_EQ(cfg.m_media.m_destination->m_collating_type, 0);
}

TEST(RasterPage, movingBackBetweenCommitsWritesNothing)
{
    GmPlotCfg3 cfg;
    GmRasterValues held = rasterValues(cfg);
    EXPECT_EQ(held, (GmRasterValues{6, 6, 50}));
    EXPECT_FALSE(storeRaster(cfg, held, held));
}

TEST(RasterPage, oneChangeWritesAllThreeHeldValues)
{
    GmPlotCfg3 cfg;
    GmRasterValues held = rasterValues(cfg);
    cfg.m_res_color_mem.m_ism_max = 1; // behind the page's back
    EXPECT_FALSE(storeRaster(cfg, held, held));
    EXPECT_EQ(cfg.m_res_color_mem.m_ism_max, 1);
    EXPECT_TRUE(storeRaster(cfg, held, {6, 6, 51}));
    EXPECT_EQ(cfg.m_res_color_mem.m_ism_max, 6);
    EXPECT_EQ(cfg.m_res_color_mem.m_ole_max, 6);
    EXPECT_EQ(cfg.m_res_color_mem.m_preference, 51);
    EXPECT_FALSE(storeRaster(cfg, held, {6, 6, 51}));
}

TEST(TrueTypePage, firstButtonIsText)
{
    GmPlotCfg3 cfg;
    int held = trueTypeChoice(cfg);
    EXPECT_EQ(held, 0);
    EXPECT_FALSE(storeTrueType(cfg, held, 0));
    EXPECT_TRUE(storeTrueType(cfg, held, 1));
    EXPECT_FALSE(cfg.m_meta.m_truetype_as_text);
    EXPECT_EQ(trueTypeChoice(cfg), 1);
    EXPECT_TRUE(storeTrueType(cfg, held, 0));
    EXPECT_TRUE(cfg.m_meta.m_truetype_as_text);
}

TEST(MergePage, choiceFollowsTheValue)
{
    GmPlotCfg3 cfg;
    EXPECT_EQ(mergeChoice(cfg), 0);
    cfg.m_res_color_mem.m_lines_overwrite = GmOptionalFlag(new bool(false));
    EXPECT_EQ(mergeChoice(cfg), 1);
    int held = 1;
    EXPECT_TRUE(storeMerge(cfg, held, 0));
    EXPECT_TRUE(*cfg.m_res_color_mem.m_lines_overwrite);
    EXPECT_EQ(mergeChoice(cfg), 0);
    EXPECT_FALSE(storeMerge(cfg, held, 0));
}

TEST(MergePage, changeWithoutValueIsAssertedAndDropped)
{
    const RecordedAsserts asserts;
    GmPlotCfg3 cfg;
    int held = mergeChoice(cfg);
    EXPECT_FALSE(storeMerge(cfg, held, 0));
    EXPECT_TRUE(RecordedAsserts::reports().empty());
    EXPECT_FALSE(storeMerge(cfg, held, 1));
    ASSERT_EQ(RecordedAsserts::reports().size(), 1U);
    EXPECT_EQ(RecordedAsserts::reports()[0],
              "m_dlg.cfg().m_res_color_mem.m_lines_overwrite | GarmPC3Editor/Dialogs/GmDeviceSubDlg");
    EXPECT_TRUE(cfg.m_res_color_mem.m_lines_overwrite.isNull());
}

TEST(DriverSettings, windowsPrinterHasItsDriversSettings)
{
    EXPECT_EQ(settingsOf(1, OD_T("")), GmDriverSettings::windowsDriver);
    EXPECT_EQ(settingsOf(1, OD_T("pdf")), GmDriverSettings::windowsDriver);
}

TEST(DriverSettings, ePlotFormatsAreKnownByTheirModel)
{
    EXPECT_EQ(settingsOf(3, OD_T("DWF6_ePlot_for_plotting")), GmDriverSettings::ePlotFormat);
    EXPECT_EQ(settingsOf(3, OD_T("dwfx_eplot_FOR_plotting")), GmDriverSettings::ePlotFormat);
    EXPECT_EQ(settingsOf(3, OD_T("PDF")), GmDriverSettings::ePlotFormat);
    EXPECT_EQ(settingsOf(3, OD_T("png")), GmDriverSettings::none);
    EXPECT_EQ(settingsOf(3, OD_T("pdf ")), GmDriverSettings::none);
}

TEST(DriverSettings, imageFormatsAreKnownByTheirModel)
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
