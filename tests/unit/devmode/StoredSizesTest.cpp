// Sizes in a file may be anything: either a block is built and read within them, or there is none.

#include "GarmPC3Editor/Printing/StoredDevMode.h"
#include "tests/unit/devmode/DevModeFixture.h"

#include <algorithm>
#include <cstring>

namespace
{
class StoredSizes : public DevModeTest
{
protected:
    void store(const OdChar* size, const OdChar* extra)
    {
        cfg.m_custom->m_numbers[OD_T("dmSize")] = size;
        cfg.m_custom->m_numbers[OD_T("dmDriverExtra")] = extra;
    }

    // The configuration of the tests with every public field set and flagged.
    void setEverything()
    {
        cfg.m_custom->m_numbers[OD_T("dmMediaType")] = OD_T("3");
        cfg.m_res_color_mem.m_icm_method = 2;
        cfg.m_res_color_mem.m_icm_intent = 3;
        cfg.m_media.m_size.m_dm_scale = 50;
        cfg.m_ditherType = 5;
        cfg.m_duplex = 2;
    }
};

DWORD fieldsOf(const std::vector<BYTE>& bytes)
{
    DWORD flags = 0;
    std::memcpy(&flags, bytes.data() + offsetof(DEVMODEW, dmFields), sizeof flags);
    return flags;
}

std::vector<BYTE> bytesOf(const GmPlotCfg3& configuration)
{
    const OdArray<unsigned char> bytes = configuration.toDevMode();
    return {bytes.begin(), bytes.end()};
}

const std::vector<BYTE> privateBytes = {1, 2, 3, 4, 5, 6, 7, 0xF8};
} // namespace

TEST_F(StoredSizes, aPublicPartThatCannotHoldTheFlagsGivesNoBlock)
{
    for (const OdChar* size : {OD_T("0"), OD_T("1"), OD_T("40"), OD_T("75")})
    {
        store(size, OD_T("8"));
        EXPECT_TRUE(bytesOf(cfg).empty()) << OdString(size);
    }
}

TEST_F(StoredSizes, aPublicPartThatItsOwnFieldCannotTellGivesNoBlock)
{
    for (const OdChar* size : {OD_T("65536"), OD_T("131072"), OD_T("2147483647"), OD_T("2147483648"),
                               OD_T("4294967295"), OD_T("4294967335")})
    {
        store(size, OD_T("8"));
        EXPECT_TRUE(bytesOf(cfg).empty()) << OdString(size);
    }
}

TEST_F(StoredSizes, aPrivatePartThatItsOwnFieldCannotTellGivesNoBlock)
{
    for (const OdChar* extra : {OD_T("65536"), OD_T("2147483647"), OD_T("2147483648"), OD_T("4294967295")})
    {
        store(OD_T("220"), extra);
        EXPECT_TRUE(bytesOf(cfg).empty()) << OdString(extra);
    }
    // Even if the text has the matching length.
    store(OD_T("220"), OD_T("65536"));
    cfg.m_custom->m_binaries[OD_T("RawPrivateDeviceData")] = OdString(std::basic_string<OdChar>(131072, '0'));
    EXPECT_TRUE(bytesOf(cfg).empty());
}

TEST_F(StoredSizes, sizesThatCannotBeAreToldAndNotHandedOut)
{
    const auto fails = [this](const OdChar* size, const OdChar* extra)
    {
        store(size, extra);
        storedDevMode::Sizes sizes{7, 7};
        Fault fault;
        return !storedDevMode::readSizes(*cfg.m_custom, sizes, fault) && sizes.size == 7 && sizes.driverExtra == 7;
    };
    EXPECT_TRUE(fails(OD_T("75"), OD_T("8")));
    EXPECT_TRUE(fails(OD_T("65536"), OD_T("8")));
    EXPECT_TRUE(fails(OD_T("220"), OD_T("65536")));
    EXPECT_TRUE(fails(OD_T("-1"), OD_T("8")));
    EXPECT_TRUE(fails(OD_T("220"), OD_T("-1")));
    EXPECT_TRUE(fails(OD_T(""), OD_T("8")));
    EXPECT_TRUE(fails(OD_T("220"), OD_T("")));
    EXPECT_FALSE(fails(OD_T("76"), OD_T("0")));
    EXPECT_FALSE(fails(OD_T("65535"), OD_T("65535")));
}

// 32 bits of a number are kept, as for every number in the file.
TEST_F(StoredSizes, aSizeIsTakenModuloTwoToThe32)
{
    store(OD_T("4294967516"), OD_T("4294967304"));
    EXPECT_EQ(bytesOf(cfg).size(), 228U);
}

TEST_F(StoredSizes, everyOtherPublicPartIsFilledAsFarAsItGoesWithThePrivateBytesBehindIt)
{
    setEverything();
    const std::vector<BYTE> whole = bytesOf(cfg);
    ASSERT_EQ(whole.size(), 228U);

    for (const std::size_t size :
         {76U, 77U, 78U, 101U, 102U, 156U, 165U, 166U, 188U, 192U, 204U, 219U, 220U, 221U, 300U, 65535U})
    {
        store(decimalFromNumber(static_cast<std::uint32_t>(size)).c_str(), OD_T("8"));
        const std::vector<BYTE> bytes = bytesOf(cfg);
        ASSERT_EQ(bytes.size(), size + 8) << size;
        EXPECT_TRUE(std::ranges::equal(std::span(bytes).last(8), privateBytes)) << size;

        // Except for the sizes and flags it is the same block, cut off or padded with zeros.
        const std::size_t common = std::min<std::size_t>(size, 220);
        EXPECT_TRUE(std::equal(bytes.begin(), bytes.begin() + offsetof(DEVMODEW, dmSize), whole.begin()));
        EXPECT_TRUE(
            std::equal(bytes.begin() + 76, bytes.begin() + static_cast<std::ptrdiff_t>(common), whole.begin() + 76))
            << size;
        EXPECT_TRUE(std::all_of(bytes.begin() + static_cast<std::ptrdiff_t>(common), bytes.end() - 8,
                                [](BYTE byte) { return byte == 0; }))
            << size;
        EXPECT_EQ(DevModeView(bytes).size(), size);
        EXPECT_EQ(DevModeView(bytes).driverExtra(), 8U);
    }
}

TEST_F(StoredSizes, theFlagsOfFieldsThatDoNotFitAreDropped)
{
    setEverything();
    struct Case
    {
        const OdChar* size;
        DWORD kept;
    };
    constexpr DWORD upToDuplex = DM_ORIENTATION | DM_PAPERSIZE | DM_SCALE | DM_COPIES | DM_DEFAULTSOURCE |
                                 DM_PRINTQUALITY | DM_COLOR | DM_DUPLEX;
    constexpr DWORD upToCollate = upToDuplex | DM_YRESOLUTION | DM_TTOPTION | DM_COLLATE;
    constexpr DWORD upToForm = upToCollate | DM_FORMNAME;
    constexpr DWORD all = upToForm | DM_ICMMETHOD | DM_ICMINTENT | DM_MEDIATYPE | DM_DITHERTYPE;
    for (const Case& part :
         {Case{OD_T("76"), 0}, Case{OD_T("77"), 0}, Case{OD_T("78"), DM_ORIENTATION}, Case{OD_T("96"), upToDuplex},
          Case{OD_T("97"), upToDuplex}, Case{OD_T("156"), upToCollate}, Case{OD_T("165"), upToCollate},
          Case{OD_T("166"), upToForm}, Case{OD_T("188"), upToForm}, Case{OD_T("191"), upToForm},
          Case{OD_T("192"), upToForm | DM_ICMMETHOD}, Case{OD_T("203"), all & ~DWORD{DM_DITHERTYPE}},
          Case{OD_T("204"), all}, Case{OD_T("300"), all}})
    {
        store(part.size, OD_T("8"));
        const std::vector<BYTE> bytes = bytesOf(cfg);
        ASSERT_FALSE(bytes.empty());
        EXPECT_EQ(fieldsOf(bytes), part.kept) << OdString(part.size);
    }
}

TEST_F(StoredSizes, theLargestBlockIsBuiltAndTakenOver)
{
    store(OD_T("65535"), OD_T("65535"));
    std::basic_string<OdChar> text;
    for (std::size_t i = 0; i < 65535; ++i)
        text += OD_T("A5");
    cfg.m_custom->m_binaries[OD_T("RawPrivateDeviceData")] = OdString(text);
    const std::vector<BYTE> bytes = bytesOf(cfg);
    ASSERT_EQ(bytes.size(), 131070U);
    EXPECT_TRUE(std::all_of(bytes.begin() + 65535, bytes.end(), [](BYTE byte) { return byte == 0xA5; }));

    bool modified = false;
    EXPECT_TRUE(cfg.updateFromDevMode(DevModeView(bytes), plotter, modified));
    EXPECT_EQ(cfg.m_custom->m_binaries[OD_T("RawPrivateDeviceData")], OdString(text));
}

TEST_F(StoredSizes, aBlockWithoutFieldsBehindItsFlagsBringsZerosAndNoNumbers)
{
    settled.m_custom->m_numbers[OD_T("dmSize")] = OD_T("76");
    Block block = driversBlock();
    block.fields.dmSize = 76;
    block.fields.dmFields = 0xFFFFFFFF;
    EXPECT_EQ(takeOver(settled, block), (Outcome{true, true}));
    EXPECT_EQ(settled.m_media.m_size.m_name, OD_T(""));
    EXPECT_EQ(settled.m_media.m_dm_orientation, 0);
    EXPECT_EQ(settled.m_media.m_number_of_copies, 0);
    EXPECT_EQ(settled.m_media.m_size.m_dm_scale, 0);
    EXPECT_EQ(settled.m_res_color_mem.m_dm_color, 0);
    EXPECT_EQ(settled.m_res_color_mem.m_resolution.m_phys_resolution_x, 0.0);
    EXPECT_EQ(settled.m_ditherType, 0U);
    EXPECT_EQ(settled.m_duplex, 0);
    EXPECT_EQ(settled.m_custom->m_numbers[OD_T("dmSpecVersion")], OD_T("1025"));
    EXPECT_EQ(settled.m_custom->m_numbers[OD_T("dmDefaultSource")], OD_T("7")) << "its flag is ignored";
    EXPECT_FALSE(settled.m_custom->m_numbers.contains(OD_T("dmMediaType")));
    EXPECT_EQ(settled.m_devModeFields, 0xFFFFFFFFU) << "remembered as they stand";
}

// The private bytes follow immediately; reading a whole structure would take them for fields.
TEST_F(StoredSizes, privateBytesAreNeverReadAsFields)
{
    settled.m_custom->m_numbers[OD_T("dmSize")] = OD_T("156");
    settled.m_custom->m_numbers[OD_T("dmDriverExtra")] = OD_T("64");
    settled.m_custom->m_binaries[OD_T("RawPrivateDeviceData")] = OdString(std::basic_string<OdChar>(128, 'F'));
    Block block = driversBlock();
    block.fields.dmSize = 156;
    block.fields.dmFields |= DM_ICMMETHOD | DM_ICMINTENT | DM_MEDIATYPE | DM_DITHERTYPE;
    block.privateBytes.assign(64, 0xFF);
    EXPECT_TRUE(takeOver(settled, block).succeeded);
    EXPECT_EQ(settled.m_res_color_mem.m_icm_method, 0);
    EXPECT_EQ(settled.m_res_color_mem.m_icm_intent, 0);
    EXPECT_EQ(settled.m_ditherType, 0U);
    EXPECT_FALSE(settled.m_custom->m_numbers.contains(OD_T("dmMediaType")));
    EXPECT_EQ(settled.m_media.m_size.m_name, OD_T("A4")) << "by its code: the form name is cut off";
}

TEST_F(StoredSizes, withoutADitherFieldEveryColourIsUndithered)
{
    settled.m_custom->m_numbers[OD_T("dmSize")] = OD_T("188");
    settled.m_res_color_mem.m_num_undithered_colors = 77;
    Block block = driversBlock();
    block.fields.dmSize = 188;
    block.fields.dmFields |= DM_DITHERTYPE;
    EXPECT_TRUE(takeOver(settled, block).succeeded);
    EXPECT_EQ(settled.m_res_color_mem.m_num_undithered_colors, settled.m_res_color_mem.m_num_colors);
}

// The driver may read a whole structure and more, whatever the block's size; it gets room for that.
TEST_F(StoredSizes, theDriverGetsRoomBehindASmallBlock)
{
    settled.m_custom->m_numbers[OD_T("dmSize")] = OD_T("76");
    Block block = driversBlock();
    block.fields.dmSize = 76;
    EXPECT_TRUE(takeOver(settled, block).succeeded);
    EXPECT_EQ(lastContext().devMode, block.bytes());
}
