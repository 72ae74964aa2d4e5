#include "spooler/DevModeView.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstring>
#include <memory>
#include <utility>

namespace
{
// A block of length bytes in memory of exactly that length, so that a sanitizer detects an access one byte too far.
struct ExactBytes
{
    explicit ExactBytes(std::size_t count, BYTE value = 0) : length(count), bytes(new BYTE[count])
    {
        std::fill_n(bytes.get(), count, value);
    }

    template <class T>
    ExactBytes& put(std::size_t offset, T value)
    {
        std::memcpy(bytes.get() + offset, &value, sizeof value);
        return *this;
    }

    std::span<const BYTE> span() const { return {bytes.get(), length}; }

    std::size_t length;
    std::unique_ptr<BYTE[]> bytes;
};

ExactBytes block(std::size_t length, WORD size, WORD extra, BYTE fill = 0)
{
    ExactBytes bytes(length, fill);
    bytes.put(offsetof(DEVMODEW, dmSize), size).put(offsetof(DEVMODEW, dmDriverExtra), extra);
    return bytes;
}

constexpr DWORD everyFlag = 0xFFFFFFFF;
} // namespace

TEST(DevModeView, aDefaultOneViewsNothing)
{
    const DevModeView view;
    EXPECT_FALSE(view);
    EXPECT_EQ(view.size(), 0U);
    EXPECT_TRUE(view.bytes().empty());
    EXPECT_TRUE(view.privateBytes().empty());
    EXPECT_FALSE(view.has(everyFlag));
}

TEST(DevModeView, lessThanTheFieldsMaskIsNoBlock)
{
    EXPECT_FALSE(DevModeView(std::span<const BYTE>()));
    for (std::size_t length = 1; length < 76; ++length)
        EXPECT_FALSE(DevModeView(ExactBytes(length, 0x4C).span())) << length;
    EXPECT_TRUE(DevModeView(block(76, 76, 0).span()));
}

TEST(DevModeView, aPublicPartBelowTheFieldsMaskIsNoBlock)
{
    for (const WORD size : std::initializer_list<WORD>{0, 1, 40, 75})
        EXPECT_FALSE(DevModeView(block(300, size, 0).span())) << size;
    EXPECT_TRUE(DevModeView(block(300, 76, 0).span()));
}

TEST(DevModeView, aBlockThatClaimsMoreThanThereIsIsRefused)
{
    EXPECT_TRUE(DevModeView(block(228, 220, 8).span()));
    EXPECT_FALSE(DevModeView(block(227, 220, 8).span()));
    EXPECT_FALSE(DevModeView(block(219, 220, 0).span()));
    EXPECT_FALSE(DevModeView(block(228, 220, 65535).span()));
    EXPECT_FALSE(DevModeView(block(228, 65535, 65535).span()));
}

TEST(DevModeView, aRefusedBlockReadsAsNothing)
{
    const ExactBytes bytes = block(228, 220, 9, 0xFF);
    const DevModeView view(bytes.span());
    EXPECT_EQ(view.fields().dmDeviceName[0], 0);
    EXPECT_EQ(view.rawFlags(), 0U);
    EXPECT_FALSE(view.has(everyFlag));
    EXPECT_TRUE(view.privateBytes().empty());
}

TEST(DevModeView, theLargestSizesAreRead)
{
    const ExactBytes bytes = block(131070, 65535, 65535, 0xAB);
    const DevModeView view(bytes.span());
    ASSERT_TRUE(view);
    EXPECT_EQ(view.bytes().size(), 131070U);
    ASSERT_EQ(view.privateBytes().size(), 65535U);
    EXPECT_EQ(view.privateBytes().data(), bytes.bytes.get() + 65535);
}

TEST(DevModeView, privateBytesFollowDmSizeAndWhatFollowsThemIsNoPart)
{
    ExactBytes bytes = block(100, 78, 3);
    bytes.put(78, BYTE{1}).put(79, BYTE{2}).put(80, BYTE{3}).put(81, BYTE{4});
    const DevModeView view(bytes.span());
    ASSERT_TRUE(view);
    EXPECT_EQ(view.bytes().size(), 81U);
    ASSERT_EQ(view.privateBytes().size(), 3U);
    EXPECT_EQ(view.privateBytes()[0], 1);
    EXPECT_EQ(view.privateBytes()[2], 3);
}

// The 16 bits after the form name have no flag; they exist if the public part extends past them.
TEST(DevModeView, theResolutionBehindTheFormNameIsReadWhenItIsWhole)
{
    static_assert(offsetof(DEVMODEW, dmLogPixels) == 166);
    EXPECT_EQ(DevModeView(block(167, 167, 0, 0xAB).span()).fields().dmLogPixels, 0);
    EXPECT_EQ(DevModeView(block(168, 168, 0, 0xAB).span()).fields().dmLogPixels, 0xABAB);
}

TEST(DevModeView, aFieldBeyondDmSizeReadsAsZeroAndItsFlagIsIgnored)
{
    struct Case
    {
        DWORD flag;
        std::size_t begin;
        std::size_t end;
    };
#define GARM_CASE(flag, member)                                                                                        \
    Case                                                                                                               \
    {                                                                                                                  \
        flag, offsetof(DEVMODEW, member), offsetof(DEVMODEW, member) + sizeof(DEVMODEW::member)                        \
    }
    const Case cases[] = {
        GARM_CASE(DM_ORIENTATION, dmOrientation),
        GARM_CASE(DM_PAPERSIZE, dmPaperSize),
        GARM_CASE(DM_PAPERLENGTH, dmPaperLength),
        GARM_CASE(DM_PAPERWIDTH, dmPaperWidth),
        GARM_CASE(DM_SCALE, dmScale),
        GARM_CASE(DM_COPIES, dmCopies),
        GARM_CASE(DM_DEFAULTSOURCE, dmDefaultSource),
        GARM_CASE(DM_PRINTQUALITY, dmPrintQuality),
        GARM_CASE(DM_COLOR, dmColor),
        GARM_CASE(DM_DUPLEX, dmDuplex),
        GARM_CASE(DM_YRESOLUTION, dmYResolution),
        GARM_CASE(DM_TTOPTION, dmTTOption),
        GARM_CASE(DM_COLLATE, dmCollate),
        GARM_CASE(DM_FORMNAME, dmFormName),
        GARM_CASE(DM_ICMMETHOD, dmICMMethod),
        GARM_CASE(DM_ICMINTENT, dmICMIntent),
        GARM_CASE(DM_MEDIATYPE, dmMediaType),
        GARM_CASE(DM_DITHERTYPE, dmDitherType),
    };
#undef GARM_CASE
    for (WORD size = 76; size <= 224; ++size)
    {
        const ExactBytes bytes = [size]
        {
            ExactBytes all = block(size, size, 0, 0x11);
            all.put(offsetof(DEVMODEW, dmFields), everyFlag);
            return all;
        }();
        const DevModeView view(bytes.span());
        ASSERT_TRUE(view) << size;
        EXPECT_EQ(view.rawFlags(), everyFlag);
        const BYTE* const fields = reinterpret_cast<const BYTE*>(&view.fields());
        for (const Case& field : cases)
        {
            const bool present = field.end <= size;
            EXPECT_EQ(view.has(field.flag), present) << size << " flag " << field.flag;
            const BYTE expected = present ? 0x11 : 0;
            EXPECT_TRUE(std::all_of(fields + field.begin, fields + field.end,
                                    [expected](BYTE byte) { return byte == expected; }))
                << size << " flag " << field.flag;
        }
    }
}

TEST(DevModeView, aMisalignedBlockIsCopiedBeforeItIsRead)
{
    for (std::size_t shift = 0; shift < 8; ++shift)
    {
        const ExactBytes source = []
        {
            ExactBytes bytes = block(228, 220, 8);
            bytes.put(offsetof(DEVMODEW, dmFields), DWORD{DM_DITHERTYPE});
            bytes.put(offsetof(DEVMODEW, dmDitherType), DWORD{0x12345678});
            return bytes;
        }();
        ExactBytes shifted(228 + shift);
        std::copy_n(source.bytes.get(), 228, shifted.bytes.get() + shift);
        const DevModeView view(shifted.span().subspan(shift));
        ASSERT_TRUE(view);
        EXPECT_TRUE(view.has(DM_DITHERTYPE));
        EXPECT_EQ(view.fields().dmDitherType, 0x12345678U);
    }
}

TEST(DevModeView, theBlocksOwnClaimMeasuresABlockWithoutLength)
{
    const ExactBytes bytes = block(228, 220, 8);
    DevModeBlock aligned = DevModeBlock::copyOf(DevModeView(bytes.span()));
    EXPECT_EQ(claimedBytes(*aligned.get()).size(), 228U);
    aligned.get()->dmSize = 65535;
    aligned.get()->dmDriverExtra = 65535;
    EXPECT_EQ(claimedBytes(*aligned.get()).size(), 131070U);
    aligned.get()->dmSize = 40;
    aligned.get()->dmDriverExtra = 2;
    EXPECT_FALSE(DevModeView(claimedBytes(*aligned.get())));
}

TEST(DevModeBlock, noneHasNoAddressAndNoView)
{
    DevModeBlock none;
    EXPECT_TRUE(none.isNull());
    EXPECT_FALSE(none);
    EXPECT_TRUE(DevModeBlock::toFill(0));
    EXPECT_EQ(none.get(), nullptr);
    EXPECT_EQ(std::as_const(none).get(), nullptr);
    EXPECT_FALSE(none.view());
    EXPECT_TRUE(DevModeBlock::copyOf(DevModeView()).isNull());
}

TEST(DevModeBlock, aBlockThatNobodyFilledHasNoView)
{
    const DevModeBlock block = DevModeBlock::toFill(228);
    ASSERT_NE(block.get(), nullptr);
    EXPECT_EQ(block.get()->dmSize, 0);
    EXPECT_FALSE(block.view());
}

TEST(DevModeBlock, hasRoomForADriverThatWritesTooMuch)
{
    for (const std::size_t size : {std::size_t{0}, std::size_t{1}, std::size_t{220}, std::size_t{65535 * 2}})
    {
        DevModeBlock block = DevModeBlock::toFill(size);
        const std::size_t room = 2 * std::max<std::size_t>(size, 220) + 8192;
        std::memset(static_cast<void*>(block.get()), 0, room);
        block.get()->dmSize = static_cast<WORD>(std::min<std::size_t>(room, 65535));
        EXPECT_TRUE(block.view()) << size;
    }
}

TEST(DevModeBlock, aBlockThatClaimsMoreThanItsRoomHasNoView)
{
    DevModeBlock block = DevModeBlock::toFill(220);
    block.get()->dmSize = 220;
    block.get()->dmDriverExtra = 8192 + 220;
    EXPECT_TRUE(block.view());
    block.get()->dmDriverExtra = 8192 + 221;
    EXPECT_FALSE(block.view());
}

TEST(DevModeBlock, aCopyHoldsTheSameBytes)
{
    ExactBytes bytes = block(101, 77, 5, 0x5A);
    bytes.put(offsetof(DEVMODEW, dmSize), WORD{77}).put(offsetof(DEVMODEW, dmDriverExtra), WORD{5});
    const DevModeBlock copy = DevModeBlock::copyOf(DevModeView(bytes.span()));
    ASSERT_FALSE(copy.isNull());
    EXPECT_TRUE(std::ranges::equal(copy.view().bytes(), bytes.span().first(82)));
}
