#include "files/FileChecks.h"

#include "files/FullPath.h"
#include "host/CGarmPath.h"
#include "tests/support/CurrentFolder.h"
#include "tests/support/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace
{
namespace fs = std::filesystem;

using Names = std::optional<std::vector<OdString>>;

const OdString withNul(OD_T("a\0b"), 3);

Names sorted(Names names)
{
    if (names)
        std::ranges::sort(*names);
    return names;
}
} // namespace

TEST(FullPath, isAbsoluteAndWithoutDots)
{
    const TemporaryFolder folder;
    const CurrentFolder current(folder.path());
    const OdString here = fullPath(OD_T("."));
    const OdString x = CGarmPath::join(here, OD_T("x"));
    EXPECT_EQ(fullPath(OD_T("x")), x);
    EXPECT_EQ(fullPath(OD_T("./x")), x);
    EXPECT_EQ(fullPath(OD_T("plots/../x")), x);
    EXPECT_EQ(fullPath(OD_T("plots//.././x")), x);
    EXPECT_EQ(fullPath(x), x);
    EXPECT_EQ(fullPath(CGarmPath::join(x, OD_T(".."))), here);
    EXPECT_EQ(fullPath(OD_T("x/")), CGarmPath::join(x, OdString())) << "a separator at the end is kept";
}

TEST(FullPath, anInvalidPathIsReturnedUnchanged)
{
    EXPECT_EQ(fullPath(OdString()), OdString());
    EXPECT_EQ(fullPath(withNul), withNul);
}

TEST(FileChecks, distinguishFilesFromFolders)
{
    const TemporaryFolder folder;
    const OdString file = folder.addFile("x.pc3");
    const OdString below = folder.addFolder("y.pc3");
    EXPECT_TRUE(isRegularFile(file));
    EXPECT_FALSE(isFolder(file));
    EXPECT_FALSE(isRegularFile(below));
    EXPECT_TRUE(isFolder(below));
    for (const OdString& none : {folder.at("z.pc3"), OdString(), withNul, folder.at("x.pc3/y")})
    {
        EXPECT_FALSE(isRegularFile(none)) << none;
        EXPECT_FALSE(isFolder(none)) << none;
        EXPECT_FALSE(isReadOnly(none)) << none;
    }
}

TEST(FileChecks, recogniseReadOnlyFiles)
{
    const TemporaryFolder folder;
    const OdString file = folder.addFile("x.pc3");
    EXPECT_FALSE(isReadOnly(file));
    fs::permissions(fs::path(file.view()), fs::perms::owner_read);
    EXPECT_TRUE(isReadOnly(file));
    fs::permissions(fs::path(file.view()), fs::perms::owner_all);
}

TEST(FileChecks, listOnlyRegularFiles)
{
    const TemporaryFolder folder;
    EXPECT_EQ(filesIn(folder.path()), Names(std::in_place));
    folder.addFile("b");
    folder.addFile("A.pc3");
    folder.addFile("below/c");
    EXPECT_EQ(sorted(filesIn(folder.path())), (Names::value_type{OD_T("A.pc3"), OD_T("b")}));
    for (const OdString& none : {folder.at("missing"), folder.at("b"), OdString(), withNul})
        EXPECT_EQ(filesIn(none), std::nullopt) << none;
}
