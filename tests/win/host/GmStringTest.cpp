#include "host/GmString.h"

#include "Fixtures.h"

#include <gtest/gtest.h>

namespace
{
class LoadString : public testing::Test
{
protected:
    OdString load(UINT id) const { return GmString::loadString(id, OD_T("fallback"), library.get()); }

    LibraryHandle library{
        ::LoadLibraryExW(fixture(OD_T("en\\FirstRes.dll")).c_str(), nullptr, LOAD_LIBRARY_AS_DATAFILE)};
};
} // namespace

TEST_F(LoadString, givesTheTextOfTheNumber)
{
    EXPECT_EQ(load(1), OD_T("English"));
    EXPECT_EQ(load(2), OD_T("Gro\u00DFformat \u5370\u5237"));
}

TEST_F(LoadString, aMissingNumberGivesTheFallback)
{
    EXPECT_EQ(load(8), OD_T("fallback"));
    EXPECT_EQ(load(60000), OD_T("fallback"));
    EXPECT_EQ(GmString::loadString(8, nullptr, library.get()), OdString());
}

TEST_F(LoadString, anEmptyTextCountsAsMissing)
{
    EXPECT_EQ(load(3), OD_T("fallback"));
}

TEST_F(LoadString, withoutALibraryTheFallbackIsGiven)
{
    EXPECT_EQ(GmString::loadString(1, OD_T("fallback"), nullptr), OD_T("fallback"));
}

TEST_F(LoadString, textsOfAnyLengthComeWhole)
{
    const OdString text = load(4);
    EXPECT_EQ(text.getLength(), 254);
    EXPECT_EQ(load(5), text + OD_T("5"));
    EXPECT_EQ(load(6), text + OD_T("56"));
    EXPECT_EQ(load(7), text + text + text + OD_T("7"));
}
