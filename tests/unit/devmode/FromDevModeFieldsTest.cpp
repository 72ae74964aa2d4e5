// Importing a DEVMODEW into a configuration, field by field: what each one changes, and what counts as a change.

#include "tests/unit/devmode/DevModeFixture.h"

#include <functional>
#include <limits>

namespace
{
class FromDevModeFields : public DevModeTest
{
};

constexpr Outcome unchanged{true, false};
constexpr Outcome changed{true, true};
constexpr Outcome failedAfterAChange{false, true};
} // namespace

// -- Custom numbers --------------------------------------------------------------------------------------------------

namespace
{
struct CustomNumber
{
    const OdChar* key;
    DWORD flag; // 0: the version, which is imported with any flag
    std::function<void(DEVMODEW&, std::uint32_t)> put;
};
const CustomNumber customNumbers[] = {
    {OD_T("dmSpecVersion"), 0, [](DEVMODEW& dm, std::uint32_t value) { dm.dmSpecVersion = static_cast<WORD>(value); }},
    {OD_T("dmMediaType"), DM_MEDIATYPE, [](DEVMODEW& dm, std::uint32_t value) { dm.dmMediaType = value; }},
    {OD_T("dmDefaultSource"), DM_DEFAULTSOURCE,
     [](DEVMODEW& dm, std::uint32_t value) { dm.dmDefaultSource = static_cast<short>(value); }},
    {OD_T("dmTTOption"), DM_TTOPTION,
     [](DEVMODEW& dm, std::uint32_t value) { dm.dmTTOption = static_cast<short>(value); }},
};
} // namespace

TEST_F(FromDevModeFields, aFlaggedNumberIsStoredAndADifferenceIsAChange)
{
    for (const CustomNumber& number : customNumbers)
    {
        Configuration each = ownCopy(settled);
        each.m_custom->m_numbers[number.key] = OD_T("3");
        Block block = driversBlock();
        block.fields.dmFields |= number.flag;
        number.put(block.fields, 3);
        EXPECT_EQ(takeOver(each, block), unchanged) << OdString(number.key);
        number.put(block.fields, 4);
        EXPECT_EQ(takeOver(each, block), changed) << OdString(number.key);
        EXPECT_EQ(each.m_custom->m_numbers[number.key], OD_T("4"));
    }
}

TEST_F(FromDevModeFields, anUnflaggedNumberIsLeftAlone)
{
    for (const CustomNumber& number : customNumbers)
    {
        if (number.flag == 0)
            continue;
        Configuration each = ownCopy(settled);
        each.m_custom->m_numbers[number.key] = OD_T("3");
        Block block = driversBlock();
        block.fields.dmFields &= ~number.flag;
        number.put(block.fields, 4);
        EXPECT_EQ(takeOver(each, block), unchanged) << OdString(number.key);
        EXPECT_EQ(each.m_custom->m_numbers[number.key], OD_T("3"));
        each.m_custom->m_numbers.erase(number.key);
        EXPECT_EQ(takeOver(each, block), unchanged) << OdString(number.key);
        EXPECT_FALSE(each.m_custom->m_numbers.contains(number.key));
    }
}

TEST_F(FromDevModeFields, theVersionIsTakenOverOnlyWithSomeFlag)
{
    Block block = driversBlock();
    block.fields.dmSpecVersion = 0x320;
    block.fields.dmFields = 0;
    EXPECT_TRUE(takeOver(settled, block).succeeded);
    EXPECT_EQ(settled.m_custom->m_numbers[OD_T("dmSpecVersion")], OD_T("1025"));
    // A flag without a field counts too.
    block.fields.dmFields = 0x80000000;
    EXPECT_TRUE(takeOver(settled, block).succeeded);
    EXPECT_EQ(settled.m_custom->m_numbers[OD_T("dmSpecVersion")], OD_T("800"));
}

TEST_F(FromDevModeFields, aFlaggedNumberWithoutAnItemFailsAndKeepsWhatWasChangedBefore)
{
    for (const CustomNumber& number : customNumbers)
    {
        Configuration each = ownCopy(settled);
        each.m_custom->m_numbers.erase(number.key);
        Block block = driversBlock();
        block.fields.dmFields |= number.flag;
        block.fields.dmCopies = 99;
        block.privateBytes[0] = 0xEE;
        EXPECT_EQ(takeOver(each, block), failedAfterAChange) << OdString(number.key);
        EXPECT_FALSE(each.m_custom->m_numbers.contains(number.key));
        EXPECT_EQ(each.m_custom->m_binaries[OD_T("RawPrivateDeviceData")].left(2), OD_T("EE"));
        EXPECT_NE(each.m_media.m_number_of_copies, 99) << "comes later";
    }
}

// Its absence alone counts as a difference before the store fails.
TEST_F(FromDevModeFields, aMissingItemReportsAChangeBesidesTheFailure)
{
    settled.m_custom->m_numbers.erase(OD_T("dmSpecVersion"));
    EXPECT_EQ(takeOver(settled, driversBlock()), failedAfterAChange);
}

TEST_F(FromDevModeFields, aFailureAtALaterNumberKeepsTheEarlierOnes)
{
    settled.m_custom->m_numbers.erase(OD_T("dmTTOption"));
    Block block = driversBlock();
    block.fields.dmSpecVersion = 0x500;
    block.fields.dmDefaultSource = 3;
    EXPECT_EQ(takeOver(settled, block), failedAfterAChange);
    EXPECT_EQ(settled.m_custom->m_numbers[OD_T("dmSpecVersion")], OD_T("1280"));
    EXPECT_EQ(settled.m_custom->m_numbers[OD_T("dmDefaultSource")], OD_T("3"));
}

TEST_F(FromDevModeFields, anItemThatIsNoNumberDiffersAndIsReplaced)
{
    settled.m_custom->m_numbers[OD_T("dmTTOption")] = OD_T("garbage");
    EXPECT_EQ(takeOver(settled, driversBlock()), changed);
    EXPECT_EQ(settled.m_custom->m_numbers[OD_T("dmTTOption")], OD_T("2"));
}

TEST_F(FromDevModeFields, creationAddsFlaggedNumbersAndDoesNotCountThemAsChanges)
{
    Configuration each = ownCopy(settled);
    for (const CustomNumber& number : customNumbers)
        each.m_custom->m_numbers.erase(number.key);
    Block block = driversBlock();
    block.fields.dmFields |= DM_MEDIATYPE;
    block.fields.dmMediaType = 7;
    EXPECT_EQ(takeOver(each, block, plotter, true), unchanged);
    EXPECT_EQ(each.m_custom->m_numbers[OD_T("dmSpecVersion")], OD_T("1025"));
    EXPECT_EQ(each.m_custom->m_numbers[OD_T("dmMediaType")], OD_T("7"));
    EXPECT_EQ(each.m_custom->m_numbers[OD_T("dmDefaultSource")], OD_T("7"));
    EXPECT_EQ(each.m_custom->m_numbers[OD_T("dmTTOption")], OD_T("2"));
}

// The stored text is compared only while nothing has changed yet; after a change it is replaced without comparing.
TEST_F(FromDevModeFields, afterAChangeNumbersAreStoredWithoutComparing)
{
    settled.m_custom->m_numbers[OD_T("dmTTOption")] = OD_T("+2");
    Block block = driversBlock();
    block.privateBytes[0] = 0xEE;
    EXPECT_EQ(takeOver(settled, block), changed);
    EXPECT_EQ(settled.m_custom->m_numbers[OD_T("dmTTOption")], OD_T("2"));
}

TEST_F(FromDevModeFields, negativeCodesAreStoredAsUnsignedWithTheirSignExtended)
{
    struct Case
    {
        short field;
        const OdChar* text;
    };
    for (const Case& code : {Case{-1, OD_T("4294967295")}, Case{-32768, OD_T("4294934528")}, Case{32767, OD_T("32767")},
                             Case{0, OD_T("0")}})
    {
        Block block = driversBlock();
        block.fields.dmDefaultSource = code.field;
        block.fields.dmTTOption = code.field;
        EXPECT_EQ(takeOver(settled, block), changed);
        EXPECT_EQ(settled.m_custom->m_numbers[OD_T("dmDefaultSource")], code.text);
        EXPECT_EQ(settled.m_custom->m_numbers[OD_T("dmTTOption")], code.text);
        EXPECT_EQ(takeOver(settled, block), unchanged) << "the stored text reads back as the same code";
    }
}

TEST_F(FromDevModeFields, theVersionAndTheMediaTypeAreUnsigned)
{
    Block block = driversBlock();
    block.fields.dmSpecVersion = 0xFFFF;
    block.fields.dmMediaType = 0xFFFFFFFF;
    block.fields.dmFields |= DM_MEDIATYPE;
    settled.m_custom->m_numbers[OD_T("dmMediaType")] = OD_T("1");
    EXPECT_EQ(takeOver(settled, block), changed);
    EXPECT_EQ(settled.m_custom->m_numbers[OD_T("dmSpecVersion")], OD_T("65535"));
    EXPECT_EQ(settled.m_custom->m_numbers[OD_T("dmMediaType")], OD_T("4294967295"));
    EXPECT_EQ(takeOver(settled, block), unchanged);
}

// -- Fields that are taken over without a flag
// -------------------------------------------------------------------------

TEST_F(FromDevModeFields, eachFieldIsTakenOverWithoutItsFlagAndADifferenceIsAChange)
{
    struct Case
    {
        const char* what;
        std::function<void(DEVMODEW&)> put;
        std::function<bool(const GmPlotCfg3&)> taken;
    };
    const Case cases[] = {
        {"driver version", [](DEVMODEW& dm) { dm.dmDriverVersion = 0xFFFF; },
         [](const GmPlotCfg3& c) { return c.m_meta.m_dm_driver_version == 65535; }},
        {"copies", [](DEVMODEW& dm) { dm.dmCopies = -2; },
         [](const GmPlotCfg3& c) { return c.m_media.m_number_of_copies == -2; }},
        {"most copies", [](DEVMODEW& dm) { dm.dmCopies = 32767; },
         [](const GmPlotCfg3& c) { return c.m_media.m_number_of_copies == 32767; }},
        {"scale", [](DEVMODEW& dm) { dm.dmScale = -32768; },
         [](const GmPlotCfg3& c) { return c.m_media.m_size.m_dm_scale == -32768; }},
        {"collate", [](DEVMODEW& dm) { dm.dmCollate = 1; },
         [](const GmPlotCfg3& c) { return c.m_media.m_destination->m_collating_type == 1; }},
        {"colour", [](DEVMODEW& dm) { dm.dmColor = -1; },
         [](const GmPlotCfg3& c) { return c.m_res_color_mem.m_dm_color == -1; }},
        {"ICM method", [](DEVMODEW& dm) { dm.dmICMMethod = 0xFFFFFFFF; },
         [](const GmPlotCfg3& c) { return c.m_res_color_mem.m_icm_method == -1; }},
        {"ICM intent", [](DEVMODEW& dm) { dm.dmICMIntent = 0x80000000; },
         [](const GmPlotCfg3& c)
         { return c.m_res_color_mem.m_icm_intent == std::numeric_limits<std::int32_t>::min(); }},
        {"dots per inch", [](DEVMODEW& dm) { dm.dmPrintQuality = 300; },
         [](const GmPlotCfg3& c) { return c.m_res_color_mem.m_resolution.m_name == OD_T("300x600_None"); }},
        {"vertical dots per inch", [](DEVMODEW& dm) { dm.dmYResolution = 300; },
         [](const GmPlotCfg3& c) { return c.m_res_color_mem.m_resolution.m_name == OD_T("600x300_None"); }},
        {"dither", [](DEVMODEW& dm) { dm.dmDitherType = 5; }, [](const GmPlotCfg3& c) { return c.m_ditherType == 5; }},
        {"duplex", [](DEVMODEW& dm) { dm.dmDuplex = -1; }, [](const GmPlotCfg3& c) { return c.m_duplex == 65535; }},
    };
    for (const Case& field : cases)
    {
        Configuration each = ownCopy(settled);
        Block block = driversBlock();
        block.fields.dmFields = DM_PAPERSIZE | DM_FORMNAME | DM_DEFAULTSOURCE;
        field.put(block.fields);
        EXPECT_EQ(takeOver(each, block), changed) << field.what;
        EXPECT_TRUE(field.taken(each)) << field.what;
        EXPECT_EQ(takeOver(each, block), unchanged) << field.what;
    }
}

TEST_F(FromDevModeFields, anotherOrientationSwapsTheBounds)
{
    const GmMediaNode before = settled.m_media;
    Block block = driversBlock();
    block.fields.dmOrientation = DMORIENT_LANDSCAPE;
    EXPECT_EQ(takeOver(settled, block), changed);
    EXPECT_EQ(settled.m_media.m_dm_orientation, 2);
    EXPECT_EQ(settled.m_media.m_actual_printable_bounds_llx, before.m_actual_printable_bounds_lly);
    EXPECT_EQ(settled.m_media.m_actual_printable_bounds_ury, before.m_actual_printable_bounds_urx);
    EXPECT_EQ(settled.m_media.m_size.m_media_description.m_media_bounds.m_urx,
              before.m_size.m_media_description.m_media_bounds.m_ury);
    EXPECT_EQ(takeOver(settled, block), unchanged);
}

TEST_F(FromDevModeFields, orientationsOfAllSixteenBitsAreKept)
{
    for (const short value : {short{-32768}, short{-1}, short{0}, short{32767}})
    {
        Block block = driversBlock();
        block.fields.dmOrientation = value;
        EXPECT_EQ(takeOver(settled, block), changed);
        EXPECT_EQ(settled.m_media.m_dm_orientation, value);
    }
}

// -- Collating -------------------------------------------------------------------------------------------------------

TEST_F(FromDevModeFields, aMissingDestinationIsMadeAndIsAChange)
{
    settled.m_media.m_destination = nullptr;
    EXPECT_EQ(takeOver(settled, driversBlock()), changed);
    ASSERT_TRUE(settled.m_media.m_destination);
    EXPECT_EQ(settled.m_media.m_destination->m_name, OD_T("Default"));
    EXPECT_EQ(settled.m_media.m_destination->m_collating_type, 0);
    EXPECT_EQ(settled.m_media.m_destination->m_collating_name, OD_T("None"));
}

TEST_F(FromDevModeFields, anExistingDestinationKeepsItsName)
{
    settled.m_media.m_destination->m_name = OD_T("Mine");
    settled.m_media.m_destination->m_collating_name = OD_T("edited");
    Block block = driversBlock();
    EXPECT_EQ(takeOver(settled, block), unchanged) << "the text of the flag is no change";
    EXPECT_EQ(settled.m_media.m_destination->m_name, OD_T("Mine"));
    EXPECT_EQ(settled.m_media.m_destination->m_collating_name, OD_T("None"));
    block.fields.dmCollate = -7;
    EXPECT_EQ(takeOver(settled, block), changed);
    EXPECT_EQ(settled.m_media.m_destination->m_collating_type, 1);
    EXPECT_EQ(settled.m_media.m_destination->m_collating_name, OD_T("Regular"));
}

// -- Colour ----------------------------------------------------------------------------------------------------------

TEST_F(FromDevModeFields, colourGivesTheLinesFlagItsDefaultAndThatAloneIsNoChange)
{
    settled.m_res_color_mem.m_lines_overwrite = nullptr;
    settled.m_res_color_mem.m_dm_color = DMCOLOR_COLOR;
    Block block = driversBlock();
    block.fields.dmColor = DMCOLOR_COLOR;
    EXPECT_EQ(takeOver(settled, block), unchanged);
    ASSERT_TRUE(settled.m_res_color_mem.m_lines_overwrite);
    EXPECT_TRUE(*settled.m_res_color_mem.m_lines_overwrite);
}

TEST_F(FromDevModeFields, otherColoursLeaveTheLinesFlagAbsent)
{
    settled.m_res_color_mem.m_lines_overwrite = nullptr;
    for (const short color : {short{1}, short{0}, short{3}, short{258}, short{-2}})
    {
        Block block = driversBlock();
        block.fields.dmColor = color;
        EXPECT_TRUE(takeOver(settled, block).succeeded);
        EXPECT_FALSE(settled.m_res_color_mem.m_lines_overwrite) << color;
    }
}

TEST_F(FromDevModeFields, aPresentLinesFlagIsKept)
{
    const GmOptionalFlag flag(new bool(false));
    settled.m_res_color_mem.m_lines_overwrite = flag;
    Block block = driversBlock();
    block.fields.dmColor = DMCOLOR_COLOR;
    EXPECT_TRUE(takeOver(settled, block).succeeded);
    EXPECT_EQ(settled.m_res_color_mem.m_lines_overwrite, flag) << "the very object: copies share it";
    EXPECT_FALSE(*flag);
}

TEST_F(FromDevModeFields, aPrintQualityIsMeasuredByTheDevice)
{
    Block block = driversBlock();
    block.fields.dmPrintQuality = DMRES_MEDIUM;
    EXPECT_EQ(takeOver(settled, block), changed);
    EXPECT_EQ(settled.m_res_color_mem.m_resolution.m_name, OD_T("DMRES_MEDIUM_None"));
    EXPECT_EQ(settled.m_res_color_mem.m_resolution.m_phys_resolution_x, 600.0);
}

TEST_F(FromDevModeFields, theDevicesDepthGivesTheNumberOfColours)
{
    struct Case
    {
        int bits;
        std::int32_t colors;
    };
    for (const Case& device :
         {Case{1, 2}, Case{8, 256}, Case{30, 1 << 30}, Case{31, std::numeric_limits<std::int32_t>::min()}, Case{32, 1},
          Case{33, 2}, Case{63, std::numeric_limits<std::int32_t>::min()}, Case{64, 1},
          Case{std::numeric_limits<int>::max(), std::numeric_limits<std::int32_t>::min()}})
    {
        m_printer.caps.bitsPerPixel = device.bits;
        EXPECT_EQ(takeOver(settled, driversBlock()), changed) << device.bits;
        EXPECT_EQ(settled.m_res_color_mem.m_color_depth, device.bits);
        EXPECT_EQ(settled.m_res_color_mem.m_num_colors, device.colors) << device.bits;
        EXPECT_EQ(takeOver(settled, driversBlock()), unchanged) << device.bits;
    }
}

TEST_F(FromDevModeFields, aDeviceWithoutADepthChangesNothing)
{
    for (const int bits : {0, -1, std::numeric_limits<int>::min()})
    {
        m_printer.caps.bitsPerPixel = bits;
        const std::int32_t depth = settled.m_res_color_mem.m_color_depth;
        EXPECT_EQ(takeOver(settled, driversBlock()), unchanged) << bits;
        EXPECT_EQ(settled.m_res_color_mem.m_color_depth, depth);
    }
}

// The number of colours follows the depth only when the depth changes; a file may have any pair.
TEST_F(FromDevModeFields, theSameDepthLeavesTheNumberOfColours)
{
    settled.m_res_color_mem.m_num_colors = 12345;
    EXPECT_EQ(takeOver(settled, driversBlock()), unchanged);
    EXPECT_EQ(settled.m_res_color_mem.m_num_colors, 12345);
}

TEST_F(FromDevModeFields, withoutDitheringEveryColourIsUnditheredAndThatIsNoChange)
{
    struct Case
    {
        DWORD flag;
        DWORD dither;
        bool all;
    };
    for (const Case& device : {Case{0, 1, true}, Case{0, 5, true}, Case{DM_DITHERTYPE, 1, true},
                               Case{DM_DITHERTYPE, 5, false}, Case{DM_DITHERTYPE, 0, false}})
    {
        Configuration each = ownCopy(settled);
        each.m_ditherType = device.dither;
        each.m_res_color_mem.m_num_undithered_colors = 77;
        Block block = driversBlock();
        block.fields.dmFields = (block.fields.dmFields & ~DWORD{DM_DITHERTYPE}) | device.flag;
        block.fields.dmDitherType = device.dither;
        EXPECT_EQ(takeOver(each, block), unchanged);
        EXPECT_EQ(each.m_res_color_mem.m_num_undithered_colors, device.all ? each.m_res_color_mem.m_num_colors : 77);
    }
}

// -- Driver name and what lives only in memory
// -------------------------------------------------------------------------

TEST_F(FromDevModeFields, anotherDriverNameIsStoredAndIsAChange)
{
    settled.m_meta.m_win_driver_name = OD_T("Old driver");
    EXPECT_EQ(takeOver(settled, driversBlock()), changed);
    EXPECT_EQ(settled.m_meta.m_win_driver_name, OdString(driver));
}

TEST_F(FromDevModeFields, aDriverNameInOtherLettersIsAChange)
{
    settled.m_meta.m_win_driver_name = OD_T("ACME hp-gl");
    EXPECT_EQ(takeOver(settled, driversBlock()), changed);
    EXPECT_EQ(settled.m_meta.m_win_driver_name, OdString(driver));
}

TEST_F(FromDevModeFields, aDriverWithoutANameLeavesTheStoredOne)
{
    m_printer.driver.reset();
    settled.m_meta.m_win_driver_name = OD_T("Old driver");
    EXPECT_EQ(takeOver(settled, driversBlock()), unchanged);
    EXPECT_EQ(settled.m_meta.m_win_driver_name, OD_T("Old driver"));
}

TEST_F(FromDevModeFields, theFlagsAreRememberedAsTheyStandAndAreNoChange)
{
    Block block = driversBlock();
    block.fields.dmFields |= 0xC0000000 | DM_PANNINGWIDTH;
    EXPECT_EQ(takeOver(settled, block), unchanged);
    EXPECT_EQ(settled.m_devModeFields, block.fields.dmFields);
}

TEST_F(FromDevModeFields, aFailureLeavesTheRememberedFlags)
{
    const std::uint32_t before = settled.m_devModeFields;
    Block block = driversBlock();
    block.fields.dmFields |= DM_MEDIATYPE | 0x80000000;
    EXPECT_FALSE(takeOver(settled, block).succeeded);
    EXPECT_EQ(settled.m_devModeFields, before);
}
