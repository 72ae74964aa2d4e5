#include "plothost/Paths.h"

#include "files/FileChecks.h"
#include "files/FullPath.h"
#include "host/GarmInterfaces.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/support/CurrentFolder.h"
#include "tests/support/TemporaryFolder.h"

using namespace plothost;
using testing::HasSubstr;

namespace
{
class HostSearchPath
{
public:
    explicit HostSearchPath(const OdString& path) { getMainInternalInterface()->setPlotCfgSearchPath(path); }
    ~HostSearchPath() { getMainInternalInterface()->setPlotCfgSearchPath(OdString()); }
    HostSearchPath(const HostSearchPath&) = delete;
    HostSearchPath& operator=(const HostSearchPath&) = delete;
};

const OdString unusable(OD_T("a\0b"), 3);
} // namespace

TEST(PlothostPaths, theSearchPathIsTheTypedOneThenTheEnvironmentThenTheCurrentFolder)
{
    const TemporaryFolder folder;
    const CurrentFolder current(folder.path());
    const OdString here = absoluteSearchPath(OD_T("."));
    const OdString a = fullPath(OD_T("a"));
    const OdString b = fullPath(OD_T("b"));
    EXPECT_EQ(chosenSearchPath(OdString(OD_T("a;b")), OD_T("c")), a + OD_T(";") + b);
    EXPECT_EQ(chosenSearchPath(OdString(OD_T("a;;a;./a")), OD_T("c")), a) << "each folder once";
    EXPECT_EQ(chosenSearchPath(std::nullopt, OD_T("b")), b);
    EXPECT_EQ(chosenSearchPath(OdString(OD_T(";")), OD_T("b")), b) << "no folder in it";
    EXPECT_EQ(chosenSearchPath(std::nullopt, OdString()), here);
    EXPECT_FALSE(here.isEmpty());
}

TEST(PlothostPaths, configurationsOfAFolderByName)
{
    const TemporaryFolder folder;
    folder.addFile("b.pc3");
    folder.addFile("A.PC3");
    folder.addFile("c.pc3x");
    folder.addFile("sub/d.pc3");
    folder.addFolder("e.pc3");
    const auto found = configurationsIn(folder.path());
    ASSERT_TRUE(found.has_value());
    ASSERT_EQ(found->size(), 2U);
    EXPECT_EQ((*found)[0].name, OD_T("A.PC3"));
    EXPECT_EQ((*found)[1].name, OD_T("b.pc3"));
    EXPECT_TRUE(isRegularFile((*found)[1].path));
    EXPECT_FALSE(configurationsIn(folder.at("missing")).has_value());
    EXPECT_FALSE(configurationsIn(unusable).has_value());
}

TEST(PlothostPaths, aConfigurationIsFoundHereThenOnTheSearchPath)
{
    const TemporaryFolder folder;
    const OdString plots = folder.addFolder("plots");
    folder.addFile("plots/x.pc3");
    folder.addFile("plots/y.pc3");
    const OdString here = folder.addFile("here/x.pc3");
    const CurrentFolder current(folder.at("here"));
    const HostSearchPath searchPath(plots);

    OdString path;
    EXPECT_TRUE(findConfiguration(OD_T("x.pc3"), path));
    EXPECT_TRUE(std::filesystem::equivalent(std::filesystem::path(path.c_str()), std::filesystem::path(here.c_str())));
    EXPECT_TRUE(findConfiguration(OD_T("y.pc3"), path));
    EXPECT_TRUE(isRegularFile(path));
    path = OD_T("before");
    EXPECT_FALSE(findConfiguration(OD_T("z.pc3"), path));
    EXPECT_EQ(path, OD_T("before"));
}

TEST(PlothostPaths, whyAConfigurationIsNotFound)
{
    const TemporaryFolder folder;
    folder.addFile("Large plots.pc3");
    EXPECT_EQ(whyNotFound(OD_T("x.pc3"), OdString()), "'x.pc3' is not found in no folder");
    EXPECT_THAT(whyNotFound(OD_T("large plot.pc3"), folder.path() + OD_T(";/nowhere")),
                testing::AllOf(HasSubstr("is not found in "), HasSubstr("; /nowhere"),
                               HasSubstr("did you mean 'Large plots.pc3'?")));
}

TEST(PlothostPaths, whyAFileIsNotWritten)
{
    const TemporaryFolder folder;
    EXPECT_THAT(whyNotWritten(folder.addFolder("d.pc3")), HasSubstr("it is a folder"));
    EXPECT_THAT(whyNotWritten(folder.at("no/x.pc3")), HasSubstr("there is no folder"));
    const OdString file = folder.addFile("x.pc3");
    EXPECT_EQ(whyNotWritten(file), "'" + odToUtf8(file) + "' cannot be written");
    EXPECT_EQ(whyNotWritten(file, "the disk is full"), "'" + odToUtf8(file) + "' cannot be written: the disk is full");
    EXPECT_THAT(whyNotWritten(folder.at("no/x.pc3"), "something"), testing::Not(HasSubstr("something")));
    const std::filesystem::path native(file.c_str());
    std::filesystem::permissions(native, std::filesystem::perms::owner_read);
    EXPECT_THAT(whyNotWritten(file), HasSubstr("it is read-only"));
    std::filesystem::permissions(native, std::filesystem::perms::owner_all);
    EXPECT_THAT(whyNotWritten(unusable), HasSubstr("cannot be written"));
}
