#include "files/FileChecks.h"
#include "files/FullPath.h"
#include "tests/support/CurrentFolder.h"
#include "tests/support/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace
{
namespace fs = std::filesystem;

// Creates a link in the folder and returns its path.
OdString addLink(const TemporaryFolder& folder, const fs::path& to, const char* name)
{
    const OdString link = folder.at(name);
    fs::create_symlink(to, fs::path(link.view()));
    return link;
}
} // namespace

TEST(NativePath, dotsEndAtTheRoot)
{
    EXPECT_EQ(pathSeparator(), u'/');
    EXPECT_EQ(fullPath(u"/"), u"/");
    EXPECT_EQ(fullPath(u"//plots//A0.pc3"), u"/plots/A0.pc3");
    EXPECT_EQ(fullPath(u"/plots/./../../A0.pc3"), u"/A0.pc3");
    EXPECT_EQ(fullPath(u"/plots/.."), u"/");
    EXPECT_EQ(fullPath(u"/..a/b.."), u"/..a/b..");
    EXPECT_EQ(fullPath(u"/C:\\plots\\A0.pc3"), u"/C:\\plots\\A0.pc3") << "a backslash is an ordinary character here";
}

TEST(NativePath, anUnpairedSurrogateIsNotAPath)
{
    const OdChar name[] = {'/', 0xD800, 0};
    EXPECT_EQ(fullPath(name), name);
    EXPECT_FALSE(isRegularFile(name));
    EXPECT_EQ(filesIn(name), std::nullopt);
}

TEST(NativePath, checksFollowLinks)
{
    const TemporaryFolder folder;
    folder.addFile("x.pc3");
    folder.addFolder("below");
    const OdString file = addLink(folder, "x.pc3", "file");
    const OdString below = addLink(folder, "below", "folder");
    const OdString nowhere = addLink(folder, "gone", "nowhere");
    EXPECT_TRUE(isRegularFile(file));
    EXPECT_FALSE(isFolder(file));
    EXPECT_TRUE(isFolder(below));
    EXPECT_FALSE(isRegularFile(below));
    EXPECT_FALSE(isRegularFile(nowhere));

    auto names = filesIn(folder.path());
    ASSERT_TRUE(names.has_value());
    std::ranges::sort(*names);
    EXPECT_EQ(*names, (std::vector<OdString>{u"file", u"x.pc3"}));
}

TEST(NativePath, aDeviceIsNotARegularFile)
{
    EXPECT_FALSE(isRegularFile(u"/dev/null"));
    EXPECT_FALSE(isFolder(u"/dev/null"));
}

TEST(NativePath, namesThatAreNotUtf8AreSkipped)
{
    const TemporaryFolder folder;
    std::ofstream(fs::path(folder.path().view()) / "\xFF.pc3") << "content";
    folder.addFile("x.pc3");
    EXPECT_EQ(filesIn(folder.path()), (std::vector<OdString>{u"x.pc3"}));
}

TEST(NativePath, theCurrentFolderMayHaveALongName)
{
    const TemporaryFolder folder;
    fs::path below(folder.path().view());
    for (int i = 0; i < 8; ++i)
        below /= std::string(60, 'f');
    fs::create_directories(below);
    const CurrentFolder current(OdString(below.u16string().c_str()));
    EXPECT_EQ(fullPath(u"x"), OdString((below / "x").u16string().c_str()));
}
