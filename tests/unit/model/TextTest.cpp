#include "GarmPC3Editor/Model/AnswerOnThrow.h"
#include "GarmPC3Editor/Model/Numbers.h"

#include <gtest/gtest.h>

#include <array>
#include <limits>
#include <new>

namespace
{
constexpr std::int32_t poison = 0x5A5A5A5A;

std::int32_t numberOf(OdStringView text)
{
    std::int32_t value = poison;
    EXPECT_TRUE(numberFromDecimal(text, value)) << odToUtf8(text);
    return value;
}
} // namespace

TEST(DecimalText, readsWhiteSpaceOneSignAndDigits)
{
    EXPECT_EQ(numberOf(OD_T("300")), 300);
    EXPECT_EQ(numberOf(OD_T("-300")), -300);
    EXPECT_EQ(numberOf(OD_T("+300")), 300);
    EXPECT_EQ(numberOf(OD_T(" \t\n\v\f\r300")), 300);
    EXPECT_EQ(numberOf(OD_T("0007")), 7);
}

TEST(DecimalText, whatFollowsTheDigitsDoesNotMatter)
{
    EXPECT_EQ(numberOf(OD_T("300abc")), 300);
    EXPECT_EQ(numberOf(OD_T("300.9")), 300);
    EXPECT_EQ(numberOf(OD_T("3 00")), 3);
    EXPECT_EQ(numberOf(OD_T("0x10")), 0);
    EXPECT_EQ(numberOf(OdStringView(OD_T("12\0") OD_T("34"), 5)), 12);
}

TEST(DecimalText, theCharactersBesideWhiteSpaceAndDigitsAreNeither)
{
    for (OdStringView text : {OD_T("\x08"
                                   "5"),
                              OD_T("\x0E"
                                   "5"),
                              OD_T("\x1F"
                                   "5"),
                              OD_T("!5"), OD_T("/5"), OD_T(":5")})
    {
        std::int32_t value = poison;
        EXPECT_FALSE(numberFromDecimal(text, value)) << odToUtf8(text);
    }
    EXPECT_EQ(numberOf(OD_T("5/7")), 5);
    EXPECT_EQ(numberOf(OD_T("5:7")), 5);
}

TEST(DecimalText, nothingBehindTheEndIsRead)
{
    EXPECT_EQ(numberOf(OdStringView(OD_T("123"), 2)), 12);
    // The part that is cut off would be or complete a number.
    for (OdStringView text : {OdStringView(OD_T(" 5"), 0), OdStringView(OD_T("-5"), 0), OdStringView(OD_T("+5"), 0),
                              OdStringView(OD_T("5"), 0), OdStringView(OD_T(" 5"), 1), OdStringView(OD_T("-5"), 1),
                              OdStringView(OD_T(" -5"), 1), OdStringView(OD_T(" +5"), 1)})
    {
        std::int32_t value = poison;
        EXPECT_FALSE(numberFromDecimal(text, value)) << odToUtf8(text);
        EXPECT_EQ(value, poison);
    }
}

TEST(DecimalText, wrapsTo32Bits)
{
    EXPECT_EQ(numberOf(OD_T("2147483647")), std::numeric_limits<std::int32_t>::max());
    EXPECT_EQ(numberOf(OD_T("2147483648")), std::numeric_limits<std::int32_t>::min());
    EXPECT_EQ(numberOf(OD_T("-2147483648")), std::numeric_limits<std::int32_t>::min());
    EXPECT_EQ(numberOf(OD_T("4294967295")), -1);
    EXPECT_EQ(numberOf(OD_T("4294967296")), 0);
    EXPECT_EQ(numberOf(OD_T("-4294967297")), -1);
    EXPECT_EQ(numberOf(OD_T("9223372036854775807")), -1);
    EXPECT_EQ(numberOf(OD_T("18446744073709551621")), 5); // 2^64 + 5
}

TEST(DecimalText, noDigitsAreNoNumber)
{
    for (OdStringView text : {OD_T(""), OD_T(" "), OD_T("-"), OD_T("+"), OD_T("--5"), OD_T("+-5"), OD_T("- 5"),
                              OD_T("abc"), OD_T(".5"), OD_T("\uFF15")})
    {
        std::int32_t value = poison;
        EXPECT_FALSE(numberFromDecimal(text, value)) << odToUtf8(text);
        EXPECT_EQ(value, poison);
    }
}

TEST(DecimalText, writesSignedAndUnsigned)
{
    EXPECT_EQ(decimalFromNumber(std::numeric_limits<std::int32_t>::min()), OD_T("-2147483648"));
    EXPECT_EQ(decimalFromNumber(std::int32_t(0)), OD_T("0"));
    EXPECT_EQ(decimalFromNumber(std::numeric_limits<std::uint32_t>::max()), OD_T("4294967295"));
}

TEST(HexText, writesTwoUpperCaseDigitsPerByte)
{
    const std::array<unsigned char, 4> bytes = {0x00, 0x0F, 0xA9, 0xFF};
    EXPECT_EQ(hexFromBytes(bytes), OD_T("000FA9FF"));
    EXPECT_EQ(hexFromBytes({}), OD_T(""));
}

TEST(HexText, readsBothCasesAndTakesOtherCharactersForZero)
{
    std::array<unsigned char, 6> bytes;
    bytes.fill(0xEE);
    bytesFromHex(OD_T("aBCd0g-1\u0141F/:"), bytes);
    EXPECT_EQ(bytes, (std::array<unsigned char, 6>{0xAB, 0xCD, 0x00, 0x01, 0x0F, 0x00}));
}

TEST(HexText, everyDigitCountsAndItsNeighboursDoNot)
{
    struct Case
    {
        OdChar digit;
        unsigned char value;
    };
    for (const Case& one : {Case{'0', 0}, Case{'9', 9}, Case{'A', 10}, Case{'F', 15}, Case{'a', 10}, Case{'f', 15},
                            Case{'/', 0}, Case{':', 0}, Case{'@', 0}, Case{'G', 0}, Case{'`', 0}, Case{'g', 0}})
    {
        const OdChar text[] = {one.digit, one.digit};
        std::array<unsigned char, 1> byte = {0xEE};
        bytesFromHex(OdStringView(text, 2), byte);
        EXPECT_EQ(byte[0], one.value * 17) << odToUtf8(OdStringView(text, 1));
    }
}

TEST(HexText, theShorterOfTextAndBytesDecides)
{
    std::array<unsigned char, 3> bytes;
    bytes.fill(0xEE);
    bytesFromHex(OD_T("123"), bytes);
    EXPECT_EQ(bytes, (std::array<unsigned char, 3>{0x12, 0xEE, 0xEE}));
    bytesFromHex(OD_T("A1B2C3D4E5"), bytes);
    EXPECT_EQ(bytes, (std::array<unsigned char, 3>{0xA1, 0xB2, 0xC3}));
}

TEST(HexText, everyByteRoundTrips)
{
    std::array<unsigned char, 256> bytes;
    for (unsigned i = 0; i < bytes.size(); ++i)
        bytes[i] = static_cast<unsigned char>(i);
    std::array<unsigned char, 256> back = {};
    bytesFromHex(hexFromBytes(bytes), back);
    EXPECT_EQ(back, bytes);
}

TEST(HexText, onlyAToFBecomeUpperCase)
{
    EXPECT_EQ(withUpperCaseHexDigits(OD_T("0af`gzAF9 \u0101\u0161")), OD_T("0AF`gzAF9 \u0101\u0161"));
    EXPECT_EQ(withUpperCaseHexDigits(OD_T("")), OD_T(""));
    for (OdChar lower = 'a', upper = 'A'; lower <= 'f'; ++lower, ++upper)
        EXPECT_EQ(withUpperCaseHexDigits(OdString(OdStringView(&lower, 1))).view(), OdStringView(&upper, 1));
}

TEST(WrappedNumber, truncatesTowardZero)
{
    EXPECT_EQ(wrapToInt16(2099.73), 2099);
    EXPECT_EQ(wrapToInt16(-2099.73), -2099);
    EXPECT_EQ(wrapToInt16(-0.9), 0);
}

TEST(WrappedNumber, keepsTheLower16Bits)
{
    EXPECT_EQ(wrapToInt16(32767.0), 32767);
    EXPECT_EQ(wrapToInt16(32768.0), -32768);
    EXPECT_EQ(wrapToInt16(65536.0 + 600.0), 600);
    EXPECT_EQ(wrapToInt16(-32769.0), 32767);
    EXPECT_EQ(wrapToInt16(4294967296.0 + 7.0), 7);
}

TEST(WrappedNumber, whatIsNoNumberOf64BitsGivesZero)
{
    constexpr double infinity = std::numeric_limits<double>::infinity();
    for (double value : {infinity, -infinity, std::numeric_limits<double>::quiet_NaN(), 1e300, -1e300, 0x1p63, -0x1p63})
        EXPECT_EQ(wrapToInt16(value), 0) << value;
}

TEST(AnswerOnThrow, answersForWorkThatThrows)
{
    EXPECT_EQ(answerOnThrow(7, [] { return 1; }), 1);
    EXPECT_EQ(answerOnThrow(7, []() -> int { throw std::bad_alloc(); }), 7);
    EXPECT_EQ(answerOnThrow(7, []() -> int { throw "a driver's own"; }), 7);
}
