#include "kernel/OdError.h"

#include <gtest/gtest.h>

#include <set>
#include <string>

TEST(OdError, hasItsCode)
{
    EXPECT_EQ(OdError(eInvalidInput).code(), 3);
    EXPECT_EQ(OdError(eNullObjectPointer).code(), 5);
}

TEST(OdError, wrongClassHasItsOwnErrorAndCode)
{
    try
    {
        throw OdError_NotThatKindOfClass();
    }
    catch (const OdError& error)
    {
        EXPECT_EQ(error.code(), eNotThatKindOfClass);
        EXPECT_NE(dynamic_cast<const OdError_NotThatKindOfClass*>(&error), nullptr);
    }
}

TEST(OdError, whatIsTheText)
{
    const std::exception& error = OdError(eInvalidInput);
    EXPECT_STREQ(error.what(), "invalid input");
}

TEST(OdError, everyCodeHasADistinctText)
{
    std::set<std::string> texts;
    for (const OdResult code :
         {eOk, eInvalidInput, eNullObjectPointer, eNotThatKindOfClass, eInvalidResBuf, static_cast<OdResult>(77)})
        EXPECT_TRUE(texts.insert(odResultText(code)).second) << code;
}

TEST(OdError, routineCodesAreThoseOfTheHost)
{
    EXPECT_EQ(eRoutineNormal, 5100);
    EXPECT_EQ(eRoutineError, -5001);
}
