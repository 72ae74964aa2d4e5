#include "kernel/OdString.h"

#include <gtest/gtest.h>

#include <sstream>

TEST(OdText, foldsAsciiLettersOnly)
{
    EXPECT_TRUE(odEqualNoCase(OD_T("Plotter.PC3"), OD_T("pLOTTER.pc3")));
    EXPECT_FALSE(odEqualNoCase(OD_T("\u00C4"), OD_T("\u00E4")));
    EXPECT_FALSE(odEqualNoCase(OD_T("["), OD_T("{")));
}

TEST(OdText, aShortTextHasNoLongEnding)
{
    EXPECT_FALSE(odEndsWithNoCase(OD_T("pc3"), OD_T(".pc3")));
    EXPECT_TRUE(odEndsWithNoCase(OD_T(".PC3"), OD_T(".pc3")));
    EXPECT_FALSE(odStartsWithNoCase(OD_T("Use"), OD_T("user")));
}

TEST(OdText, aSlotWithoutTerminatorIsReadToItsEnd)
{
    const OdChar slot[4] = {'a', 'b', 'c', 'd'};
    EXPECT_EQ(odBoundedView(slot, 4).size(), 4U);
    EXPECT_EQ(odBoundedView(slot, 0).size(), 0U);
}

TEST(OdText, utf8RoundTripsAndReplacesWhatIsInvalid)
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

TEST(OdString, partsAreCutToTheText)
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

TEST(OdString, comparesByUnitsOrWithoutRegardToCase)
{
    const OdString text(OD_T("A3"));
    EXPECT_LT(text.compare(OD_T("a3")), 0);
    EXPECT_EQ(text.compare(OD_T("A3")), 0);
    EXPECT_GT(text.compare(OD_T("A")), 0);
    EXPECT_EQ(text.iCompare(OD_T("a3")), 0);
    EXPECT_LT(text.iCompare(OD_T("a4")), 0);
    EXPECT_GT(text.iCompare(OD_T("a2")), 0);
}

// A failed test shows its texts this way.
TEST(OdString, isShownQuotedAndAsUtf8)
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
