// Whatever a driver returns and a file contains: no read or write out of bounds, and blocks are as long as they claim.
// The seeds are fixed, so that failures can be reproduced.

#include "tests/unit/devmode/DevModeFixture.h"

#include <algorithm>
#include <bit>
#include <cstring>
#include <limits>
#include <memory>
#include <random>

namespace
{
class DevModeProperties : public DevModeTest
{
protected:
    template <class T, std::size_t count>
    const T& oneOf(const T (&items)[count])
    {
        return items[pick(count)];
    }

    // 0 to count - 1.
    std::size_t pick(std::size_t count) { return std::uniform_int_distribution<std::size_t>(0, count - 1)(m_random); }

    std::uint32_t bits() { return static_cast<std::uint32_t>(m_random()); }

    OdString anyText(std::size_t longest)
    {
        static constexpr OdChar letters[] = {'U', 's', 'e', 'r', '3', '0', '-', '_', ' ', 'A', '4', 0xFFFF, 0xD800};
        std::basic_string<OdChar> text;
        for (std::size_t length = pick(longest + 1); length > 0; --length)
            text += oneOf(letters);
        return OdString(std::move(text));
    }

    OdString anyNumberText()
    {
        static const OdChar* const texts[] = {
            OD_T("0"),     OD_T("8"),  OD_T("76"),         OD_T("220"),        OD_T("65535"),
            OD_T("65536"), OD_T("-1"), OD_T("2147483648"), OD_T("4294967295"), OD_T("99999999999999999999"),
            OD_T(" +7x"),  OD_T("")};
        return pick(3) == 0 ? decimalFromNumber(static_cast<std::uint32_t>(pick(400))) : OdString(oneOf(texts));
    }

    std::int32_t anyInt()
    {
        static constexpr std::int32_t ints[] = {0,
                                                1,
                                                2,
                                                -1,
                                                -4,
                                                100,
                                                32768,
                                                65535,
                                                65536,
                                                std::numeric_limits<std::int32_t>::max(),
                                                std::numeric_limits<std::int32_t>::min()};
        return pick(3) == 0 ? static_cast<std::int32_t>(bits()) : oneOf(ints);
    }

    double anyDouble()
    {
        static constexpr double doubles[] = {0.0,
                                             -1.0,
                                             4.2,
                                             297.0,
                                             3276.8,
                                             1e30,
                                             -1e300,
                                             std::numeric_limits<double>::infinity(),
                                             std::numeric_limits<double>::quiet_NaN()};
        return pick(3) == 0 ? std::bit_cast<double>(m_random()) : oneOf(doubles);
    }

    Configuration anyConfiguration()
    {
        static const OdChar* const names[] = {OD_T("A4"),     OD_T("a3"),    OD_T("User300"),
                                              OD_T("User42"), longPaperName, OD_T("")};
        Configuration any = ownCopy(settled);
        auto& numbers = any.m_custom->m_numbers;
        for (const OdChar* key : {OD_T("dmSize"), OD_T("dmDriverExtra"), OD_T("dmSpecVersion"), OD_T("dmMediaType"),
                                  OD_T("dmDefaultSource"), OD_T("dmTTOption"), OD_T("dmPaperSize")})
        {
            if (pick(3) == 0)
                numbers[key] = anyNumberText();
            else if (pick(8) == 0)
                numbers.erase(key);
        }
        // Mostly as many characters as the stored size requires, or hardly any configuration would have a block.
        std::int32_t extra = 0;
        if (any.m_custom->getNumber(OD_T("dmDriverExtra"), extra) && extra >= 0 && extra <= 70000 && pick(8) != 0)
            any.m_custom->m_binaries[OD_T("RawPrivateDeviceData")] =
                OdString(std::basic_string<OdChar>(2 * static_cast<std::size_t>(extra), pick(2) ? 'a' : '!'));
        any.m_media.m_size.m_name = pick(3) == 0 ? anyText(70) : OdString(oneOf(names));
        any.m_media.m_dm_orientation = anyInt();
        any.m_media.m_number_of_copies = anyInt();
        any.m_media.m_size.m_dm_scale = anyInt();
        any.m_media.m_actual_printable_bounds_llx = anyDouble();
        any.m_media.m_size.m_media_description.m_media_bounds.m_urx = anyDouble();
        any.m_media.m_size.m_media_description.m_media_bounds.m_ury = anyDouble();
        any.m_media.m_destination->m_collating_type = anyInt();
        any.m_res_color_mem.m_dm_color = anyInt();
        any.m_res_color_mem.m_icm_method = anyInt();
        any.m_res_color_mem.m_icm_intent = anyInt();
        any.m_res_color_mem.m_resolution.m_name = anyText(12);
        any.m_res_color_mem.m_resolution.m_phys_resolution_x = anyDouble();
        any.m_res_color_mem.m_resolution.m_phys_resolution_y = anyDouble();
        any.m_meta.m_dm_driver_version = anyInt();
        any.m_devModeFields = pick(2) ? bits() : 0;
        any.m_ditherType = pick(2) ? bits() : 1;
        any.m_duplex = static_cast<std::uint16_t>(bits());
        return any;
    }

    std::mt19937_64 m_random{20260101};
};
} // namespace

TEST_F(DevModeProperties, anyBytesAreReadWithinTheirLength)
{
    int valid = 0;
    for (int i = 0; i < 20000; ++i)
    {
        const std::size_t length = pick(600);
        const auto bytes = std::make_unique<BYTE[]>(length);
        std::generate_n(bytes.get(), length, [this] { return static_cast<BYTE>(bits()); });
        // Plausible sizes, or nearly.
        if (length >= smallestDevMode && pick(2))
        {
            const WORD size = static_cast<WORD>(pick(300));
            const WORD extra = static_cast<WORD>(pick(300));
            std::memcpy(bytes.get() + offsetof(DEVMODEW, dmSize), &size, sizeof size);
            std::memcpy(bytes.get() + offsetof(DEVMODEW, dmDriverExtra), &extra, sizeof extra);
        }
        const std::span<const BYTE> all(bytes.get(), length);
        const DevModeView view(all);
        if (!view)
            continue;
        ++valid;
        EXPECT_GE(view.size(), smallestDevMode);
        EXPECT_EQ(view.bytes().data(), all.data());
        EXPECT_LE(view.bytes().size(), length);
        EXPECT_EQ(view.bytes().size(), view.size() + view.driverExtra());
        EXPECT_EQ(view.privateBytes().size(), view.driverExtra());
        EXPECT_TRUE(std::ranges::equal(DevModeBlock::copyOf(view).view().bytes(), view.bytes()));
    }
    EXPECT_GT(valid, 1000);
}

TEST_F(DevModeProperties, anyBlockIsTakenOverOrRefused)
{
    int taken = 0;
    for (int i = 0; i < 1200; ++i)
    {
        Configuration each = ownCopy(settled);
        Block block = driversBlock();
        std::vector<BYTE> bytes = block.bytes();
        // Everything but the sizes is random.
        const std::size_t changes = 1 + pick(40);
        for (std::size_t k = 0; k < changes; ++k)
            bytes[pick(bytes.size())] = static_cast<BYTE>(bits());
        if (pick(4) != 0)
        {
            const WORD sizes[] = {220, 8};
            std::memcpy(bytes.data() + offsetof(DEVMODEW, dmSize), sizes, sizeof sizes);
        }
        bytes.resize(bytes.size() - (pick(8) == 0 ? 1 + pick(20) : 0));
        const auto exact = std::make_unique<BYTE[]>(bytes.size());
        std::ranges::copy(bytes, exact.get());
        bool modified = false;
        if (each.updateFromDevMode(DevModeView(std::span<const BYTE>(exact.get(), bytes.size())), plotter, modified))
            ++taken;
        EXPECT_EQ(m_room.openHandles(), 0);
        EXPECT_EQ(m_room.openContexts(), 0);
        m_room.forgetCalls();
    }
    EXPECT_GT(taken, 100);
}

TEST_F(DevModeProperties, anyConfigurationGivesABlockThatKeepsItsWordOrNone)
{
    int blocks = 0;
    for (int i = 0; i < 1200; ++i)
    {
        const Configuration any = anyConfiguration();
        const OdArray<unsigned char> bytes = any.toDevMode();
        m_room.forgetCalls();
        if (bytes.isEmpty())
            continue;
        ++blocks;
        const DevModeView view(std::span(bytes.begin(), bytes.end()));
        ASSERT_TRUE(view);
        EXPECT_EQ(view.bytes().size(), bytes.size());
        EXPECT_EQ(devModeFlagsWithin(view.rawFlags(), view.size()), view.rawFlags());
    }
    EXPECT_GT(blocks, 300);
}

// An import normalises some values. That may take two more rounds: a resolution of 65535 becomes a print quality, which
// loses its vertical resolution only in the next round.
TEST_F(DevModeProperties, anyConfigurationSettles)
{
    int settledOnes = 0;
    for (int i = 0; i < 400; ++i)
    {
        Configuration any = anyConfiguration();
        Outcome outcome;
        for (int round = 0; round < 4; ++round)
        {
            const OdArray<unsigned char> bytes = any.toDevMode();
            outcome.succeeded =
                any.updateFromDevMode(DevModeView(std::span(bytes.begin(), bytes.end())), plotter, outcome.modified);
            m_room.forgetCalls();
            if (!outcome.succeeded)
                break;
        }
        if (!outcome.succeeded)
            continue;
        ++settledOnes;
        EXPECT_FALSE(outcome.modified) << "configuration " << i;
    }
    EXPECT_GT(settledOnes, 100);
}
