// A configuration takes a DEVMODEW over: what it accepts, what each field changes, and what counts as a change.

#include "tests/unit/devmode/DevModeFixture.h"

#include <functional>
#include <limits>

namespace
{
class FromDevMode : public DevModeTest
{
};

constexpr Outcome failed{false, false};
constexpr Outcome unchanged{true, false};
constexpr Outcome changed{true, true};
constexpr Outcome failedAfterAChange{false, true};
} // namespace

// -- What is accepted ------------------------------------------------------------------------------------------------

TEST_F(FromDevMode, theDriversOwnBlockIsTakenOverAndThenChangesNothing)
{
    Configuration fresh = ownCopy(cfg);
    EXPECT_EQ(takeOver(fresh, driversBlock()), changed);
    EXPECT_EQ(takeOver(fresh, driversBlock()), unchanged);
}

TEST_F(FromDevMode, aConfigurationThatHasNoBlockItselfTakesNoneOver)
{
    Configuration none = ownCopy(settled);
    none.m_custom = nullptr;
    EXPECT_EQ(takeOver(none, driversBlock()), failed);

    none = ownCopy(settled);
    none.m_meta.m_win_device_name = OD_T("Nobody");
    EXPECT_EQ(takeOver(none, driversBlock(), OD_T("Nobody")), failed);
}

TEST_F(FromDevMode, modifiedIsClearedWhateverHappens)
{
    Configuration none;
    bool modified = true;
    const std::vector<BYTE> bytes = driversBlock().bytes();
    EXPECT_FALSE(none.updateFromDevMode(DevModeView(bytes), plotter, modified));
    EXPECT_FALSE(modified);
}

TEST_F(FromDevMode, aBlockThatIsNoneIsRefused)
{
    bool modified = true;
    EXPECT_FALSE(settled.updateFromDevMode(DevModeView(), plotter, modified));
    EXPECT_FALSE(modified);
}

TEST_F(FromDevMode, aBlockOfOtherSizesIsRefused)
{
    Block block = driversBlock();
    block.fields.dmSize = 216;
    EXPECT_EQ(takeOver(settled, block), failed);

    block = driversBlock();
    block.privateBytes.push_back(0);
    EXPECT_EQ(takeOver(settled, block), failed);

    block.privateBytes.clear();
    EXPECT_EQ(takeOver(settled, block), failed);
}

// Private bytes that would fit a driver of the same total length still belong to another layout.
TEST_F(FromDevMode, aBlockOfTheSameLengthButAnotherDivisionIsRefused)
{
    Block block = driversBlock();
    block.fields.dmSize = 224;
    block.privateBytes.resize(4);
    EXPECT_EQ(takeOver(settled, block), failed);
}

TEST_F(FromDevMode, anotherPrintersBlockIsRefusedButLetterCaseDoesNotMatter)
{
    EXPECT_EQ(takeOver(settled, driversBlock(), OD_T("Plotter B")), failed);
    EXPECT_EQ(takeOver(settled, driversBlock(), OD_T("")), failed);
    EXPECT_EQ(takeOver(settled, driversBlock(), OD_T("pLOTTER a")), unchanged);
}

// The device name inside the block is no criterion: drivers leave rubbish there.
TEST_F(FromDevMode, theDeviceNameInTheBlockDoesNotMatter)
{
    Block block = driversBlock();
    std::fill(std::begin(block.fields.dmDeviceName), std::end(block.fields.dmDeviceName), WCHAR{'?'});
    EXPECT_EQ(takeOver(settled, block), unchanged);
}

TEST_F(FromDevMode, aRefusedBlockChangesNothing)
{
    const Configuration before = ownCopy(settled);
    Block block = driversBlock();
    block.fields.dmCopies = 5;
    block.fields.dmSize = 216;
    EXPECT_EQ(takeOver(settled, block), failed);
    EXPECT_EQ(describe(settled), describe(before));
}

TEST_F(FromDevMode, theExportedFormMeasuresTheBlockByItsOwnSizes)
{
    Block block = driversBlock();
    block.fields.dmCopies = 5;
    const DevModeBlock owned = DevModeBlock::copyOf(DevModeView(block.bytes()));
    bool modified = false;
    EXPECT_TRUE(settled.updateFromDevMode(*owned.get(), plotter, modified));
    EXPECT_TRUE(modified);
    EXPECT_EQ(settled.m_media.m_number_of_copies, 5);

    modified = false;
    EXPECT_TRUE(settled.fromDevMode(*owned.get(), plotter, true, modified));
}

TEST_F(FromDevMode, aMisalignedBlockIsTakenOver)
{
    Block block = driversBlock();
    block.fields.dmCopies = 5;
    std::vector<BYTE> shifted = block.bytes();
    shifted.insert(shifted.begin(), 0xEE);
    bool modified = false;
    EXPECT_TRUE(settled.updateFromDevMode(DevModeView(std::span<const BYTE>(shifted).subspan(1)), plotter, modified));
    EXPECT_EQ(settled.m_media.m_number_of_copies, 5);
}

// -- Sizes and private bytes -----------------------------------------------------------------------------------------

TEST_F(FromDevMode, theSizesAreStoredAsPlainNumbers)
{
    settled.m_custom->m_numbers[OD_T("dmSize")] = OD_T(" +220 bytes");
    settled.m_custom->m_numbers[OD_T("dmDriverExtra")] = OD_T("08");
    EXPECT_EQ(takeOver(settled, driversBlock()), unchanged);
    EXPECT_EQ(settled.m_custom->m_numbers[OD_T("dmSize")], OD_T("220"));
    EXPECT_EQ(settled.m_custom->m_numbers[OD_T("dmDriverExtra")], OD_T("8"));
}

TEST_F(FromDevMode, otherPrivateBytesAreAChangeAndAreStoredInUpperCase)
{
    Block block = driversBlock();
    block.privateBytes = {0x00, 0x9A, 0xBC, 0xDE, 0xF0, 0x0F, 0xFF, 0x10};
    EXPECT_EQ(takeOver(settled, block), changed);
    EXPECT_EQ(settled.m_custom->m_binaries[OD_T("RawPrivateDeviceData")], OD_T("009ABCDEF00FFF10"));
    EXPECT_EQ(takeOver(settled, block), unchanged);
}

TEST_F(FromDevMode, onePrivateBitIsAChange)
{
    for (std::size_t i = 0; i < 8; ++i)
    {
        Configuration each = ownCopy(settled);
        Block block = driversBlock();
        block.privateBytes[i] ^= 1;
        EXPECT_EQ(takeOver(each, block), changed) << i;
    }
}

TEST_F(FromDevMode, withoutPrivateBytesTheStoredTextIsLeftAlone)
{
    settled.m_custom->m_numbers[OD_T("dmDriverExtra")] = OD_T("0");
    settled.m_custom->m_binaries[OD_T("RawPrivateDeviceData")] = OD_T("left from before");
    Block block = driversBlock();
    block.privateBytes.clear();
    EXPECT_EQ(takeOver(settled, block), unchanged);
    EXPECT_EQ(settled.m_custom->m_binaries[OD_T("RawPrivateDeviceData")], OD_T("left from before"));
    settled.m_custom->m_binaries.clear();
    EXPECT_EQ(takeOver(settled, block), unchanged);
    EXPECT_TRUE(settled.m_custom->m_binaries.empty());
}

// -- Ports and model names -------------------------------------------------------------------------------------------

TEST_F(FromDevMode, onlyCreationReadsThePortsAndNamesTheModel)
{
    settled.m_io.m_plot_to_file = false;
    EXPECT_EQ(takeOver(settled, driversBlock()), unchanged);
    EXPECT_FALSE(settled.m_io.m_plot_to_file);
    EXPECT_TRUE(settled.m_meta.m_canonical_family_name.isEmpty());

    EXPECT_TRUE(takeOver(settled, driversBlock(), plotter, true).succeeded);
    EXPECT_TRUE(settled.m_io.m_plot_to_file);
    EXPECT_EQ(settled.m_meta.m_canonical_family_name, OD_T("System"));
    EXPECT_EQ(settled.m_meta.m_canonical_model_name, OD_T("System"));
    EXPECT_EQ(settled.m_meta.m_localized_family_name, OD_T("System"));
    EXPECT_EQ(settled.m_meta.m_localized_model_name, OD_T("System"));
}

TEST_F(FromDevMode, onlyAFilePortAloneMeansPlotToFile)
{
    struct Case
    {
        const OdChar* port;
        bool toFile;
    };
    for (const Case& printer : {Case{OD_T("FILE:"), true}, Case{OD_T("file"), true}, Case{OD_T("FiLe:"), true},
                                Case{OD_T("FILE:,LPT1:"), false}, Case{OD_T("LPT1:"), false},
                                Case{OD_T("FILE::"), false}, Case{OD_T("C:\\FILE:"), false}})
    {
        m_printer.port = room::Text(printer.port);
        settled.m_io.m_plot_to_file = !printer.toFile;
        EXPECT_TRUE(takeOver(settled, driversBlock(), plotter, true).succeeded);
        EXPECT_EQ(settled.m_io.m_plot_to_file, printer.toFile) << OdString(printer.port);
    }
}

TEST_F(FromDevMode, theModelIsNamedAlsoWhenThePortsCannotBeRead)
{
    for (const bool before : {true, false})
    {
        m_printer.port.reset();
        settled.m_io.m_plot_to_file = before;
        settled.m_meta.m_localized_model_name = OD_T("");
        EXPECT_TRUE(takeOver(settled, driversBlock(), plotter, true).succeeded);
        EXPECT_EQ(settled.m_io.m_plot_to_file, before);
        EXPECT_EQ(settled.m_meta.m_localized_model_name, OD_T("System"));
    }
}

// -- Device context --------------------------------------------------------------------------------------------------

TEST_F(FromDevMode, theDeviceContextIsMadeForTheBlockUnderTheStoredDriverName)
{
    Block block = driversBlock();
    block.fields.dmCopies = 7;
    settled.m_meta.m_win_driver_name = OD_T("not the driver");
    EXPECT_EQ(takeOver(settled, block), changed);
    EXPECT_EQ(OdString(lastContext().text), OD_T("not the driver"));
    EXPECT_EQ(OdString(lastContext().printer), OdString(plotter));
    EXPECT_EQ(lastContext().devMode, block.bytes());
}

TEST_F(FromDevMode, anEmptyDriverNameIsPassedOnAsEmptyText)
{
    settled.m_meta.m_win_driver_name = OD_T("");
    EXPECT_EQ(takeOver(settled, driversBlock()), changed);
    EXPECT_EQ(lastContext().call, room::Call::createDC);
    EXPECT_FALSE(lastContext().null);
    EXPECT_EQ(OdString(lastContext().text), OD_T(""));
}

TEST_F(FromDevMode, withoutADeviceContextTheRestIsStillTakenOver)
{
    m_room.refuse(room::Call::createDC);
    Block block = driversBlock();
    block.fields.dmCopies = 5;
    const std::int32_t depth = settled.m_res_color_mem.m_color_depth;
    EXPECT_EQ(takeOver(settled, block), changed);
    EXPECT_EQ(settled.m_media.m_number_of_copies, 5);
    EXPECT_EQ(settled.m_res_color_mem.m_color_depth, depth);
}

TEST_F(FromDevMode, withoutADeviceContextAPrintQualityIsNotTakenOver)
{
    m_room.refuse(room::Call::createDC);
    Block block = driversBlock();
    block.fields.dmPrintQuality = DMRES_HIGH;
    block.fields.dmYResolution = 1;
    EXPECT_EQ(takeOver(settled, block), unchanged);
    EXPECT_EQ(settled.m_res_color_mem.m_resolution.m_name, OD_T("600x600_None"));
    EXPECT_EQ(settled.m_res_color_mem.m_resolution.m_phys_resolution_y, 600.0);
}

// -- Custom numbers --------------------------------------------------------------------------------------------------

namespace
{
struct CustomNumber
{
    const OdChar* key;
    DWORD flag; // 0: the version, which any flag brings
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

TEST_F(FromDevMode, aFlaggedNumberIsStoredAndADifferenceIsAChange)
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

TEST_F(FromDevMode, anUnflaggedNumberIsLeftAlone)
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

TEST_F(FromDevMode, theVersionIsTakenOverOnlyWithSomeFlag)
{
    Block block = driversBlock();
    block.fields.dmSpecVersion = 0x320;
    block.fields.dmFields = 0;
    EXPECT_TRUE(takeOver(settled, block).succeeded);
    EXPECT_EQ(settled.m_custom->m_numbers[OD_T("dmSpecVersion")], OD_T("1025"));
    // A flag without a field is a flag too.
    block.fields.dmFields = 0x80000000;
    EXPECT_TRUE(takeOver(settled, block).succeeded);
    EXPECT_EQ(settled.m_custom->m_numbers[OD_T("dmSpecVersion")], OD_T("800"));
}

TEST_F(FromDevMode, aFlaggedNumberWithoutAnItemFailsAndKeepsWhatWasChangedBefore)
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

// Its absence alone is noticed as a difference before the store fails.
TEST_F(FromDevMode, aMissingItemReportsAChangeBesidesTheFailure)
{
    settled.m_custom->m_numbers.erase(OD_T("dmSpecVersion"));
    EXPECT_EQ(takeOver(settled, driversBlock()), failedAfterAChange);
}

TEST_F(FromDevMode, aFailureAtALaterNumberKeepsTheEarlierOnes)
{
    settled.m_custom->m_numbers.erase(OD_T("dmTTOption"));
    Block block = driversBlock();
    block.fields.dmSpecVersion = 0x500;
    block.fields.dmDefaultSource = 3;
    EXPECT_EQ(takeOver(settled, block), failedAfterAChange);
    EXPECT_EQ(settled.m_custom->m_numbers[OD_T("dmSpecVersion")], OD_T("1280"));
    EXPECT_EQ(settled.m_custom->m_numbers[OD_T("dmDefaultSource")], OD_T("3"));
}

TEST_F(FromDevMode, anItemThatIsNoNumberDiffersAndIsReplaced)
{
    settled.m_custom->m_numbers[OD_T("dmTTOption")] = OD_T("garbage");
    EXPECT_EQ(takeOver(settled, driversBlock()), changed);
    EXPECT_EQ(settled.m_custom->m_numbers[OD_T("dmTTOption")], OD_T("2"));
}

TEST_F(FromDevMode, creationAddsFlaggedNumbersAndDoesNotCountThemAsChanges)
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

// The stored text is only looked at while nothing has changed yet; once something has, it is replaced unseen, and that
// it was equal or not makes no difference any more.
TEST_F(FromDevMode, afterAChangeNumbersAreStoredWithoutComparing)
{
    settled.m_custom->m_numbers[OD_T("dmTTOption")] = OD_T("+2");
    Block block = driversBlock();
    block.privateBytes[0] = 0xEE;
    EXPECT_EQ(takeOver(settled, block), changed);
    EXPECT_EQ(settled.m_custom->m_numbers[OD_T("dmTTOption")], OD_T("2"));
}

TEST_F(FromDevMode, negativeCodesAreStoredAsUnsignedWithTheirSignExtended)
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

TEST_F(FromDevMode, theVersionAndTheMediaTypeAreUnsigned)
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

TEST_F(FromDevMode, eachFieldIsTakenOverWithoutItsFlagAndADifferenceIsAChange)
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

TEST_F(FromDevMode, anotherOrientationSwapsTheBounds)
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

TEST_F(FromDevMode, orientationsOfAllSixteenBitsAreKept)
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

TEST_F(FromDevMode, aMissingDestinationIsMadeAndIsAChange)
{
    settled.m_media.m_destination = nullptr;
    EXPECT_EQ(takeOver(settled, driversBlock()), changed);
    ASSERT_TRUE(settled.m_media.m_destination);
    EXPECT_EQ(settled.m_media.m_destination->m_name, OD_T("Default"));
    EXPECT_EQ(settled.m_media.m_destination->m_collating_type, 0);
    EXPECT_EQ(settled.m_media.m_destination->m_collating_name, OD_T("None"));
}

TEST_F(FromDevMode, anExistingDestinationKeepsItsName)
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

TEST_F(FromDevMode, colourGivesTheLinesFlagItsDefaultAndThatAloneIsNoChange)
{
    settled.m_res_color_mem.m_lines_overwrite = nullptr;
    settled.m_res_color_mem.m_dm_color = DMCOLOR_COLOR;
    Block block = driversBlock();
    block.fields.dmColor = DMCOLOR_COLOR;
    EXPECT_EQ(takeOver(settled, block), unchanged);
    ASSERT_TRUE(settled.m_res_color_mem.m_lines_overwrite);
    EXPECT_TRUE(*settled.m_res_color_mem.m_lines_overwrite);
}

TEST_F(FromDevMode, otherColoursLeaveTheLinesFlagAbsent)
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

TEST_F(FromDevMode, aPresentLinesFlagIsKept)
{
    const GmOptionalFlag flag(new bool(false));
    settled.m_res_color_mem.m_lines_overwrite = flag;
    Block block = driversBlock();
    block.fields.dmColor = DMCOLOR_COLOR;
    EXPECT_TRUE(takeOver(settled, block).succeeded);
    EXPECT_EQ(settled.m_res_color_mem.m_lines_overwrite, flag) << "the very object: copies share it";
    EXPECT_FALSE(*flag);
}

TEST_F(FromDevMode, aPrintQualityIsMeasuredByTheDevice)
{
    Block block = driversBlock();
    block.fields.dmPrintQuality = DMRES_MEDIUM;
    EXPECT_EQ(takeOver(settled, block), changed);
    EXPECT_EQ(settled.m_res_color_mem.m_resolution.m_name, OD_T("DMRES_MEDIUM_None"));
    EXPECT_EQ(settled.m_res_color_mem.m_resolution.m_phys_resolution_x, 600.0);
}

TEST_F(FromDevMode, theDevicesDepthGivesTheNumberOfColours)
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

TEST_F(FromDevMode, aDeviceWithoutADepthChangesNothing)
{
    for (const int bits : {0, -1, std::numeric_limits<int>::min()})
    {
        m_printer.caps.bitsPerPixel = bits;
        const std::int32_t depth = settled.m_res_color_mem.m_color_depth;
        EXPECT_EQ(takeOver(settled, driversBlock()), unchanged) << bits;
        EXPECT_EQ(settled.m_res_color_mem.m_color_depth, depth);
    }
}

// The number of colours follows the depth only when that changes; a file may hold any pair.
TEST_F(FromDevMode, theSameDepthLeavesTheNumberOfColours)
{
    settled.m_res_color_mem.m_num_colors = 12345;
    EXPECT_EQ(takeOver(settled, driversBlock()), unchanged);
    EXPECT_EQ(settled.m_res_color_mem.m_num_colors, 12345);
}

TEST_F(FromDevMode, withoutDitheringEveryColourIsUnditheredAndThatIsNoChange)
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

TEST_F(FromDevMode, anotherDriverNameIsStoredAndIsAChange)
{
    settled.m_meta.m_win_driver_name = OD_T("Old driver");
    EXPECT_EQ(takeOver(settled, driversBlock()), changed);
    EXPECT_EQ(settled.m_meta.m_win_driver_name, OdString(driver));
}

TEST_F(FromDevMode, aDriverNameInOtherLettersIsAChange)
{
    settled.m_meta.m_win_driver_name = OD_T("ACME hp-gl");
    EXPECT_EQ(takeOver(settled, driversBlock()), changed);
    EXPECT_EQ(settled.m_meta.m_win_driver_name, OdString(driver));
}

TEST_F(FromDevMode, aDriverWithoutANameLeavesTheStoredOne)
{
    m_printer.driver.reset();
    settled.m_meta.m_win_driver_name = OD_T("Old driver");
    EXPECT_EQ(takeOver(settled, driversBlock()), unchanged);
    EXPECT_EQ(settled.m_meta.m_win_driver_name, OD_T("Old driver"));
}

TEST_F(FromDevMode, theFlagsAreRememberedAsTheyStandAndAreNoChange)
{
    Block block = driversBlock();
    block.fields.dmFields |= 0xC0000000 | DM_PANNINGWIDTH;
    EXPECT_EQ(takeOver(settled, block), unchanged);
    EXPECT_EQ(settled.m_devModeFields, block.fields.dmFields);
}

TEST_F(FromDevMode, aFailureLeavesTheRememberedFlags)
{
    const std::uint32_t before = settled.m_devModeFields;
    Block block = driversBlock();
    block.fields.dmFields |= DM_MEDIATYPE | 0x80000000;
    EXPECT_FALSE(takeOver(settled, block).succeeded);
    EXPECT_EQ(settled.m_devModeFields, before);
}
