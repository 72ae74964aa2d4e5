#include "tests/support/RecordedAsserts.h"

#include <gtest/gtest.h>

#include <stdexcept>

namespace
{
int seenLine = 0;

void rememberLine(const char*, const char*, int line)
{
    seenLine = line;
}

void throwing(const char*, const char*, int)
{
    throw std::runtime_error("a handler");
}

void silent(const char*, const char*, int) {}
} // namespace

TEST(OdAssert, theHandlerReceivesTextFileAndLine)
{
    const OdAssertHandler before = odSetAssertHandler(&rememberLine);
    odReportAssert("pCfg", "GarmPC3Editor/Commands/PC3EditCommand", 232);
    odSetAssertHandler(before);
    EXPECT_EQ(seenLine, 232);

    const RecordedAsserts asserts;
    odReportAssert("pCfg", "GarmPC3Editor/Commands/PC3EditCommand", 232);
    ASSERT_EQ(asserts.reports().size(), 1U);
    EXPECT_EQ(asserts.reports()[0], "pCfg | GarmPC3Editor/Commands/PC3EditCommand");
}

TEST(OdAssert, settingAHandlerReturnsThePreviousOne)
{
    const OdAssertHandler before = odSetAssertHandler(&silent);
    EXPECT_EQ(odSetAssertHandler(&rememberLine), &silent);
    EXPECT_EQ(odSetAssertHandler(nullptr), &rememberLine);
    EXPECT_NE(odSetAssertHandler(before), nullptr) << "null restores the default handler";
}

// What a person sees who runs a program that set no handler.
TEST(OdAssert, withoutHandlerReportGoesToStandardError)
{
    const OdAssertHandler before = odSetAssertHandler(nullptr);
    testing::internal::CaptureStderr();
    odReportAssert("pCfg", "GarmPC3Editor/Commands/PC3EditCommand", 232);
    odSetAssertHandler(before);
    EXPECT_EQ(testing::internal::GetCapturedStderr(),
              "Assertion failed: pCfg (GarmPC3Editor/Commands/PC3EditCommand:232)\n");
}

TEST(OdAssert, anExceptionOfAHandlerIsIgnored)
{
    const OdAssertHandler before = odSetAssertHandler(&throwing);
    EXPECT_NO_THROW(odReportAssert("text", "file", 1));
    odSetAssertHandler(before);
}

TEST(OdAssert, expressionIsItsOwnTextInEveryBuild)
{
    const RecordedAsserts asserts;
    const int count = 0;
    EXPECT_TRUE(OD_VERIFY(count == 0, "file"));
    EXPECT_TRUE(asserts.reports().empty());
    EXPECT_FALSE(OD_VERIFY(count != 0, "file"));
    ASSERT_EQ(asserts.reports().size(), 1U);
    EXPECT_EQ(asserts.reports()[0], "count != 0 | file");
}
