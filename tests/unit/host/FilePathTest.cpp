#include "host/FilePath.h"

#include <gtest/gtest.h>

TEST(FilePath, theFirstPathIsReturnedUnchanged)
{
    EXPECT_EQ(FilePath::GetFirstPath(OD_T("C:\\a;D:\\b")), OD_T("C:\\a"));
    EXPECT_EQ(FilePath::GetFirstPath(OD_T("C:\\a\\")), OD_T("C:\\a\\"));
    EXPECT_EQ(FilePath::GetFirstPath(OD_T("C:\\with blank ; D:\\b")), OD_T("C:\\with blank "));
}

TEST(FilePath, emptyEntriesAreSkipped)
{
    EXPECT_EQ(FilePath::GetFirstPath(OD_T(";;C:\\a;")), OD_T("C:\\a"));
    EXPECT_EQ(FilePath::GetFirstPath(OD_T(";")), OdString());
    EXPECT_EQ(FilePath::GetFirstPath(OdString()), OdString());
}

TEST(FilePath, allPathsAreReturnedInOrder)
{
    EXPECT_EQ(FilePath::GetPaths(OD_T("b;;a;b;")), (std::vector<OdString>{OD_T("b"), OD_T("a"), OD_T("b")}));
    EXPECT_TRUE(FilePath::GetPaths(OD_T(";;")).empty());
}
