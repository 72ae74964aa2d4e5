#include "kernel/OdString.h"

#include <gtest/gtest.h>

#include <limits>
#include <sstream>

TEST(OdText, foldsOnlyAsciiLetters)
{
    EXPECT_TRUE(odEqualNoCase(OD_T("Plotter.PC3"), OD_T("pLOTTER.pc3")));
    EXPECT_FALSE(odEqualNoCase(OD_T("\u00C4"), OD_T("\u00E4")));
    EXPECT_FALSE(odEqualNoCase(OD_T("["), OD_T("{")));
}

TEST(OdText, endingsAreComparedWithoutCase)
{
    EXPECT_FALSE(odEndsWithNoCase(OD_T("pc3"), OD_T(".pc3")));
    EXPECT_TRUE(odEndsWithNoCase(OD_T(".PC3"), OD_T(".pc3")));
    EXPECT_FALSE(odStartsWithNoCase(OD_T("Use"), OD_T("user")));
}

TEST(OdText, slotWithoutTerminatorIsReadToItsEnd)
{
    const OdChar slot[4] = {'a', 'b', 'c', 'd'};
    EXPECT_EQ(odBoundedView(slot, 4).size(), 4U);
    EXPECT_EQ(odBoundedView(slot, 0).size(), 0U);
}

TEST(OdText, utf8RoundTripsAndReplacesInvalidBytes)
{
    const std::string text = "A\xC3\xA4\xE2\x82\xAC\xF0\x9F\x96\xA8";
    EXPECT_EQ(odToUtf8(odFromUtf8(text)), text);

    const OdChar lone[] = {0xD800, 'x'};
    EXPECT_EQ(odToUtf8(OdStringView(lone, 2)), "\xEF\xBF\xBDx");
    const OdChar second[] = {0xDFFF, 0xE000};
    EXPECT_EQ(odToUtf8(OdStringView(second, 2)), "\xEF\xBF\xBD\xEE\x80\x80");

    for (const char* bad : {"\xC0\xAF", "\xED\xA0\x80", "\xF4\x90\x80\x80", "\xE2\x82", "\x80", "\xC1\xBF",
                            "\xE0\x9F\xBF", "\xF0\x8F\xBF\xBF"})
        EXPECT_EQ(odFromUtf8(bad)[0], 0xFFFD) << bad;
}

TEST(OdString, partsAreClampedToTheText)
{
    const OdString text(OD_T("600x600_None"));
    EXPECT_EQ(text.mid(text.reverseFind('_')), OD_T("_None"));
    EXPECT_EQ(text.left(3), OD_T("600"));
    EXPECT_EQ(text.right(4), OD_T("None"));
    EXPECT_EQ(text.right(99), text);
    EXPECT_EQ(text.mid(-5, 3), OD_T("600"));
    EXPECT_EQ(text.mid(99), OD_T(""));
    EXPECT_EQ(text.left(-1), OD_T(""));
    EXPECT_EQ(text.reverseFind('?'), -1);
    EXPECT_EQ(text.find('x'), 3);
    EXPECT_EQ(text.getAt(99), OdChar());
    EXPECT_EQ(text.getAt(-1), OdChar());
    EXPECT_EQ(text.getAt(11), OdChar('e'));
}

TEST(OdString, comparesByCodeUnitOrWithoutCase)
{
    const OdString text(OD_T("A3"));
    EXPECT_LT(text.compare(OD_T("a3")), 0);
    EXPECT_EQ(text.compare(OD_T("A3")), 0);
    EXPECT_GT(text.compare(OD_T("A")), 0);
    EXPECT_EQ(text.iCompare(OD_T("a3")), 0);
    EXPECT_LT(text.iCompare(OD_T("a4")), 0);
    EXPECT_GT(text.iCompare(OD_T("a2")), 0);
}

// For the output of failed tests.
TEST(OdString, isPrintedQuotedAsUtf8)
{
    std::ostringstream out;
    out << OdString(OD_T("A\u00E4"));
    EXPECT_EQ(out.str(), "\"A\xC3\xA4\"");
}

TEST(OdString, aNullPointerIsEmpty)
{
    const OdChar* none = nullptr;
    OdString text(none);
    EXPECT_TRUE(text.isEmpty());
    text = OD_T("x");
    text = none;
    EXPECT_TRUE(text.isEmpty());
    EXPECT_TRUE(text == none);
}

TEST(OdText, knowsWhiteSpaceOfCAndOfUnicode)
{
    for (int i = 0; i < 0x10000; ++i)
    {
        const auto c = static_cast<OdChar>(i);
        const bool isAscii = OdStringView(OD_T(" \t\n\v\f\r")).find(c) != OdStringView::npos;
        EXPECT_EQ(odIsAsciiSpace(c), isAscii) << i;
        const bool isOther =
            OdStringView(OD_T("\u0085\u00A0\u1680\u2028\u2029\u202F\u205F\u3000")).find(c) != OdStringView::npos ||
            (i >= 0x2000 && i <= 0x200A);
        EXPECT_EQ(odIsSpace(c), isAscii || isOther) << i;
    }
}

TEST(OdText, trimsBothEndsOnly)
{
    const auto trimmed = [](OdStringView text) { return odTrimmed(text, odIsAsciiSpace); };
    EXPECT_EQ(trimmed(OD_T(" \ta b\r ")), OD_T("a b"));
    EXPECT_EQ(trimmed(OD_T("a")), OD_T("a"));
    EXPECT_EQ(trimmed(OD_T("  ")), OD_T(""));
    EXPECT_EQ(trimmed({}), OD_T(""));
}

TEST(OdText, writesWholeNumbers)
{
    EXPECT_EQ(odDecimal(0), OD_T("0"));
    EXPECT_EQ(odDecimal(4294967295), OD_T("4294967295"));
    EXPECT_EQ(odDecimal(std::numeric_limits<std::int64_t>::min()), OD_T("-9223372036854775808"));
}

TEST(OdText, writesAndReadsHexadecimalDigits)
{
    const unsigned char bytes[] = {0x00, 0x9A, 0xFF};
    EXPECT_EQ(odHex<char>(bytes), "009AFF");
    EXPECT_EQ(odHex<OdChar>(bytes), OD_T("009AFF"));
    EXPECT_EQ(odHex<char>({}), "");
    for (int value = 0; value < 16; ++value)
    {
        EXPECT_EQ(odHexDigit(static_cast<unsigned char>(OdStringView(OD_T("0123456789abcdef"))[value])), value);
        EXPECT_EQ(odHexDigit(static_cast<unsigned char>(odHexDigits[value])), value);
    }
    for (const unsigned other :
         {0U, unsigned{'/'}, unsigned{':'}, unsigned{'@'}, unsigned{'G'}, unsigned{'`'}, unsigned{'g'}, 0x130U})
        EXPECT_EQ(odHexDigit(other), -1) << other;
}
