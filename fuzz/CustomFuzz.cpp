// Any block as a configuration's custom data. The input is the block's text as it is in a plain file.

#include "GarmPC3Editor/GmCustomNode.h"
#include "GarmPC3Editor/Model/Numbers.h"
#include "GarmPC3Editor/Printing/StoredDevMode.h"
#include "fuzz/FuzzTarget.h"
#include "tests/unit/pia/RoundTrip.h"
#include "tests/unit/pia/TreeTools.h"

#include <gtest/gtest.h>

namespace
{
bool operator==(const GmCustomNode& a, const GmCustomNode& b)
{
    return a.m_strings == b.m_strings && a.m_binaries == b.m_binaries && a.m_numbers == b.m_numbers &&
           a.m_flags == b.m_flags;
}

// What was parsed, written and parsed again is equal and is written identically, through a file too.
void expectKept(const GmCustomNode& node)
{
    CPBlock written(OD_T(""));
    ASSERT_TRUE(node.write(written));
    EXPECT_EQ(written.size(),
              node.m_strings.size() + node.m_binaries.size() + node.m_numbers.size() + node.m_flags.size());
    GmCustomNode again;
    ASSERT_TRUE(again.parse(written));
    EXPECT_TRUE(again == node);
    CPBlock writtenAgain(OD_T(""));
    ASSERT_TRUE(again.write(writtenAgain));
    EXPECT_EQ(describe(writtenAgain), describe(written));
    expectRoundTrip(written);
}

// A getter that fails leaves its output alone; a number that was set is the one that is returned.
void expectNumbersKept(GmCustomNode node)
{
    for (const auto& [key, text] : std::map(node.m_numbers))
    {
        std::int32_t value = -77;
        if (!node.getNumber(key, value))
        {
            EXPECT_EQ(value, -77);
        }
        const std::uint32_t stored = static_cast<std::uint32_t>(value) ^ 0x80000001U;
        EXPECT_TRUE(node.setNumber(stored, key, false));
        std::int32_t back = 0;
        EXPECT_TRUE(node.getNumber(key, back));
        EXPECT_EQ(static_cast<std::uint32_t>(back), stored);
        const OdString longer = key + OD_T("+");
        if (!node.m_numbers.contains(longer))
        {
            EXPECT_FALSE(node.setNumber(1, longer, false));
        }
    }
}

// The sizes are possible for a block, or there are none; there are as many private bytes as were asked for.
void expectSizesThatCanBe(GmCustomNode node)
{
    storedDevMode::Sizes sizes{1, 1};
    Fault fault;
    if (!storedDevMode::readSizes(node, sizes, fault))
    {
        EXPECT_EQ(sizes.size, 1U);
        EXPECT_EQ(sizes.driverExtra, 1U);
        return;
    }
    EXPECT_GE(sizes.size, 76U);
    EXPECT_LE(sizes.size, 65535U);
    EXPECT_LE(sizes.driverExtra, 65535U);
    OdString text;
    if (!storedDevMode::readPrivateText(node, sizes.driverExtra, text, fault))
        return;
    EXPECT_EQ(text.view().size(), 2 * sizes.driverExtra);
    std::vector<unsigned char> bytes(sizes.driverExtra);
    bytesFromHex(text, bytes);
    // After one conversion to bytes and back the digits no longer change.
    const OdString settled = hexFromBytes(bytes);
    EXPECT_TRUE(node.setRawData(settled, false));
    std::vector<unsigned char> again(sizes.driverExtra);
    bytesFromHex(settled, again);
    EXPECT_EQ(again, bytes);
}
} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    CPIAParser parser;
    if (!parser.parse(plainFile({reinterpret_cast<const char*>(data), size})))
        return 0;
    GmCustomNode node;
    const bool good = node.parse(*parser.root());
    // Of a bad block the items before the bad one are there, and as valid as those of a good one.
    expectKept(node);
    expectNumbersKept(node);
    expectSizesThatCanBe(node);
    if (good)
    {
        // Parsing into existing data replaces items with the same key.
        GmCustomNode twice = node;
        EXPECT_TRUE(twice.parse(*parser.root()));
        EXPECT_TRUE(twice == node);
    }
    // The module's own binary item is upper case, whatever the file had.
    OdString raw;
    if (node.getRawData(raw))
        for (const OdChar c : raw.view())
        {
            EXPECT_FALSE(c >= 'a' && c <= 'f');
        }
    return 0;
}
