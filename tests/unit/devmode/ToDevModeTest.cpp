// Converting a configuration to its printer's DEVMODEW: what each part becomes.

#include "tests/unit/devmode/DevModeFixture.h"

#include <limits>
#include <optional>

namespace
{
class ToDevMode : public DevModeTest
{
protected:
    // The public fields of cfg's DEVMODEW; all 0 if there is none.
    DEVMODEW fieldsOf(const GmPlotCfg3& configuration) const
    {
        const OdArray<unsigned char> bytes = configuration.toDevMode();
        EXPECT_FALSE(bytes.isEmpty());
        return DevModeView(std::span(bytes.begin(), bytes.end())).fields();
    }
};

// The low 16 bits of a number as a signed field.
struct Wrapped
{
    std::int32_t number;
    short field;
};
constexpr Wrapped wrappedNumbers[] = {
    {0, 0},
    {1, 1},
    {-1, -1},
    {32767, 32767},
    {32768, -32768},
    {-32768, -32768},
    {65535, -1},
    {65536, 0},
    {std::numeric_limits<std::int32_t>::max(), -1},
    {std::numeric_limits<std::int32_t>::min(), 0},
};
} // namespace

TEST_F(ToDevMode, withoutCustomDataThereIsNoBlock)
{
    cfg.m_custom = nullptr;
    EXPECT_TRUE(cfg.toDevMode().isEmpty());
}

TEST_F(ToDevMode, withoutADeviceNameThereIsNoBlockAndNoPrinterIsOpened)
{
    cfg.m_meta.m_win_device_name = OD_T("");
    EXPECT_TRUE(cfg.toDevMode().isEmpty());
    EXPECT_EQ(calls(room::Call::openPrinter), 0);
}

TEST_F(ToDevMode, aMissingNegativeOrUnreadableSizeGivesNoBlock)
{
    for (const OdChar* key : {OD_T("dmSize"), OD_T("dmDriverExtra")})
    {
        for (const OdChar* text : {OD_T("-1"), OD_T("-2147483648"), OD_T(""), OD_T("x8"), OD_T("2147483648")})
        {
            Configuration changed = ownCopy(cfg);
            changed.m_custom->m_numbers[key] = text;
            EXPECT_TRUE(changed.toDevMode().isEmpty()) << OdString(key) << OdString(text);
        }
        Configuration changed = ownCopy(cfg);
        changed.m_custom->m_numbers.erase(key);
        EXPECT_TRUE(changed.toDevMode().isEmpty()) << OdString(key);
    }
}

TEST_F(ToDevMode, privateDataOfAnotherLengthGivesNoBlock)
{
    for (const OdChar* text : {OD_T(""), OD_T("00"), OD_T("01020304050607F"), OD_T("01020304050607F80")})
    {
        cfg.m_custom->m_binaries[OD_T("RawPrivateDeviceData")] = text;
        EXPECT_TRUE(cfg.toDevMode().isEmpty()) << OdString(text);
    }
    cfg.m_custom->m_binaries.clear();
    EXPECT_TRUE(cfg.toDevMode().isEmpty());
}

TEST_F(ToDevMode, withoutPrivateBytesNoPrivateDataIsAskedFor)
{
    cfg.m_custom->m_numbers[OD_T("dmDriverExtra")] = OD_T("0");
    for (const bool stored : {true, false})
    {
        if (!stored)
            cfg.m_custom->m_binaries.clear();
        EXPECT_EQ(cfg.toDevMode().size(), 220U) << stored;
    }
}

TEST_F(ToDevMode, aPrinterThatCannotBeOpenedGivesNoBlock)
{
    cfg.m_meta.m_win_device_name = OD_T("Nobody");
    EXPECT_TRUE(cfg.toDevMode().isEmpty());
}

TEST_F(ToDevMode, theBlockIsAsLongAsItSays)
{
    const OdArray<unsigned char> bytes = cfg.toDevMode();
    ASSERT_EQ(bytes.size(), 228U);
    const DEVMODEW fields = fieldsOf(cfg);
    EXPECT_EQ(fields.dmSize, 220);
    EXPECT_EQ(fields.dmDriverExtra, 8);
    EXPECT_EQ(fields.dmSpecVersion, 0x401);
}

TEST_F(ToDevMode, aMissingVersionIsZero)
{
    cfg.m_custom->m_numbers.erase(OD_T("dmSpecVersion"));
    EXPECT_EQ(fieldsOf(cfg).dmSpecVersion, 0);
}

TEST_F(ToDevMode, thePrivateBytesComeBackVerbatimBehindThePublicPart)
{
    const OdArray<unsigned char> bytes = cfg.toDevMode();
    const std::vector<unsigned char> expected = {1, 2, 3, 4, 5, 6, 7, 0xF8};
    EXPECT_EQ(std::vector<unsigned char>(bytes.begin() + 220, bytes.end()), expected);
}

TEST_F(ToDevMode, lowerCaseDigitsCountAndOtherCharactersAreZero)
{
    cfg.m_custom->m_binaries[OD_T("RawPrivateDeviceData")] = OD_T("aBcDeFgG 1-2\u0130\u01319F");
    const OdArray<unsigned char> bytes = cfg.toDevMode();
    ASSERT_EQ(bytes.size(), 228U);
    const std::vector<unsigned char> expected = {0xAB, 0xCD, 0xEF, 0, 1, 2, 0, 0x9F};
    EXPECT_EQ(std::vector<unsigned char>(bytes.begin() + 220, bytes.end()), expected);
}

TEST_F(ToDevMode, anOptionalNumberBringsItsFieldAndItsFlag)
{
    struct Case
    {
        const OdChar* key;
        DWORD flag;
    };
    for (const Case& number : {Case{OD_T("dmMediaType"), DM_MEDIATYPE}, Case{OD_T("dmDefaultSource"), DM_DEFAULTSOURCE},
                               Case{OD_T("dmTTOption"), DM_TTOPTION}, Case{OD_T("dmPaperSize"), DM_PAPERSIZE}})
    {
        cfg.m_media.m_size.m_name = OD_T("a name that says nothing about the paper");
        cfg.m_custom->m_numbers.erase(number.key);
        EXPECT_EQ(fieldsOf(cfg).dmFields & number.flag, 0U) << OdString(number.key);
        cfg.m_custom->m_numbers[number.key] = OD_T("no number");
        EXPECT_EQ(fieldsOf(cfg).dmFields & number.flag, 0U) << OdString(number.key);
        cfg.m_custom->m_numbers[number.key] = OD_T("3");
        EXPECT_EQ(fieldsOf(cfg).dmFields & number.flag, number.flag) << OdString(number.key);
    }
    const DEVMODEW fields = fieldsOf(cfg);
    EXPECT_EQ(fields.dmMediaType, 3U);
    EXPECT_EQ(fields.dmDefaultSource, 3);
    EXPECT_EQ(fields.dmTTOption, 3);
    EXPECT_EQ(fields.dmPaperSize, 3);
}

TEST_F(ToDevMode, storedNumbersKeepTheirLowBits)
{
    cfg.m_media.m_size.m_name = OD_T("a name that says nothing about the paper");
    for (const Wrapped& wrapped : wrappedNumbers)
    {
        const OdString text = decimalFromNumber(wrapped.number);
        for (const OdChar* key : {OD_T("dmSpecVersion"), OD_T("dmMediaType"), OD_T("dmDefaultSource"),
                                  OD_T("dmTTOption"), OD_T("dmPaperSize")})
            cfg.m_custom->m_numbers[key] = text;
        const DEVMODEW fields = fieldsOf(cfg);
        EXPECT_EQ(fields.dmSpecVersion, static_cast<WORD>(wrapped.field)) << text;
        EXPECT_EQ(fields.dmMediaType, static_cast<DWORD>(wrapped.number)) << text;
        EXPECT_EQ(fields.dmDefaultSource, wrapped.field) << text;
        EXPECT_EQ(fields.dmTTOption, wrapped.field) << text;
        EXPECT_EQ(fields.dmPaperSize, wrapped.field) << text;
    }
}

TEST_F(ToDevMode, customNumbersAreFlaggedBesideEachOther)
{
    for (const OdChar* key : {OD_T("dmMediaType"), OD_T("dmDefaultSource"), OD_T("dmTTOption"), OD_T("dmPaperSize")})
        cfg.m_custom->m_numbers[key] = OD_T("3");
    constexpr DWORD all = DM_MEDIATYPE | DM_DEFAULTSOURCE | DM_TTOPTION | DM_PAPERSIZE;
    EXPECT_EQ(fieldsOf(cfg).dmFields & all, all);
}

TEST_F(ToDevMode, aDeviceNameOf31CharactersComesOutWith30)
{
    const OdString name(OD_T("Plotter with 31 characters here"));
    ASSERT_EQ(name.getLength(), 31);
    addTwin(name);
    cfg.m_meta.m_win_device_name = name;
    const DEVMODEW fields = fieldsOf(cfg);
    EXPECT_EQ(OdString(odBoundedView(fields.dmDeviceName, 32)), name.left(30));
    EXPECT_EQ(fields.dmDeviceName[31], 0);
}

TEST_F(ToDevMode, aShortDeviceNameIsWhole)
{
    for (const int length : {1, 29, 30})
    {
        const OdString name = OdString(OD_T("123456789012345678901234567890")).left(length);
        addTwin(name);
        cfg.m_meta.m_win_device_name = name;
        EXPECT_EQ(OdString(odBoundedView(fieldsOf(cfg).dmDeviceName, 32)), name);
    }
}

// Only the character at 30 is cleared: if a name fills the field, the last one stays.
TEST_F(ToDevMode, aLongDeviceNameFillsTheFieldAroundItsEnd)
{
    const OdString name(OD_T("1234567890123456789012345678901234567890"));
    addTwin(name);
    cfg.m_meta.m_win_device_name = name;
    const DEVMODEW fields = fieldsOf(cfg);
    EXPECT_EQ(OdString(odBoundedView(fields.dmDeviceName, 32)), name.left(30));
    EXPECT_EQ(fields.dmDeviceName[31], '2');
    EXPECT_EQ(fields.dmSpecVersion, 0x401);
}

TEST_F(ToDevMode, aNameEndsAtItsNulAsForThePrinterThatItOpened)
{
    cfg.m_meta.m_win_device_name = OdString(OdStringView(OD_T("Plotter A\0junk"), 14));
    const DEVMODEW fields = fieldsOf(cfg);
    EXPECT_EQ(OdString(odBoundedView(fields.dmDeviceName, 32)), OD_T("Plotter A"));
    EXPECT_EQ(fields.dmDeviceName[10], 0);
}

TEST_F(ToDevMode, theDriverVersionHasNoFlag)
{
    cfg.m_meta.m_dm_driver_version = 0x12345;
    EXPECT_EQ(fieldsOf(cfg).dmDriverVersion, 0x2345);
    cfg.m_meta.m_dm_driver_version = -1;
    EXPECT_EQ(fieldsOf(cfg).dmDriverVersion, 0xFFFF);
}

TEST_F(ToDevMode, orientationCopiesAndColorAreAlwaysFlagged)
{
    for (const Wrapped& wrapped : wrappedNumbers)
    {
        cfg.m_media.m_dm_orientation = wrapped.number;
        cfg.m_media.m_number_of_copies = wrapped.number;
        cfg.m_res_color_mem.m_dm_color = wrapped.number;
        const DEVMODEW fields = fieldsOf(cfg);
        EXPECT_EQ(fields.dmOrientation, wrapped.field);
        EXPECT_EQ(fields.dmCopies, wrapped.field);
        EXPECT_EQ(fields.dmColor, wrapped.field);
        constexpr DWORD flags = DM_ORIENTATION | DM_COPIES | DM_COLOR;
        EXPECT_EQ(fields.dmFields & flags, flags);
    }
}

TEST_F(ToDevMode, aScaleOf100IsWrittenWithoutItsFlag)
{
    EXPECT_EQ(fieldsOf(cfg).dmScale, 100);
    EXPECT_EQ(fieldsOf(cfg).dmFields & DM_SCALE, 0U);
    for (const Wrapped& wrapped : wrappedNumbers)
    {
        cfg.m_media.m_size.m_dm_scale = wrapped.number;
        EXPECT_EQ(fieldsOf(cfg).dmScale, wrapped.field);
        EXPECT_EQ(fieldsOf(cfg).dmFields & DM_SCALE, DWORD{DM_SCALE});
    }
    // The whole number counts, not the part that fits the field.
    cfg.m_media.m_size.m_dm_scale = 65536 + 100;
    EXPECT_EQ(fieldsOf(cfg).dmScale, 100);
    EXPECT_EQ(fieldsOf(cfg).dmFields & DM_SCALE, DWORD{DM_SCALE});
}

TEST_F(ToDevMode, withoutADestinationCollatingIsNotSpokenOf)
{
    cfg.m_media.m_destination = nullptr;
    EXPECT_EQ(fieldsOf(cfg).dmCollate, 0);
    EXPECT_EQ(fieldsOf(cfg).dmFields & DM_COLLATE, 0U);
}

TEST_F(ToDevMode, everyCollatingTypeButZeroCollates)
{
    for (const std::int32_t type : {0, 1, 2, -1, 65536, std::numeric_limits<std::int32_t>::min()})
    {
        cfg.m_media.m_destination->m_collating_type = type;
        EXPECT_EQ(fieldsOf(cfg).dmCollate, type == 0 ? 0 : 1) << type;
        EXPECT_EQ(fieldsOf(cfg).dmFields & DM_COLLATE, DWORD{DM_COLLATE});
    }
}

TEST_F(ToDevMode, colourManagementIsFlaggedOnlyWhenNotZero)
{
    for (const Wrapped& wrapped : wrappedNumbers)
    {
        cfg.m_res_color_mem.m_icm_method = wrapped.number;
        cfg.m_res_color_mem.m_icm_intent = wrapped.number;
        const DEVMODEW fields = fieldsOf(cfg);
        EXPECT_EQ(fields.dmICMMethod, static_cast<DWORD>(wrapped.number));
        EXPECT_EQ(fields.dmICMIntent, static_cast<DWORD>(wrapped.number));
        constexpr DWORD flags = DM_ICMMETHOD | DM_ICMINTENT;
        EXPECT_EQ(fields.dmFields & flags, wrapped.number == 0 ? 0 : flags);
    }
}

TEST_F(ToDevMode, methodAndIntentAreFlaggedEachForItself)
{
    cfg.m_res_color_mem.m_icm_method = 2;
    EXPECT_EQ(fieldsOf(cfg).dmFields & (DM_ICMMETHOD | DM_ICMINTENT), DWORD{DM_ICMMETHOD});
    cfg.m_res_color_mem.m_icm_method = 0;
    cfg.m_res_color_mem.m_icm_intent = 2;
    EXPECT_EQ(fieldsOf(cfg).dmFields & (DM_ICMMETHOD | DM_ICMINTENT), DWORD{DM_ICMINTENT});
}

TEST_F(ToDevMode, theResolutionNodeFillsItsFields)
{
    cfg.m_res_color_mem.m_resolution.m_name = OD_T("dmres_draft_None");
    cfg.m_res_color_mem.m_resolution.m_phys_resolution_y = 300;
    EXPECT_EQ(fieldsOf(cfg).dmPrintQuality, -1);
    EXPECT_EQ(fieldsOf(cfg).dmYResolution, 0);
    EXPECT_EQ(fieldsOf(cfg).dmFields & (DM_PRINTQUALITY | DM_YRESOLUTION), DWORD{DM_PRINTQUALITY});

    cfg.m_res_color_mem.m_resolution.m_name = OD_T("600x300_None");
    cfg.m_res_color_mem.m_resolution.m_phys_resolution_x = 600;
    EXPECT_EQ(fieldsOf(cfg).dmPrintQuality, 600);
    EXPECT_EQ(fieldsOf(cfg).dmYResolution, 300);
    EXPECT_EQ(fieldsOf(cfg).dmFields & (DM_PRINTQUALITY | DM_YRESOLUTION), DWORD{DM_PRINTQUALITY | DM_YRESOLUTION});
}

// An import reads both fields whatever the flags are, so they are filled even if they are not flagged.
TEST_F(ToDevMode, ditherAndDuplexAreAlwaysFilledAndFlaggedOnlyWhenKnownOrNotOne)
{
    for (const std::uint32_t dither : {0U, 1U, 5U, 0x80000000U, 0xFFFFFFFFU})
    {
        for (const DWORD fields : {DWORD{0}, DWORD{DM_DITHERTYPE}, DWORD{DM_DUPLEX}, DWORD{DM_COPIES}})
        {
            cfg.m_ditherType = dither;
            cfg.m_duplex = static_cast<std::uint16_t>(dither);
            cfg.m_devModeFields = fields;
            const DEVMODEW made = fieldsOf(cfg);
            EXPECT_EQ(made.dmDitherType, dither);
            EXPECT_EQ(made.dmDuplex, static_cast<short>(dither));
            EXPECT_EQ((made.dmFields & DM_DITHERTYPE) != 0, dither != 1 || fields == DM_DITHERTYPE);
            EXPECT_EQ((made.dmFields & DM_DUPLEX) != 0, static_cast<std::uint16_t>(dither) != 1 || fields == DM_DUPLEX);
        }
    }
}

TEST_F(ToDevMode, aListedPaperIsGivenByNameAndByCode)
{
    cfg.m_media.m_size.m_name = OD_T("a3");
    const DEVMODEW fields = fieldsOf(cfg);
    EXPECT_EQ(OdString(odBoundedView(fields.dmFormName, 32)), OD_T("A3")) << "as the driver spells it";
    EXPECT_EQ(fields.dmPaperSize, 8);
    EXPECT_EQ(fields.dmFields & (DM_FORMNAME | DM_PAPERSIZE), DWORD{DM_FORMNAME | DM_PAPERSIZE});
    EXPECT_EQ(fields.dmFields & (DM_PAPERWIDTH | DM_PAPERLENGTH), 0U);
}

TEST_F(ToDevMode, nameAndCodeDependEachOnItsOwnFlagOfTheLastTakeover)
{
    for (const DWORD fields : {DWORD{0}, DWORD{DM_FORMNAME}, DWORD{DM_PAPERSIZE}, DWORD{DM_COPIES}})
    {
        cfg.m_devModeFields = fields;
        const DEVMODEW made = fieldsOf(cfg);
        const bool name = fields == 0 || fields == DM_FORMNAME;
        const bool code = fields == 0 || fields == DM_PAPERSIZE;
        EXPECT_EQ((made.dmFields & DM_FORMNAME) != 0, name) << fields;
        EXPECT_EQ(OdString(odBoundedView(made.dmFormName, 32)), name ? OD_T("A4") : OD_T("")) << fields;
        EXPECT_EQ((made.dmFields & DM_PAPERSIZE) != 0, code) << fields;
        EXPECT_EQ(made.dmPaperSize, code ? 9 : 0) << fields;
    }
}

TEST_F(ToDevMode, theListedCodeReplacesTheStoredOneOnlyWhenItIsWanted)
{
    cfg.m_custom->m_numbers[OD_T("dmPaperSize")] = OD_T("77");
    EXPECT_EQ(fieldsOf(cfg).dmPaperSize, 9);
    cfg.m_devModeFields = DM_FORMNAME;
    EXPECT_EQ(fieldsOf(cfg).dmPaperSize, 77);
    EXPECT_EQ(fieldsOf(cfg).dmFields & DM_PAPERSIZE, DWORD{DM_PAPERSIZE});
}

TEST_F(ToDevMode, aListedCodeAbove32767IsNegativeInItsField)
{
    cfg.m_media.m_size.m_name = OD_T("Last");
    EXPECT_EQ(fieldsOf(cfg).dmPaperSize, -1);
    cfg.m_media.m_size.m_name = OD_T("Half");
    EXPECT_EQ(fieldsOf(cfg).dmPaperSize, -32768);
}

TEST_F(ToDevMode, aLongPaperNameIsCutTo31Characters)
{
    cfg.m_media.m_size.m_name = longPaperName;
    const DEVMODEW fields = fieldsOf(cfg);
    EXPECT_EQ(fields.dmFormName[31], 0);
    EXPECT_EQ(OdString(odBoundedView(fields.dmFormName, 32)), OdString(longPaperName).left(31));
    EXPECT_EQ(fields.dmLogPixels, 0);
}

TEST_F(ToDevMode, aUserPaperThatIsNotListedGivesItsNumberAndItsSize)
{
    cfg.m_media.m_size.m_name = OD_T("User300");
    cfg.m_media.m_size.m_media_description.m_media_bounds.m_urx = 210.09;
    cfg.m_media.m_size.m_media_description.m_media_bounds.m_ury = 1234.56;
    const DEVMODEW fields = fieldsOf(cfg);
    EXPECT_EQ(fields.dmPaperSize, 300);
    EXPECT_EQ(fields.dmPaperWidth, 2100);
    EXPECT_EQ(fields.dmPaperLength, 12345);
    constexpr DWORD flags = DM_PAPERSIZE | DM_PAPERWIDTH | DM_PAPERLENGTH | DM_ORIENTATION;
    EXPECT_EQ(fields.dmFields & (flags | DM_FORMNAME), flags) << "beside the flags of other fields";
}

TEST_F(ToDevMode, widthAndLengthAreGivenOnlyBeforeTheFirstTakeover)
{
    cfg.m_media.m_size.m_name = OD_T("User300");
    for (const DWORD fields :
         {DWORD{DM_PAPERSIZE}, DWORD{DM_PAPERSIZE | DM_PAPERWIDTH | DM_PAPERLENGTH}, DWORD{DM_FORMNAME}})
    {
        cfg.m_devModeFields = fields;
        const DEVMODEW made = fieldsOf(cfg);
        EXPECT_EQ(made.dmPaperWidth, 0);
        EXPECT_EQ(made.dmPaperLength, 0);
        EXPECT_EQ(made.dmFields & (DM_PAPERWIDTH | DM_PAPERLENGTH), 0U);
        EXPECT_EQ(made.dmPaperSize, fields & DM_PAPERSIZE ? 300 : 0);
        EXPECT_EQ(made.dmFields & (DM_PAPERSIZE | DM_COLOR), (fields & DM_PAPERSIZE) | DM_COLOR);
    }
}

TEST_F(ToDevMode, theNumberOfAUserPaperIsReadLikePercentD)
{
    struct Case
    {
        const OdChar* name;
        std::optional<short> code;
    };
    const Case cases[] = {
        {OD_T("User5"), 5},
        {OD_T("uSER5"), 5},
        {OD_T("User 5"), 5},
        {OD_T("User\t\n5"), 5},
        {OD_T("User+5"), 5},
        {OD_T("User-5"), -5},
        {OD_T("User5x"), 5},
        {OD_T("User5 6"), 5},
        {OD_T("User007"), 7},
        {OD_T("User0x10"), 0},
        {OD_T("User65535"), -1},
        {OD_T("User65536"), 0},
        {OD_T("User2147483648"), 0},
        {OD_T("User4294967295"), -1},
        {OD_T("User4294967301"), 5},
        {OD_T("User"), std::nullopt},
        {OD_T("Use"), std::nullopt},
        {OD_T(""), std::nullopt},
        {OD_T("User "), std::nullopt},
        {OD_T("Userx5"), std::nullopt},
        {OD_T("User--5"), std::nullopt},
        {OD_T("User+-5"), std::nullopt},
        {OD_T("User- 5"), std::nullopt},
        {OD_T("Usen5"), std::nullopt},
        {OD_T(" User5"), std::nullopt},
        {OD_T("User\u0665"), std::nullopt},
    };
    for (const Case& paper : cases)
    {
        cfg.m_media.m_size.m_name = paper.name;
        const DEVMODEW fields = fieldsOf(cfg);
        EXPECT_EQ(fields.dmPaperSize, paper.code.value_or(0)) << cfg.m_media.m_size.m_name;
        EXPECT_EQ((fields.dmFields & DM_PAPERSIZE) != 0, paper.code.has_value()) << cfg.m_media.m_size.m_name;
        EXPECT_EQ((fields.dmFields & DM_PAPERWIDTH) != 0, paper.code.has_value()) << cfg.m_media.m_size.m_name;
    }
}

TEST_F(ToDevMode, aListedNameThatLooksLikeAUserPaperIsAListedName)
{
    cfg.m_media.m_size.m_name = OD_T("user42");
    const DEVMODEW fields = fieldsOf(cfg);
    EXPECT_EQ(fields.dmPaperSize, 500);
    EXPECT_EQ(OdString(odBoundedView(fields.dmFormName, 32)), OD_T("User42"));
}

TEST_F(ToDevMode, anUnknownPaperNameLeavesTheStoredCode)
{
    cfg.m_media.m_size.m_name = OD_T("Unknown");
    EXPECT_EQ(fieldsOf(cfg).dmFields & (DM_PAPERSIZE | DM_FORMNAME), 0U);
    cfg.m_custom->m_numbers[OD_T("dmPaperSize")] = OD_T("77");
    EXPECT_EQ(fieldsOf(cfg).dmPaperSize, 77);
    EXPECT_EQ(fieldsOf(cfg).dmFields & (DM_PAPERSIZE | DM_FORMNAME), DWORD{DM_PAPERSIZE});
}

TEST_F(ToDevMode, lengthsThatFitNoFieldWrapAndLengthsThatAreNoneAreZero)
{
    struct Case
    {
        double millimetres;
        short tenths;
    };
    constexpr double infinity = std::numeric_limits<double>::infinity();
    const Case cases[] = {
        {3276.7, 32767},
        {3276.85, -32768},
        {6553.55, -1},
        {6553.65, 0},
        {-0.19, -1},
        {-0.05, 0},
        {1e30, 0},
        {1e308, 0},
        {infinity, 0},
        {-infinity, 0},
        {std::numeric_limits<double>::quiet_NaN(), 0},
        {429496730.05, 4}, // 2^32 + 4 tenths
    };
    cfg.m_media.m_size.m_name = OD_T("User300");
    for (const Case& length : cases)
    {
        cfg.m_media.m_size.m_media_description.m_media_bounds.m_urx = length.millimetres;
        cfg.m_media.m_size.m_media_description.m_media_bounds.m_ury = length.millimetres;
        const DEVMODEW fields = fieldsOf(cfg);
        EXPECT_EQ(fields.dmPaperWidth, length.tenths) << length.millimetres;
        EXPECT_EQ(fields.dmPaperLength, length.tenths) << length.millimetres;
        EXPECT_EQ(fields.dmFields & (DM_PAPERWIDTH | DM_PAPERLENGTH), DWORD{DM_PAPERWIDTH | DM_PAPERLENGTH});
    }
}

TEST_F(ToDevMode, asksTheDriverForNothingButItsPapers)
{
    EXPECT_FALSE(cfg.toDevMode().isEmpty());
    EXPECT_EQ(calls(room::Call::documentProperties), 0);
    EXPECT_EQ(calls(room::Call::createDC), 0);
}
