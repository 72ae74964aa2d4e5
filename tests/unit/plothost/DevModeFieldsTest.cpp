#include "plothost/DevModeFields.h"
#include "plothost/DevModeSymbols.h"

#include <gtest/gtest.h>

#include <cstring>
#include <set>

using namespace plothost;

namespace
{
std::vector<BYTE> bytesOf(const DEVMODEW& devMode, const std::vector<BYTE>& extra = {})
{
    std::vector<BYTE> bytes(sizeof(devMode));
    std::memcpy(bytes.data(), &devMode, sizeof(devMode));
    bytes.insert(bytes.end(), extra.begin(), extra.end());
    return bytes;
}

DEVMODEW emptyDevMode()
{
    DEVMODEW devMode = {};
    devMode.dmSize = sizeof(devMode);
    return devMode;
}

DevModeField fieldOf(const DecodedDevMode& devMode, const char* name)
{
    for (const DevModeField& field : devMode.fields)
        if (field.name == name)
            return field;
    ADD_FAILURE() << name << " is missing";
    return {};
}

std::int64_t numberOf(const DevModeField& field)
{
    const auto* number = std::get_if<std::int64_t>(&field.value);
    EXPECT_NE(number, nullptr) << field.name;
    return number ? *number : -123456;
}

// Sets one field of the structure to a value.
struct FieldCase
{
    const char* name;
    DWORD flag;
    void (*set)(DEVMODEW&);
    std::int64_t value;
    const char* symbol;
};

const FieldCase fieldCases[] = {
    {"dmOrientation", 0x1, [](DEVMODEW& d) { d.dmOrientation = 2; }, 2, "DMORIENT_LANDSCAPE"},
    {"dmPaperSize", 0x2, [](DEVMODEW& d) { d.dmPaperSize = 9; }, 9, "DMPAPER_A4"},
    {"dmPaperLength", 0x4, [](DEVMODEW& d) { d.dmPaperLength = 2970; }, 2970, ""},
    {"dmPaperWidth", 0x8, [](DEVMODEW& d) { d.dmPaperWidth = -1; }, -1, ""},
    {"dmScale", 0x10, [](DEVMODEW& d) { d.dmScale = 50; }, 50, ""},
    {"dmCopies", 0x100, [](DEVMODEW& d) { d.dmCopies = 3; }, 3, ""},
    {"dmDefaultSource", 0x200, [](DEVMODEW& d) { d.dmDefaultSource = 15; }, 15, "DMBIN_FORMSOURCE"},
    {"dmPrintQuality", 0x400, [](DEVMODEW& d) { d.dmPrintQuality = -4; }, -4, "DMRES_HIGH"},
    {"dmColor", 0x800, [](DEVMODEW& d) { d.dmColor = 2; }, 2, "DMCOLOR_COLOR"},
    {"dmDuplex", 0x1000, [](DEVMODEW& d) { d.dmDuplex = 3; }, 3, "DMDUP_HORIZONTAL"},
    {"dmYResolution", 0x2000, [](DEVMODEW& d) { d.dmYResolution = 600; }, 600, ""},
    {"dmTTOption", 0x4000, [](DEVMODEW& d) { d.dmTTOption = 3; }, 3, "DMTT_SUBDEV"},
    {"dmCollate", 0x8000, [](DEVMODEW& d) { d.dmCollate = 1; }, 1, "DMCOLLATE_TRUE"},
    {"dmLogPixels", 0x20000, [](DEVMODEW& d) { d.dmLogPixels = 65535; }, 65535, ""},
    {"dmBitsPerPel", 0x40000, [](DEVMODEW& d) { d.dmBitsPerPel = 32; }, 32, ""},
    {"dmPelsWidth", 0x80000, [](DEVMODEW& d) { d.dmPelsWidth = 0xFFFFFFFF; }, 0xFFFFFFFF, ""},
    {"dmPelsHeight", 0x100000, [](DEVMODEW& d) { d.dmPelsHeight = 7; }, 7, ""},
    {"dmNup", 0x40, [](DEVMODEW& d) { d.dmNup = 2; }, 2, "DMNUP_ONEUP"},
    {"dmDisplayFrequency", 0x400000, [](DEVMODEW& d) { d.dmDisplayFrequency = 60; }, 60, ""},
    {"dmICMMethod", 0x800000, [](DEVMODEW& d) { d.dmICMMethod = 4; }, 4, "DMICMMETHOD_DEVICE"},
    {"dmICMIntent", 0x1000000, [](DEVMODEW& d) { d.dmICMIntent = 2; }, 2, "DMICM_CONTRAST"},
    {"dmMediaType", 0x2000000, [](DEVMODEW& d) { d.dmMediaType = 258; }, 258, "DMMEDIA_USER+2"},
    {"dmDitherType", 0x4000000, [](DEVMODEW& d) { d.dmDitherType = 10; }, 10, "DMDITHER_GRAYSCALE"},
    {"dmPanningWidth", 0x8000000, [](DEVMODEW& d) { d.dmPanningWidth = 1; }, 1, ""},
    {"dmPanningHeight", 0x10000000, [](DEVMODEW& d) { d.dmPanningHeight = 2; }, 2, ""},
};
} // namespace

TEST(DevModeFields, eachNumberIsDecodedFlaggedAndUnflagged)
{
    for (const FieldCase& fieldCase : fieldCases)
    {
        DEVMODEW devMode = emptyDevMode();
        fieldCase.set(devMode);
        for (const bool flagged : {false, true})
        {
            // All other flags are the opposite, so that only the right one counts.
            devMode.dmFields = flagged ? fieldCase.flag : ~fieldCase.flag;
            const DevModeField field = fieldOf(decodeDevMode(bytesOf(devMode)), fieldCase.name);
            EXPECT_EQ(numberOf(field), fieldCase.value) << fieldCase.name;
            EXPECT_EQ(field.symbol, fieldCase.symbol) << fieldCase.name;
            EXPECT_EQ(field.flagged, std::optional<bool>(flagged)) << fieldCase.name;
        }
    }
}

TEST(DevModeFields, theFieldsAreListedInTheOrderOfTheStructure)
{
    std::vector<std::string> names;
    for (const DevModeField& field : decodeDevMode(bytesOf(emptyDevMode())).fields)
        names.push_back(field.name);
    const std::vector<std::string> expected = {
        "dmDeviceName",   "dmSpecVersion", "dmDriverVersion", "dmOrientation",   "dmPaperSize",        "dmPaperLength",
        "dmPaperWidth",   "dmScale",       "dmCopies",        "dmDefaultSource", "dmPrintQuality",     "dmColor",
        "dmDuplex",       "dmYResolution", "dmTTOption",      "dmCollate",       "dmFormName",         "dmLogPixels",
        "dmBitsPerPel",   "dmPelsWidth",   "dmPelsHeight",    "dmNup",           "dmDisplayFrequency", "dmICMMethod",
        "dmICMIntent",    "dmMediaType",   "dmDitherType",    "dmReserved1",     "dmReserved2",        "dmPanningWidth",
        "dmPanningHeight"};
    EXPECT_EQ(names, expected);
}

TEST(DevModeFields, textsEndAtTheirTerminatorOrAtTheEndOfTheirSlot)
{
    DEVMODEW devMode = emptyDevMode();
    for (WCHAR& c : devMode.dmFormName)
        c = 'x';
    devMode.dmDeviceName[0] = 'P';
    devMode.dmDeviceName[2] = '?'; // garbage after the terminator
    devMode.dmFields = 0x10000;
    const DecodedDevMode decoded = decodeDevMode(bytesOf(devMode));
    const DevModeField device = fieldOf(decoded, "dmDeviceName");
    const DevModeField form = fieldOf(decoded, "dmFormName");
    EXPECT_EQ(std::get<OdString>(device.value), OD_T("P"));
    EXPECT_EQ(device.flagged, std::nullopt);
    EXPECT_EQ(std::get<OdString>(form.value).getLength(), 32);
    EXPECT_EQ(form.flagged, std::optional<bool>(true));
    devMode.dmFields = 0;
    EXPECT_EQ(fieldOf(decodeDevMode(bytesOf(devMode)), "dmFormName").flagged, std::optional<bool>(false));
}

TEST(DevModeFields, fieldsWithoutAFlagSaySo)
{
    DEVMODEW devMode = emptyDevMode();
    devMode.dmSpecVersion = 0x0401;
    devMode.dmDriverVersion = 65535;
    devMode.dmFields = 0xFFFFFFFF;
    const DecodedDevMode decoded = decodeDevMode(bytesOf(devMode));
    EXPECT_EQ(numberOf(fieldOf(decoded, "dmSpecVersion")), 0x0401);
    EXPECT_EQ(fieldOf(decoded, "dmSpecVersion").symbol, "DM_SPECVERSION");
    EXPECT_EQ(numberOf(fieldOf(decoded, "dmDriverVersion")), 65535);
    for (const char* name : {"dmDeviceName", "dmSpecVersion", "dmDriverVersion", "dmReserved1", "dmReserved2"})
        EXPECT_EQ(fieldOf(decoded, name).flagged, std::nullopt) << name;
}

TEST(DevModeFields, flagsAreNamedAndTheOthersKept)
{
    DEVMODEW devMode = emptyDevMode();
    devMode.dmFields = 0x1 | 0x10000 | 0xC0000000;
    const DecodedDevMode decoded = decodeDevMode(bytesOf(devMode));
    EXPECT_EQ(decoded.flags, 0xC0010001U);
    EXPECT_EQ(decoded.flagNames, (std::vector<std::string>{"DM_ORIENTATION", "DM_FORMNAME"}));
    EXPECT_EQ(decoded.unnamedFlags, 0xC0000000U);
}

TEST(DevModeFields, theBytesOfTheDriverAreKeptApart)
{
    DEVMODEW devMode = emptyDevMode();
    devMode.dmDriverExtra = 3;
    const DecodedDevMode decoded = decodeDevMode(bytesOf(devMode, {1, 2, 3, 4, 5}));
    EXPECT_EQ(decoded.problem, "");
    EXPECT_EQ(decoded.byteCount, 225U);
    EXPECT_EQ(decoded.size, 220U);
    EXPECT_EQ(decoded.driverExtra, 3U);
    EXPECT_EQ(decoded.privateBytes, (std::vector<BYTE>{1, 2, 3}));
    EXPECT_EQ(decoded.bytesBehind, 2U);
}

TEST(DevModeFields, aFieldBeyondDmSizeIsNotInTheBlockAndNotFlagged)
{
    DEVMODEW devMode = emptyDevMode();
    devMode.dmOrientation = 1;
    devMode.dmCollate = 1;
    devMode.dmFormName[0] = 'A';
    devMode.dmFields = 0xFFFFFFFF;
    for (const std::size_t size : {76U, 77U, 78U, 102U, 165U, 166U, 188U, 219U})
    {
        devMode.dmSize = static_cast<WORD>(size);
        std::vector<BYTE> bytes = bytesOf(devMode);
        bytes.resize(size);
        const DecodedDevMode decoded = decodeDevMode(bytes);
        EXPECT_EQ(decoded.problem, "") << size;
        EXPECT_EQ(decoded.fields.size(), 31U);
        const auto isThere = [&decoded](const char* name)
        {
            const DevModeField field = fieldOf(decoded, name);
            const bool there = !std::holds_alternative<std::monostate>(field.value);
            EXPECT_EQ(field.flagged.value_or(there), there) << name;
            return there;
        };
        EXPECT_EQ(isThere("dmOrientation"), size >= 78) << size;
        EXPECT_EQ(isThere("dmCollate"), size >= 102) << size;
        EXPECT_EQ(isThere("dmFormName"), size >= 166) << size;
        EXPECT_EQ(isThere("dmDisplayFrequency"), size >= 188) << size;
        EXPECT_FALSE(isThere("dmPanningHeight")) << size;
    }
}

TEST(DevModeFields, aBlockLargerThanTheStructureIsFine)
{
    DEVMODEW devMode = emptyDevMode();
    devMode.dmSize = 230;
    devMode.dmDriverExtra = 2;
    std::vector<BYTE> bytes = bytesOf(devMode);
    bytes.resize(232, 7);
    const DecodedDevMode decoded = decodeDevMode(bytes);
    EXPECT_EQ(decoded.problem, "");
    EXPECT_EQ(decoded.privateBytes, (std::vector<BYTE>{7, 7}));
}

TEST(DevModeFields, oddBlocksAreRefusedWithTheReason)
{
    EXPECT_EQ(decodeDevMode({}).problem, "no bytes");
    DEVMODEW devMode = emptyDevMode();
    const std::vector<BYTE> whole = bytesOf(devMode);
    for (std::size_t length = 1; length < whole.size(); ++length)
    {
        // In its own buffer, so that reading past its end is detected.
        const std::vector<BYTE> prefix(whole.begin(), whole.begin() + static_cast<std::ptrdiff_t>(length));
        const DecodedDevMode decoded = decodeDevMode(prefix);
        EXPECT_NE(decoded.problem, "") << length;
        EXPECT_TRUE(decoded.fields.empty()) << length;
        EXPECT_EQ(decoded.byteCount, length);
    }
    EXPECT_EQ(decodeDevMode(std::vector<BYTE>(1)).problem, "1 byte are too few for a DEVMODEW");
    EXPECT_EQ(decodeDevMode(std::vector<BYTE>(75)).problem, "75 bytes are too few for a DEVMODEW");
    EXPECT_EQ(decodeDevMode(std::vector<BYTE>(220)).problem, "dmSize 0 is too small for a DEVMODEW");

    devMode.dmSize = 75;
    EXPECT_EQ(decodeDevMode(bytesOf(devMode)).problem, "dmSize 75 is too small for a DEVMODEW");
    devMode.dmSize = 65535;
    devMode.dmDriverExtra = 65535;
    EXPECT_EQ(decodeDevMode(bytesOf(devMode)).problem,
              "dmSize 65535 and dmDriverExtra 65535 claim more than the 220 bytes there are");
    devMode.dmSize = 220;
    devMode.dmDriverExtra = 1;
    EXPECT_EQ(decodeDevMode(bytesOf(devMode)).problem,
              "dmSize 220 and dmDriverExtra 1 claim more than the 220 bytes there are");
}

TEST(DevModeFields, aMisalignedBlockIsRead)
{
    DEVMODEW devMode = emptyDevMode();
    devMode.dmDitherType = 5;
    std::vector<BYTE> bytes = bytesOf(devMode);
    bytes.insert(bytes.begin(), 0xAA);
    const DecodedDevMode decoded = decodeDevMode(std::span<const BYTE>(bytes).subspan(1));
    EXPECT_EQ(numberOf(fieldOf(decoded, "dmDitherType")), 5);
}

TEST(DevModeSymbols, namesAndTheDevicesOwnValues)
{
    EXPECT_EQ(symbolOf(symbols::paper, 1), "DMPAPER_LETTER");
    EXPECT_EQ(symbolOf(symbols::paper, 118), "DMPAPER_PENV_10_ROTATED");
    EXPECT_EQ(symbolOf(symbols::paper, 119), "");
    EXPECT_EQ(symbolOf(symbols::paper, 255), "");
    EXPECT_EQ(symbolOf(symbols::paper, 256), "DMPAPER_USER");
    EXPECT_EQ(symbolOf(symbols::paper, 300), "DMPAPER_USER+44");
    EXPECT_EQ(symbolOf(symbols::paper, -1), "");
    EXPECT_EQ(symbolOf(symbols::color, 3), "");
    EXPECT_EQ(symbolOf(symbols::quality, -1), "DMRES_DRAFT");
    EXPECT_EQ(symbolOf({}, 0), "");
}

TEST(DevModeSymbols, noValueHasTwoNamesAndTheUserValueIsLast)
{
    for (const auto& table :
         {symbols::flags, symbols::specVersion, symbols::orientation, symbols::paper, symbols::source, symbols::quality,
          symbols::color, symbols::duplex, symbols::trueType, symbols::collate, symbols::nup, symbols::icmMethod,
          symbols::icmIntent, symbols::mediaType, symbols::ditherType})
    {
        ASSERT_FALSE(table.empty());
        std::set<std::int64_t> values;
        for (const Symbol& symbol : table)
        {
            EXPECT_TRUE(values.insert(symbol.value).second) << symbol.name;
            const bool isLast = &symbol == &table.back();
            EXPECT_TRUE(isLast || !std::string_view(symbol.name).ends_with("_USER")) << symbol.name;
        }
    }
}
