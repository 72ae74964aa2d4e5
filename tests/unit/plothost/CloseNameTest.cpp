#include "plothost/CloseName.h"

#include <gtest/gtest.h>

using plothost::closestName;
using plothost::editDistance;

TEST(CloseName, countsEachKindOfSlip)
{
    EXPECT_EQ(editDistance("", ""), 0U);
    EXPECT_EQ(editDistance("", "abc"), 3U);
    EXPECT_EQ(editDistance("list", "lst"), 1U);
    EXPECT_EQ(editDistance("list", "lisst"), 1U);
    EXPECT_EQ(editDistance("list", "lost"), 1U);
    EXPECT_EQ(editDistance("list", "lsit"), 1U);
    EXPECT_EQ(editDistance("LIST", "list"), 0U);
    EXPECT_EQ(editDistance("kitten", "sitting"), 3U);
}

TEST(CloseName, picksTheNearestOrNone)
{
    const std::vector<std::string> names = {"list", "devmode", "create", "show", "commands"};
    EXPECT_EQ(closestName("devmod", names), "devmode");
    EXPECT_EQ(closestName("dev", names), "devmode");
    EXPECT_EQ(closestName("comands", names), "commands");
    EXPECT_EQ(closestName("lsit", names), "list");
    EXPECT_EQ(closestName("print", names), "");
    EXPECT_EQ(closestName("", names), "");
    EXPECT_EQ(closestName("x", {}), "");
}

TEST(CloseName, aVeryLongNameIsNotCompared)
{
    EXPECT_EQ(closestName(std::string(100000, 'a'), {std::string(100000, 'a')}), "");
    EXPECT_EQ(closestName("a", {std::string(100000, 'a')}), "");
}
