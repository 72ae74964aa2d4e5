#include "files/TempName.h"

#include <gtest/gtest.h>

#include <set>

TEST(TempName, isUnique)
{
    std::set<std::string> names;
    for (int i = 0; i < 1000; ++i)
    {
        const std::string name = files::newTempName();
        EXPECT_TRUE(files::isTempName(name)) << name;
        EXPECT_TRUE(names.insert(name).second) << name;
    }
}

TEST(TempName, isShortAndNotAConfiguration)
{
    EXPECT_EQ(files::newTempName().size(), 23U);
    EXPECT_FALSE(files::newTempName().ends_with(".pc3"));
}

TEST(TempName, otherNamesAreNotRecognised)
{
    EXPECT_TRUE(files::isTempName("~gm0123456789abcdef.tmp"));
    for (const char* name :
         {"", "~gm.tmp", "~gm1_2.tmp", "~gm0123456789abcde.tmp", "~gm0123456789abcdef0.tmp", "~gm0123456789ABCDEF.tmp",
          "~gm0123456789abcdeg.tmp", "~gm0123456789abcdef.pc3", "~gm0123456789abcdef.TMP", "gm00123456789abcdef.tmp",
          "~gm0123456789abcdef.new", "~gm 123456789abcdef.tmp", "~gm0123456789abcdef.tmp ", "A4.pc3"})
        EXPECT_FALSE(files::isTempName(name)) << name;
}
