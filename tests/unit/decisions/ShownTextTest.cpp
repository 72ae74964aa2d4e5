#include "GarmPC3Editor/Decisions/ShownText.h"

#include <gtest/gtest.h>

#include <string>

namespace
{
using Text = std::basic_string<OdChar>;

OdString repeated(int count, OdChar c = 'x')
{
    return OdString(Text(static_cast<std::size_t>(count), c));
}
} // namespace

TEST(ShownLine, showsOrdinaryTextAsItIs)
{
    EXPECT_EQ(shownLine(OD_T("")), OD_T(""));
    EXPECT_EQ(shownLine(OD_T("R&D %s \u00E9\u7528\U0001F5A8~")), OD_T("R&D %s \u00E9\u7528\U0001F5A8~"));
}

TEST(ShownLine, showsControlCharactersAsPictures)
{
    EXPECT_EQ(shownLine(OdString(OD_T("A\0B"), 3)), OD_T("A\u2400B"));
    EXPECT_EQ(shownLine(OD_T("\x01\t\r\n\x1F \x7F")), OD_T("\u2401\u2409\u240D\u240A\u241F \u2421"));
}

TEST(ShownLine, isCutAt1000CharactersWithASign)
{
    EXPECT_EQ(shownLine(repeated(1000)), repeated(1000));
    EXPECT_EQ(shownLine(repeated(1001)), repeated(999) + OD_T("\u2026"));
    EXPECT_EQ(shownLine(repeated(30000000)), repeated(999) + OD_T("\u2026"));
}

TEST(ShownLine, isNotCutInsideACharacter)
{
    EXPECT_EQ(shownLine(repeated(998) + OD_T("\U0001F5A8") + repeated(5)), repeated(998) + OD_T("\u2026"));
    EXPECT_EQ(shownLine(repeated(997) + OD_T("\U0001F5A8") + repeated(5)),
              repeated(997) + OD_T("\U0001F5A8") + OD_T("\u2026"));
    // Not valid characters: unpaired surrogates.
    EXPECT_EQ(shownLine(repeated(2000, 0xDC00)).getLength(), 1000);
    EXPECT_EQ(shownLine(repeated(2000, 0xD800)).getLength(), 1000);
}

TEST(EditedText, showsWhatAFieldCanHold)
{
    const EditedText text(OdString(OD_T("A\0\r\n\tB\x01"), 7));
    EXPECT_EQ(text.shown(), OD_T("A\u2400\r\n\tB\x01"));
    EXPECT_FALSE(text.isCut());
}

TEST(EditedText, staysWholeUnlessTheFieldWasChanged)
{
    const OdString stored(OD_T("A\0B"), 3);
    EditedText text(stored);
    text.takeFrom(OD_T("A\u2400B"));
    EXPECT_EQ(text.whole(), stored);
}

TEST(EditedText, becomesWhatFieldHoldsOnceItWasChanged)
{
    EditedText text(OdString(OD_T("A\0B"), 3));
    text.takeFrom(OD_T("A\u2400BC"));
    EXPECT_EQ(text.whole(), OD_T("A\u2400BC"));
    EXPECT_EQ(text.shown(), OD_T("A\u2400BC"));
    // What was stored before has been replaced, so it does not come back.
    text.takeFrom(OD_T("A\u2400B"));
    EXPECT_EQ(text.whole(), OD_T("A\u2400B"));
}

TEST(EditedText, isCutAt100000CharactersAndStaysWhole)
{
    OdString longest;
    for (int i = 0; i < 1000; ++i)
        longest += repeated(98) + OD_T("\r\n");
    EXPECT_FALSE(EditedText(longest).isCut());
    EXPECT_EQ(EditedText(longest).shown(), longest);

    const OdString stored = longest + OD_T("x");
    EditedText text(stored);
    EXPECT_TRUE(text.isCut());
    EXPECT_EQ(text.shown(), longest.left(99999) + OD_T("\u2026"));
    text.takeFrom(text.shown());
    EXPECT_EQ(text.whole(), stored);
    EXPECT_TRUE(text.isCut());
}

TEST(EditedText, isCutAtLineOfOver5000Characters)
{
    const OdString first = repeated(5000) + OD_T("\r\n");
    EXPECT_FALSE(EditedText(first + repeated(5000)).isCut());
    EXPECT_FALSE(EditedText(repeated(5000) + OD_T("\n") + repeated(5000)).isCut());

    const EditedText text(first + repeated(5001) + OD_T("\r\nlast"));
    EXPECT_TRUE(text.isCut());
    EXPECT_EQ(text.shown(), first + repeated(4999) + OD_T("\u2026"));
}
