#include "pia_tree/TempName.h"

#include <gtest/gtest.h>

TEST(TempName, namesItsProcess)
{
    const std::string first = pia::nextTempName(4321);
    EXPECT_EQ(pia::processOfTempName(first), 4321U);
    EXPECT_NE(pia::nextTempName(4321), first);
    EXPECT_EQ(pia::processOfTempName(pia::nextTempName(0xFFFFFFFF)), 0xFFFFFFFFU);
}

TEST(TempName, isNeverTakenForAConfiguration)
{
    EXPECT_FALSE(pia::nextTempName(1).ends_with(".pc3"));
    EXPECT_LT(pia::nextTempName(0xFFFFFFFF).size(), 32U);
}

TEST(TempName, otherNamesAreNobodys)
{
    for (const char* name : {"",
                             "~gm.tmp",
                             "~gm_.tmp",
                             "~gm1.tmp",
                             "~gm1_.tmp",
                             "~gm_1.tmp",
                             "~gm0_1.tmp",
                             "~gm1_2.pc3",
                             "gm1_2.tmp",
                             "~gm1_2_3.tmp",
                             "~gm-1_2.tmp",
                             "~gm1_-2.tmp",
                             "~gm 1_2.tmp",
                             "~gm1x_2.tmp",
                             "~gm1_2x.tmp",
                             "~gm99999999999_1.tmp",
                             "~gm1_2.tmp ",
                             "~gm1_2.TMP",
                             "A4.pc3",
                             "~gm.tm"})
        EXPECT_EQ(pia::processOfTempName(name), std::nullopt) << name;
}
