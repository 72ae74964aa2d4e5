#include "GarmPC3Editor/GmCustomNode.h"
#include "tests/support/Blocks.h"

#include <gtest/gtest.h>

namespace
{
using Lines = std::vector<std::string>;
using blocks::written;

constexpr std::int32_t poison = 0x5A5A5A5A;

// A sub-block as in files.
blocks::Item item(OdStringView key, const blocks::Item& value)
{
    return blocks::make(OD_T("7"), {blocks::str(OD_T("name"), key), value});
}

// A sub-block with any two items.
blocks::Item pair(const blocks::Item& first, const blocks::Item& second)
{
    return blocks::make(OD_T("7"), {first, second});
}

OdSharedPtr<CPBlock> custom(const std::vector<blocks::Item>& items)
{
    return blocks::make(OD_T("custom"), items);
}

GmCustomNode parsed(const std::vector<blocks::Item>& items)
{
    GmCustomNode node;
    EXPECT_TRUE(node.parse(*custom(items)));
    return node;
}

const auto goodItem = item(OD_T("dmSize"), blocks::num(OD_T("value"), OD_T("220")));

// A node parsed from the good item, then from the bad one, then from one more.
void expectRefused(const blocks::Item& bad)
{
    GmCustomNode node;
    EXPECT_FALSE(node.parse(*custom({goodItem, bad, item(OD_T("late"), blocks::num(OD_T("value"), OD_T("1")))})));
    std::int32_t size = poison;
    EXPECT_TRUE(node.getNumber(OD_T("dmSize"), size));
    EXPECT_EQ(size, 220);
    EXPECT_EQ(node.m_numbers.size(), 1U);
}
} // namespace

TEST(CustomNode, anEmptyBlockIsValidAndWritesAnEmptyBlock)
{
    const GmCustomNode node = parsed({});
    EXPECT_TRUE(node.m_numbers.empty() && node.m_binaries.empty() && node.m_strings.empty() && node.m_flags.empty());
    EXPECT_TRUE(written(node).empty());
}

TEST(CustomNode, unknownItemsSurviveRegroupedByKindAndRenumbered)
{
    const GmCustomNode node = parsed(
        {item(OD_T("z"), blocks::flag(OD_T("value"), true)), item(OD_T("s"), blocks::str(OD_T("value"), OD_T("abc"))),
         item(OD_T("b"), blocks::bin(OD_T("value"), OD_T("00ff"))),
         item(OD_T("n"), blocks::num(OD_T("value"), OD_T("+007 dots"))),
         item(OD_T("f"), blocks::flag(OD_T("value"), false)), item(OD_T("a"), blocks::str(OD_T("value"), OD_T(""))),
         item(OD_T("N"), blocks::num(OD_T("value"), OD_T("")))});
    EXPECT_EQ(written(node), (Lines{"0{", " name=str N", " value=num ",     "1{", " name=str n", " value=num +007 dots",
                                    "2{", " name=str b", " value=bin 00ff", "3{", " name=str a", " value=str ",
                                    "4{", " name=str s", " value=str abc",  "5{", " name=str f", " value=false",
                                    "6{", " name=str z", " value=true"}));
}

TEST(CustomNode, whatWasWrittenReadsBackEqual)
{
    GmCustomNode node;
    node.m_strings[OD_T("")] = OD_T("empty key");
    node.m_binaries[OD_T("RawPrivateDeviceData")] = OD_T("00FF");
    node.m_numbers[OD_T("dmSize")] = OD_T("220");
    node.m_flags[OD_T("on")] = 1;
    for (int i = 0; i < 12; ++i)
        node.m_strings[OdString(std::basic_string<OdChar>(1, static_cast<OdChar>('a' + i)))] = OD_T("x");
    auto block = custom({});
    ASSERT_TRUE(node.write(*block));
    EXPECT_EQ(block->data(11)->name(), OD_T("11"));
    GmCustomNode back;
    ASSERT_TRUE(back.parse(*block));
    EXPECT_EQ(back.m_strings, node.m_strings);
    EXPECT_EQ(back.m_binaries, node.m_binaries);
    EXPECT_EQ(back.m_numbers, node.m_numbers);
    EXPECT_EQ(back.m_flags, node.m_flags);
}

TEST(CustomNode, childrenThatAreNoBlocksAreSkipped)
{
    const GmCustomNode node = parsed({blocks::str(OD_T("0"), OD_T("x")), blocks::num(OD_T("1"), OD_T("2")),
                                      blocks::flag(OD_T("2"), true), blocks::bin(OD_T("3"), OD_T("00")), goodItem});
    EXPECT_EQ(written(node), (Lines{"0{", " name=str dmSize", " value=num 220"}));
}

TEST(CustomNode, aSubBlockWithoutExactlyTwoItemsIsRefused)
{
    const auto name = blocks::str(OD_T("name"), OD_T("k"));
    const auto value = blocks::num(OD_T("value"), OD_T("1"));
    expectRefused(blocks::make(OD_T("0")));
    expectRefused(blocks::make(OD_T("0"), {name}));
    expectRefused(blocks::make(OD_T("0"), {name, value, value}));
}

TEST(CustomNode, aFirstItemThatIsNoTextNamedNameIsRefused)
{
    const auto value = blocks::num(OD_T("value"), OD_T("1"));
    expectRefused(pair(blocks::str(OD_T("key"), OD_T("k")), value));
    expectRefused(pair(blocks::str(OD_T(""), OD_T("k")), value));
    expectRefused(pair(blocks::str(OD_T("names"), OD_T("k")), value));
    expectRefused(pair(blocks::num(OD_T("name"), OD_T("1")), value));
    expectRefused(pair(blocks::bin(OD_T("name"), OD_T("00")), value));
    expectRefused(pair(blocks::flag(OD_T("name"), true), value));
    expectRefused(pair(blocks::make(OD_T("name")), value));
    expectRefused(pair(value, blocks::str(OD_T("name"), OD_T("k"))));
}

TEST(CustomNode, aBlockAsValueIsRefused)
{
    expectRefused(item(OD_T("k"), blocks::make(OD_T("value"))));
}

TEST(CustomNode, theFirstNameIsComparedWithoutCaseAndTheSecondNotAtAll)
{
    const GmCustomNode node =
        parsed({pair(blocks::str(OD_T("NaMe"), OD_T("k")), blocks::num(OD_T("whatever"), OD_T("5"))),
                pair(blocks::str(OD_T("name"), OD_T("l")), blocks::num(OD_T("name"), OD_T("6")))});
    EXPECT_EQ(written(node), (Lines{"0{", " name=str k", " value=num 5", "1{", " name=str l", " value=num 6"}));
}

TEST(CustomNode, theLastOfTwoEqualKeysWins)
{
    const GmCustomNode node = parsed(
        {item(OD_T("n"), blocks::num(OD_T("value"), OD_T("1"))),
         item(OD_T("s"), blocks::str(OD_T("value"), OD_T("one"))),
         item(OD_T("b"), blocks::bin(OD_T("value"), OD_T("01"))), item(OD_T("f"), blocks::flag(OD_T("value"), true)),
         item(OD_T("n"), blocks::num(OD_T("value"), OD_T("2"))),
         item(OD_T("s"), blocks::str(OD_T("value"), OD_T("two"))),
         item(OD_T("b"), blocks::bin(OD_T("value"), OD_T("02"))), item(OD_T("f"), blocks::flag(OD_T("value"), false))});
    EXPECT_EQ(written(node), (Lines{"0{", " name=str n", " value=num 2", "1{", " name=str b", " value=bin 02", "2{",
                                    " name=str s", " value=str two", "3{", " name=str f", " value=false"}));
}

TEST(CustomNode, keysDifferByCaseAndByKind)
{
    const GmCustomNode node = parsed({item(OD_T("k"), blocks::num(OD_T("value"), OD_T("1"))),
                                      item(OD_T("K"), blocks::num(OD_T("value"), OD_T("2"))),
                                      item(OD_T("k"), blocks::str(OD_T("value"), OD_T("3")))});
    EXPECT_EQ(node.m_numbers.size(), 2U);
    EXPECT_EQ(node.m_strings.size(), 1U);
}

TEST(CustomNode, lowerCaseHexadecimalOfTheDriversBytesBecomesUpperCase)
{
    const GmCustomNode node = parsed({item(OD_T("RawPrivateDeviceData"), blocks::bin(OD_T("v"), OD_T("0aFfg zZ")))});
    OdString text;
    ASSERT_TRUE(node.getRawData(text));
    EXPECT_EQ(text, OD_T("0AFFg zZ"));
    EXPECT_EQ(written(node), (Lines{"0{", " name=str RawPrivateDeviceData", " value=bin 0AFFg zZ"}));
}

TEST(CustomNode, otherBinariesAndTheSameKeyOfAnotherKindStayAsTheyAre)
{
    const GmCustomNode node = parsed({item(OD_T("rawprivatedevicedata"), blocks::bin(OD_T("value"), OD_T("0af"))),
                                      item(OD_T("RawPrivateDeviceData"), blocks::str(OD_T("value"), OD_T("0af")))});
    EXPECT_EQ(written(node), (Lines{"0{", " name=str rawprivatedevicedata", " value=bin 0af", "1{",
                                    " name=str RawPrivateDeviceData", " value=str 0af"}));
    OdString text(OD_T("poison"));
    EXPECT_FALSE(node.getRawData(text));
    EXPECT_EQ(text, OD_T("poison"));
}

TEST(CustomNode, aNumberIsAddedOnlyOnDemand)
{
    GmCustomNode node;
    EXPECT_FALSE(node.setNumber(220, OD_T("dmSize"), false));
    EXPECT_TRUE(node.m_numbers.empty());
    EXPECT_TRUE(node.setNumber(220, OD_T("dmSize"), true));
    EXPECT_TRUE(node.setNumber(4294967295U, OD_T("dmSize"), false));
    EXPECT_EQ(node.m_numbers[OD_T("dmSize")], OD_T("4294967295"));
    std::int32_t value = poison;
    EXPECT_TRUE(node.getNumber(OD_T("dmSize"), value));
    EXPECT_EQ(value, -1);
}

TEST(CustomNode, aMissingNumberAndATextThatIsNoneAreNotGiven)
{
    GmCustomNode node;
    node.m_numbers[OD_T("bad")] = OD_T("x");
    node.m_numbers[OD_T("empty")] = OD_T("");
    node.m_strings[OD_T("text")] = OD_T("5");
    for (OdStringView key : {OD_T("none"), OD_T("bad"), OD_T("empty"), OD_T("text"), OD_T("BAD")})
    {
        std::int32_t value = poison;
        EXPECT_FALSE(node.getNumber(key, value)) << odToUtf8(key);
        EXPECT_EQ(value, poison);
    }
}

TEST(CustomNode, rawDataIsAddedOnlyOnDemandAndKeptAsGiven)
{
    GmCustomNode node;
    EXPECT_FALSE(node.setRawData(OD_T("00"), false));
    EXPECT_TRUE(node.m_binaries.empty());
    EXPECT_TRUE(node.setRawData(OD_T("0aFF"), true));
    OdString text;
    EXPECT_TRUE(node.getRawData(text));
    EXPECT_EQ(text, OD_T("0aFF"));
    EXPECT_TRUE(node.setRawData(OD_T("11"), false));
    EXPECT_TRUE(node.getRawData(text));
    EXPECT_EQ(text, OD_T("11"));
}
