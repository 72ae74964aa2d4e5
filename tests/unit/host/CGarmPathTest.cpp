#include "host/CGarmPath.h"

#include <gtest/gtest.h>

#include <filesystem>

namespace
{
struct Split
{
    OdString path;
    OdString drive;
    OdString folder;
    OdString name;
    OdString extension;

    // Names the test case; the default name would be the raw bytes of the object, including its padding.
    friend std::ostream& operator<<(std::ostream& out, const Split& split) { return out << split.path; }
};

class PathSplit : public testing::TestWithParam<Split>
{
};
} // namespace

TEST_P(PathSplit, fourPartsMakeUpThePath)
{
    const Split& expected = GetParam();
    const CGarmPath path(expected.path);
    EXPECT_EQ(path.drive(), expected.drive);
    EXPECT_EQ(path.folder(), expected.folder);
    EXPECT_EQ(path.name(), expected.name);
    EXPECT_EQ(path.extension(), expected.extension);
    EXPECT_EQ(path.path(), expected.path);
    EXPECT_EQ(path.fileName(), expected.name + expected.extension);
    EXPECT_EQ(path.fullFolder(), expected.drive + expected.folder);
    EXPECT_EQ(path.hasFolder(), !expected.drive.isEmpty() || !expected.folder.isEmpty());
}

INSTANTIATE_TEST_SUITE_P(
    CGarmPath, PathSplit,
    testing::Values(Split{OD_T(""), OD_T(""), OD_T(""), OD_T(""), OD_T("")},
                    Split{OD_T("A0.pc3"), OD_T(""), OD_T(""), OD_T("A0"), OD_T(".pc3")},
                    Split{OD_T(".pc3"), OD_T(""), OD_T(""), OD_T(""), OD_T(".pc3")},
                    Split{OD_T("A0"), OD_T(""), OD_T(""), OD_T("A0"), OD_T("")},
                    Split{OD_T("A0."), OD_T(""), OD_T(""), OD_T("A0"), OD_T(".")},
                    Split{OD_T("A0.ctb.pc3"), OD_T(""), OD_T(""), OD_T("A0.ctb"), OD_T(".pc3")},
                    Split{OD_T("C:\\plots\\A0.pc3"), OD_T("C:"), OD_T("\\plots\\"), OD_T("A0"), OD_T(".pc3")},
                    Split{OD_T("z:A0.pc3"), OD_T("z:"), OD_T(""), OD_T("A0"), OD_T(".pc3")},
                    Split{OD_T("C:"), OD_T("C:"), OD_T(""), OD_T(""), OD_T("")},
                    Split{OD_T("1:A0"), OD_T(""), OD_T(""), OD_T("1:A0"), OD_T("")},
                    Split{OD_T("/plots/A0.pc3"), OD_T(""), OD_T("/plots/"), OD_T("A0"), OD_T(".pc3")},
                    Split{OD_T("a/b\\c.d/e"), OD_T(""), OD_T("a/b\\c.d/"), OD_T("e"), OD_T("")},
                    Split{OD_T("\\\\srv\\share\\A0.pc3"), OD_T(""), OD_T("\\\\srv\\share\\"), OD_T("A0"), OD_T(".pc3")},
                    Split{OD_T("plots\\"), OD_T(""), OD_T("plots\\"), OD_T(""), OD_T("")}));

TEST(CGarmPath, longPartsAreNotTruncated)
{
    const OdString longName(std::basic_string<OdChar>(5000, 'n'));
    const OdString longExtension = OD_T(".") + OdString(std::basic_string<OdChar>(4000, 'e'));
    const OdString longFolder = OD_T("\\") + OdString(std::basic_string<OdChar>(6000, 'f')) + OD_T("\\");
    const CGarmPath path(OD_T("C:") + longFolder + longName + longExtension);
    EXPECT_EQ(path.folder(), longFolder);
    EXPECT_EQ(path.name(), longName);
    EXPECT_EQ(path.extension(), longExtension);
}

TEST(CGarmPath, joinsWithOneSeparator)
{
    OdString separator;
    separator += static_cast<OdChar>(std::filesystem::path::preferred_separator);
    EXPECT_EQ(CGarmPath::join(OD_T("plots"), OD_T("A0.pc3")), OD_T("plots") + separator + OD_T("A0.pc3"));
    EXPECT_EQ(CGarmPath::join(OD_T("plots\\"), OD_T("A0.pc3")), OD_T("plots\\A0.pc3"));
    EXPECT_EQ(CGarmPath::join(OD_T("plots/"), OD_T("A0.pc3")), OD_T("plots/A0.pc3"));
    EXPECT_EQ(CGarmPath::join(OD_T("C:"), OD_T("A0.pc3")), OD_T("C:A0.pc3"));
    EXPECT_EQ(CGarmPath::join(OdString(), OD_T("A0.pc3")), OD_T("A0.pc3"));
}
