#include "GarmPC3Editor/Decisions/DeviceTree.h"

#include "tests/unit/decisions/FakeTexts.h"

#include <gtest/gtest.h>

#include <map>
#include <string>

namespace
{
OdSharedPtr<GmDestinationNode> destinationNamed(const OdChar* name, bool collate)
{
    OdSharedPtr<GmDestinationNode> destination(new GmDestinationNode);
    destination->m_name = name;
    destination->setCollating(collate);
    return destination;
}

std::vector<GmDeviceEntry> types(const GmPlotCfg3& cfg)
{
    std::vector<GmDeviceEntry> result;
    for (const GmDeviceTreeItem& item : deviceTree(cfg))
        result.push_back(item.type);
    return result;
}

class DeviceLabel : public testing::Test
{
protected:
    OdString label(GmDeviceEntry type) const { return deviceLabel(type, {cfg, OD_T("PLOTTER.pc3"), fakeTexts()}); }

    GmPlotCfg3 cfg;
};
} // namespace

TEST(FormatText, fillsPlacesInOrder)
{
    EXPECT_EQ(formatText(OD_T("%s of %d"), {OD_T("1"), OD_T("2")}), OD_T("1 of 2"));
    EXPECT_EQ(formatText(OD_T("100 %% of %s"), {OD_T("%d")}), OD_T("100 % of %d"));
    EXPECT_EQ(formatText(OD_T("%s %s!"), {OD_T("a")}), OD_T("a !"));
    EXPECT_EQ(formatText(OD_T("no place"), {OD_T("a")}), OD_T("no place"));
    EXPECT_EQ(formatText(OD_T("50% %x %"), {OD_T("a")}), OD_T("50% %x %"));
}

TEST(DeviceTree, destinationEntriesComeAfterSourceAndSize)
{
    GmPlotCfg3 cfg;
    cfg.m_media.m_destination = destinationNamed(OD_T("Default"), false);
    cfg.m_res_color_mem.m_lines_overwrite = GmOptionalFlag(new bool(false));
    const std::vector<GmDeviceTreeItem> expected = {
        {eRoot, std::nullopt, true},         {eMedia, eRoot, true},
        {eSourceSize, eMedia, false},        {eMediaDest, eMedia, true},
        {eCollating, eMediaDest, false},     {eGraphics, eRoot, true},
        {eVectorGraphics, eGraphics, false}, {eRasterGraphics, eGraphics, false},
        {eTrueType, eGraphics, false},       {eMergeCtrl, eGraphics, false},
        {eCustomProp, eRoot, false},
    };
    EXPECT_EQ(deviceTree(cfg), expected);
}

TEST(DeviceTree, whatTheConfigurationLacksHasNoEntry)
{
    const std::vector<GmDeviceEntry> expected = {eRoot,           eMedia,          eSourceSize, eGraphics,
                                                 eVectorGraphics, eRasterGraphics, eTrueType,   eCustomProp};
    EXPECT_EQ(types(GmPlotCfg3()), expected);
}

TEST(DeviceTree, iconsByKind)
{
    const UINT expected[] = {308, 301, 302, 307, 306, 311, 304, 309, 310, 312, 313, 303};
    ASSERT_EQ(deviceRowCount, std::ssize(expected));
    for (std::int32_t type = 0; type < deviceRowCount; ++type)
        EXPECT_EQ(deviceRow(type)->icon, expected[type]) << type;
}

TEST(DeviceTree, onlySettingsHavePages)
{
    const std::map<std::int32_t, UINT> expected = {{5, 110}, {7, 107}, {8, 109}, {9, 111}, {10, 112}, {11, 108}};
    std::map<std::int32_t, UINT> dialogs;
    for (const GmDeviceRow& row : deviceRows)
        if (row.dialog)
            dialogs.emplace(row.type, row.dialog);
    EXPECT_EQ(dialogs, expected);
}

TEST(DeviceTree, aNumberThatIsNoKindHasNothing)
{
    for (const std::int32_t type : {-1, 12})
    {
        EXPECT_EQ(deviceRow(type), nullptr) << type;
        EXPECT_EQ(deviceLabel(type, {GmPlotCfg3(), OD_T("PLOTTER.pc3"), fakeTexts()}), OD_T("")) << type;
    }
}

TEST(DeviceTree, assertionsNameTheKind)
{
    const std::string names[] = {"eChecked",        "eRoot",      "eMedia",     "eMediaDest",
                                 "eSourceSize",     "eCollating", "eGraphics",  "eVectorGraphics",
                                 "eRasterGraphics", "eTrueType",  "eMergeCtrl", "eCustomProp"};
    ASSERT_EQ(deviceRowCount, std::ssize(names));
    for (std::int32_t type = 0; type < deviceRowCount; ++type)
        EXPECT_EQ(deviceRow(type)->iconAssertion, "iIcon == " + names[type]);
}

TEST_F(DeviceLabel, plainEntriesShowTheirText)
{
    EXPECT_EQ(label(eRoot), OD_T("PLOTTER.pc3"));
    EXPECT_EQ(label(eMedia), OD_T("[217]"));
    EXPECT_EQ(label(eGraphics), OD_T("[220]"));
    EXPECT_EQ(label(eCustomProp), OD_T("[225]"));
    EXPECT_EQ(label(eChecked), OD_T(""));
}

TEST_F(DeviceLabel, anEmptyValueShowsOnlyTheLeadingText)
{
    EXPECT_EQ(label(eMediaDest), OD_T("[218]"));
    EXPECT_EQ(label(eSourceSize), OD_T("[219]"));
    EXPECT_EQ(label(eCollating), OD_T("[221]"));
    cfg.m_media.m_destination = destinationNamed(OD_T(""), true);
    cfg.m_media.m_destination->m_collating_name = OD_T("");
    EXPECT_EQ(label(eMediaDest), OD_T("[218]"));
    EXPECT_EQ(label(eCollating), OD_T("[221]"));
}

TEST_F(DeviceLabel, destinationAndCollatingStandInBrackets)
{
    cfg.m_media.m_destination = destinationNamed(OD_T("Default"), true);
    EXPECT_EQ(label(eMediaDest), OD_T("[218] <Default>"));
    EXPECT_EQ(label(eCollating), OD_T("[221] <[203]>"));
    cfg.m_media.m_destination->setCollating(false);
    EXPECT_EQ(label(eCollating), OD_T("[221] <[202]>"));
    cfg.m_media.m_destination->m_collating_type = 7;
    EXPECT_EQ(label(eCollating), OD_T("[221] <[203]>"));
}

TEST_F(DeviceLabel, thePaperFollowsABlank)
{
    cfg.m_media.m_size.m_name = OD_T("100% A4");
    EXPECT_EQ(label(eSourceSize), OD_T("[219] [227]100% A4"));
}

TEST_F(DeviceLabel, vectorGraphicsShowColoursResolutionAndDithering)
{
    auto& color = cfg.m_res_color_mem;
    color.m_num_colors = 1;
    color.m_color_depth = 32;
    EXPECT_EQ(label(eVectorGraphics), OD_T("[222] [230][231]1/32"));
    color.m_resolution.m_name = OD_T("600x600_None");
    EXPECT_EQ(label(eVectorGraphics), OD_T("[222] [230][231]1/32 [232]600x600 [233]None"));
    color.m_resolution.m_name = OD_T("600x600_");
    EXPECT_EQ(label(eVectorGraphics), OD_T("[222] [230][231]1/32 [232]600x600"));
}

TEST(ResolutionName, isSplitAtItsLastUnderscore)
{
    EXPECT_EQ(resolutionParts(OD_T("DMRES_HIGH_None")).resolution, OD_T("DMRES_HIGH"));
    EXPECT_EQ(resolutionParts(OD_T("DMRES_HIGH_None")).dithering, OD_T("None"));
    EXPECT_EQ(resolutionParts(OD_T("_None")).resolution, OD_T("_None"));
    EXPECT_EQ(resolutionParts(OD_T("_None")).dithering, OD_T(""));
    EXPECT_EQ(resolutionParts(OD_T("720x360")).resolution, OD_T("720x360"));
}

TEST_F(DeviceLabel, rasterGraphicsShowWhatTheirPageEdits)
{
    auto& color = cfg.m_res_color_mem;
    color.m_preference = 50;
    color.m_ism_max = -1;
    color.m_ole_max = 2;
    EXPECT_EQ(label(eRasterGraphics), OD_T("[223] [234]50 [235]-1 [236]2"));
}

TEST_F(DeviceLabel, choicesStandInBrackets)
{
    EXPECT_EQ(label(eTrueType), OD_T("[224] <[237]>"));
    cfg.m_meta.m_truetype_as_text = false;
    EXPECT_EQ(label(eTrueType), OD_T("[224] <[238]>"));
    EXPECT_EQ(label(eMergeCtrl), OD_T("[228] <[240]>"));
    cfg.m_res_color_mem.m_lines_overwrite = GmOptionalFlag(new bool(true));
    EXPECT_EQ(label(eMergeCtrl), OD_T("[228] <[239]>"));
    *cfg.m_res_color_mem.m_lines_overwrite = false;
    EXPECT_EQ(label(eMergeCtrl), OD_T("[228] <[240]>"));
}

TEST(VectorPage, onlyADepthOfOneBitIsMonochrome)
{
    GmResColorMemNode color;
    color.m_color_depth = 1;
    color.m_num_colors = 2;
    EXPECT_TRUE(isMonochrome(color));
    // With a depth of 32 bits the number of colours is also 1.
    color.m_color_depth = 32;
    color.m_num_colors = 1;
    EXPECT_FALSE(isMonochrome(color));
}
