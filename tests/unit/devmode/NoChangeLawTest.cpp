// A configuration that imports its own block reports no change, and the exceptions: states that an import always
// normalises. They are pinned here because callers see them.

#include "tests/unit/devmode/DevModeFixture.h"

#include <functional>
#include <limits>

namespace
{
class NoChangeLaw : public DevModeTest
{
protected:
    static Outcome takeOwnBlockBack(Configuration& configuration)
    {
        const OdArray<unsigned char> bytes = configuration.toDevMode();
        Outcome outcome{false, true};
        outcome.succeeded = configuration.updateFromDevMode(DevModeView(std::span(bytes.begin(), bytes.end())),
                                                            configuration.m_meta.m_win_device_name, outcome.modified);
        return outcome;
    }
};

constexpr Outcome unchanged{true, false};
constexpr Outcome changed{true, true};
} // namespace

TEST_F(NoChangeLaw, aConfigurationTakesItsOwnBlockBackWithoutAChange)
{
    const std::vector<std::string> before = describe(settled);
    EXPECT_EQ(takeOwnBlockBack(settled), unchanged);
    std::vector<std::string> after = describe(settled);
    // The flags in its own block are not always the driver's; they are not a setting.
    settled.m_devModeFields = driversBlock().fields.dmFields;
    EXPECT_EQ(describe(settled), before);
}

TEST_F(NoChangeLaw, holdsForAConfigurationAsItIsReadFromAFile)
{
    settled.m_devModeFields = 0;
    settled.m_ditherType = 1;
    settled.m_duplex = 1;
    EXPECT_EQ(takeOwnBlockBack(settled), unchanged);
    EXPECT_EQ(takeOwnBlockBack(settled), unchanged);
}

TEST_F(NoChangeLaw, holdsForEveryKindOfSetting)
{
    struct Case
    {
        const char* what;
        std::function<void(Block&)> set;
    };
    const Case cases[] = {
        {"landscape", [](Block& block) { block.fields.dmOrientation = DMORIENT_LANDSCAPE; }},
        {"scale", [](Block& block) { block.fields.dmScale = 50; }},
        {"copies", [](Block& block) { block.fields.dmCopies = 32767; }},
        {"negative copies", [](Block& block) { block.fields.dmCopies = -1; }},
        {"collate", [](Block& block) { block.fields.dmCollate = 1; }},
        {"colour", [](Block& block) { block.fields.dmColor = DMCOLOR_COLOR; }},
        {"colour management",
         [](Block& block)
         {
             block.fields.dmICMMethod = 0xFFFFFFFF;
             block.fields.dmICMIntent = 4;
         }},
        {"unflagged dither, as real drivers have it", [](Block& block) { block.fields.dmDitherType = 0; }},
        {"dither",
         [](Block& block)
         {
             block.fields.dmDitherType = 5;
             block.fields.dmFields |= DM_DITHERTYPE;
         }},
        {"duplex",
         [](Block& block)
         {
             block.fields.dmDuplex = 3;
             block.fields.dmFields |= DM_DUPLEX;
         }},
        {"simplex that is flagged", [](Block& block) { block.fields.dmFields |= DM_DUPLEX; }},
        {"negative source", [](Block& block) { block.fields.dmDefaultSource = -1; }},
        {"negative TrueType option", [](Block& block) { block.fields.dmTTOption = -32768; }},
        {"version", [](Block& block) { block.fields.dmSpecVersion = 0xFFFF; }},
        {"driver version", [](Block& block) { block.fields.dmDriverVersion = 0xFFFF; }},
        {"private bytes", [](Block& block) { block.privateBytes.assign(8, 0xFF); }},
        {"another listed paper",
         [](Block& block)
         {
             block.fields.dmPaperSize = 8;
             block.setFormName(OD_T("A3"));
         }},
        {"a paper code above 32767", [](Block& block) { block.fields.dmPaperSize = -1; }},
        {"a listed paper of the driver's own",
         [](Block& block)
         {
             block.fields.dmPaperSize = 257;
             block.setFormName(OD_T("Roll 257"));
         }},
        {"a user paper",
         [](Block& block)
         {
             block.fields.dmPaperSize = 300;
             block.setFormName(OD_T(""));
         }},
        {"a form name alone", [](Block& block) { block.fields.dmFields &= ~DWORD{DM_PAPERSIZE}; }},
        {"a paper code alone", [](Block& block) { block.fields.dmFields &= ~DWORD{DM_FORMNAME}; }},
        {"no paper at all", [](Block& block) { block.fields.dmFields &= ~DWORD{DM_PAPERSIZE | DM_FORMNAME}; }},
        {"dots per inch",
         [](Block& block)
         {
             block.fields.dmPrintQuality = 32767;
             block.fields.dmYResolution = -32768;
         }},
        {"no resolution",
         [](Block& block)
         {
             block.fields.dmPrintQuality = 0;
             block.fields.dmYResolution = 0;
         }},
        {"a print quality without y",
         [](Block& block)
         {
             block.fields.dmPrintQuality = DMRES_HIGH;
             block.fields.dmYResolution = 0;
         }},
        {"flags without fields", [](Block& block) { block.fields.dmFields |= 0xC0000000; }},
    };
    for (const Case& setting : cases)
    {
        Configuration each = ownCopy(settled);
        Block block = driversBlock();
        setting.set(block);
        ASSERT_TRUE(takeOver(each, block).succeeded) << setting.what;
        EXPECT_EQ(takeOwnBlockBack(each), unchanged) << setting.what;
        EXPECT_EQ(takeOwnBlockBack(each), unchanged) << setting.what << ", again";
        each.m_devModeFields = 0;
        each.m_ditherType = 1;
        each.m_duplex = 1;
        if (each.m_media.m_size.m_name != OdString())
        {
            EXPECT_EQ(takeOwnBlockBack(each), unchanged) << setting.what << ", read from a file";
        }
    }
}

TEST_F(NoChangeLaw, holdsForEveryPublicSizeOnceItWasTakenOver)
{
    for (const std::uint32_t size : {76U, 77U, 100U, 156U, 165U, 166U, 188U, 203U, 204U, 220U, 300U})
    {
        Configuration each = ownCopy(settled);
        each.m_custom->m_numbers[OD_T("dmSize")] = decimalFromNumber(size);
        EXPECT_TRUE(takeOwnBlockBack(each).succeeded) << size;
        EXPECT_EQ(takeOwnBlockBack(each), unchanged) << size;
    }
}

// -- Exceptions ------------------------------------------------------------------------------------------------------

// A margin of zero counts as no bounds, so they are imported again each time.
TEST_F(NoChangeLaw, aQueueWithoutMarginsReportsAChangeEveryTime)
{
    m_printer.caps.offsetX = 0;
    m_printer.caps.offsetY = 0;
    settled.m_media.m_actual_printable_bounds_llx = 0;
    for (int i = 0; i < 3; ++i)
        EXPECT_EQ(takeOwnBlockBack(settled), changed);
}

TEST_F(NoChangeLaw, oneMarginOfZeroIsEnough)
{
    m_printer.caps.offsetY = 0;
    settled.m_media.m_actual_printable_bounds_lly = 0;
    for (int i = 0; i < 3; ++i)
        EXPECT_EQ(takeOwnBlockBack(settled), changed);
}

TEST_F(NoChangeLaw, aConfigurationWithoutADestinationGetsOne)
{
    settled.m_media.m_destination = nullptr;
    EXPECT_EQ(takeOwnBlockBack(settled), changed);
    EXPECT_EQ(takeOwnBlockBack(settled), unchanged);
}

TEST_F(NoChangeLaw, aPrintQualityLosesItsVerticalResolution)
{
    settled.m_res_color_mem.m_resolution.m_name = OD_T("DMRES_HIGH_None");
    EXPECT_EQ(takeOwnBlockBack(settled), changed);
    EXPECT_EQ(settled.m_res_color_mem.m_resolution.m_phys_resolution_y, 0.0);
    EXPECT_EQ(takeOwnBlockBack(settled), unchanged);
}

TEST_F(NoChangeLaw, unequalResolutionsBecomeThePhysicalOne)
{
    settled.m_res_color_mem.m_resolution.m_effective_resolution_x = 300;
    EXPECT_EQ(takeOwnBlockBack(settled), changed);
    EXPECT_EQ(settled.m_res_color_mem.m_resolution.m_effective_resolution_x, 600.0);
    EXPECT_EQ(takeOwnBlockBack(settled), unchanged);
}

TEST_F(NoChangeLaw, aSizeNameInOtherLettersBecomesTheDriversSpelling)
{
    settled.m_media.m_size.m_name = OD_T("a4");
    EXPECT_EQ(takeOwnBlockBack(settled), changed);
    EXPECT_EQ(settled.m_media.m_size.m_name, OD_T("A4"));
    EXPECT_EQ(takeOwnBlockBack(settled), unchanged);
}

TEST_F(NoChangeLaw, aSizeNameThatIsNotListedIsLost)
{
    settled.m_media.m_size.m_name = OD_T("Unknown");
    EXPECT_EQ(takeOwnBlockBack(settled), changed);
    EXPECT_EQ(settled.m_media.m_size.m_name, OD_T(""));
    EXPECT_EQ(takeOwnBlockBack(settled), unchanged);
}

TEST_F(NoChangeLaw, aLongSizeNameWithADriversCodeBecomesAUserPaper)
{
    settled.m_media.m_size.m_name = longPaperName;
    EXPECT_EQ(takeOwnBlockBack(settled), changed);
    EXPECT_EQ(settled.m_media.m_size.m_name, OD_T("User501"));
    EXPECT_EQ(takeOwnBlockBack(settled), unchanged);
}

TEST_F(NoChangeLaw, aCodeListedTwiceBecomesItsFirstName)
{
    addPaper(8, OD_T("A3 again"));
    settled.m_media.m_size.m_name = OD_T("A3 again");
    EXPECT_EQ(takeOwnBlockBack(settled), changed);
    EXPECT_EQ(settled.m_media.m_size.m_name, OD_T("A3"));
    EXPECT_EQ(takeOwnBlockBack(settled), unchanged);
}

TEST_F(NoChangeLaw, anotherColourDepthIsTakenFromTheDevice)
{
    settled.m_res_color_mem.m_color_depth = 8;
    EXPECT_EQ(takeOwnBlockBack(settled), changed);
    EXPECT_EQ(settled.m_res_color_mem.m_color_depth, 24);
    EXPECT_EQ(takeOwnBlockBack(settled), unchanged);
}

TEST_F(NoChangeLaw, aDriverNameInOtherLettersBecomesTheSystemsSpelling)
{
    settled.m_meta.m_win_driver_name = OD_T("acme hp-gl");
    EXPECT_EQ(takeOwnBlockBack(settled), changed);
    EXPECT_EQ(takeOwnBlockBack(settled), unchanged);
}

TEST_F(NoChangeLaw, withoutAStoredVersionTheCallFails)
{
    settled.m_custom->m_numbers.erase(OD_T("dmSpecVersion"));
    EXPECT_FALSE(takeOwnBlockBack(settled).succeeded);
}
