#include "files/PathStart.h"

#include <gtest/gtest.h>

namespace
{
struct Form
{
    OdString path;
    PathKind kind;
    std::size_t rootLength;

    // Names the test case.
    friend std::ostream& operator<<(std::ostream& out, const Form& form) { return out << form.path; }
};

class PathForm : public testing::TestWithParam<Form>
{
};

const Form forms[] = {
    {OD_T(""), PathKind::relative, 0},
    {OD_T("A0.pc3"), PathKind::relative, 0},
    {OD_T("."), PathKind::relative, 0},
    {OD_T("..\\A0.pc3"), PathKind::relative, 0},
    {OD_T("plots\\A0.pc3"), PathKind::relative, 0},
    {OD_T("plots/A0.pc3"), PathKind::relative, 0},
    {OD_T("?\\A0.pc3"), PathKind::relative, 0},
    {OD_T("UNC\\srv\\plots"), PathKind::relative, 0},
    {OD_T("1:A0.pc3"), PathKind::relative, 0},
    {OD_T(":A0.pc3"), PathKind::relative, 0},
    {OD_T("\u00C4:\\A0.pc3"), PathKind::relative, 0},
    {OD_T("CC:\\A0.pc3"), PathKind::relative, 0},

    {OD_T("\\"), PathKind::rooted, 1},
    {OD_T("/"), PathKind::rooted, 1},
    {OD_T("\\plots\\A0.pc3"), PathKind::rooted, 1},
    {OD_T("/plots/A0.pc3"), PathKind::rooted, 1},
    {OD_T("\\?\?\\C:\\A0.pc3"), PathKind::rooted, 1},

    {OD_T("C:"), PathKind::driveRelative, 2},
    {OD_T("z:A0.pc3"), PathKind::driveRelative, 2},
    {OD_T("C:..\\A0.pc3"), PathKind::driveRelative, 2},

    {OD_T("C:\\"), PathKind::drive, 3},
    {OD_T("C:/"), PathKind::drive, 3},
    {OD_T("a:\\A0.pc3"), PathKind::drive, 3},
    {OD_T("Z:/plots/A0.pc3"), PathKind::drive, 3},
    {OD_T("C:\\\\A0.pc3"), PathKind::drive, 3},
    {OD_T("C:\\nulls\\contents.pc3"), PathKind::drive, 3},
    {OD_T("C:\\nul\\A0.pc3"), PathKind::drive, 3},

    {OD_T("\\\\"), PathKind::share, 2},
    {OD_T("\\\\srv"), PathKind::share, 5},
    {OD_T("\\\\srv\\"), PathKind::share, 6},
    {OD_T("\\\\srv\\plots"), PathKind::share, 11},
    {OD_T("\\\\srv\\plots\\"), PathKind::share, 12},
    {OD_T("\\\\srv\\plots\\A0.pc3"), PathKind::share, 12},
    {OD_T("//srv/plots/A0.pc3"), PathKind::share, 12},
    {OD_T("\\/srv\\plots/A0.pc3"), PathKind::share, 12},
    {OD_T("\\\\srv\\plots\\nul"), PathKind::share, 12},
    {OD_T("\\\\10.0.0.1\\c$\\A0.pc3"), PathKind::share, 14},
    {OD_T("\\\\?x\\plots\\A0.pc3"), PathKind::share, 11},
    {OD_T("\\\\.x\\plots\\A0.pc3"), PathKind::share, 11},

    {OD_T("\\\\?"), PathKind::extended, 3},
    {OD_T("\\\\?\\"), PathKind::extended, 4},
    {OD_T("\\\\?\\C:"), PathKind::extended, 6},
    {OD_T("\\\\?\\C:\\"), PathKind::extended, 7},
    {OD_T("\\\\?\\C:\\plots\\A0.pc3"), PathKind::extended, 7},
    {OD_T("//?/C:/plots/A0.pc3"), PathKind::extended, 7},
    {OD_T("\\\\?\\C:\\nul"), PathKind::extended, 7},
    {OD_T("\\\\?\\Volume{4c1b02c1}\\A0.pc3"), PathKind::extended, 21},
    {OD_T("\\\\?\\UNCLE\\A0.pc3"), PathKind::extended, 10},

    {OD_T("\\\\?\\UNC"), PathKind::extendedShare, 7},
    {OD_T("\\\\?\\UNC\\"), PathKind::extendedShare, 8},
    {OD_T("\\\\?\\UNC\\srv"), PathKind::extendedShare, 11},
    {OD_T("\\\\?\\UNC\\srv\\plots"), PathKind::extendedShare, 17},
    {OD_T("\\\\?\\UNC\\srv\\plots\\A0.pc3"), PathKind::extendedShare, 18},
    {OD_T("//?/unc/srv/plots/A0.pc3"), PathKind::extendedShare, 18},

    {OD_T("\\\\."), PathKind::device, 3},
    {OD_T("\\\\.\\"), PathKind::device, 4},
    {OD_T("\\\\.\\COM1"), PathKind::device, 8},
    {OD_T("//./pipe/A0.pc3"), PathKind::device, 9},
    {OD_T("\\\\.\\C:\\A0.pc3"), PathKind::device, 7},

    {OD_T("NUL"), PathKind::deviceName, 0},
    {OD_T("nul.pc3"), PathKind::deviceName, 0},
    {OD_T("nul:"), PathKind::deviceName, 0},
    {OD_T("con .pc3"), PathKind::deviceName, 0},
    {OD_T("plots\\aux.pc3"), PathKind::deviceName, 0},
    {OD_T("C:prn"), PathKind::deviceName, 2},
    {OD_T("C:\\plots\\com9.a.pc3"), PathKind::deviceName, 3},
    {OD_T("\\plots\\LPT1"), PathKind::deviceName, 1},
    {OD_T("COM\u00B2.pc3"), PathKind::deviceName, 0},
    {OD_T("CONOUT$"), PathKind::deviceName, 0},
    {OD_T("conin$"), PathKind::deviceName, 0},
    {OD_T("com0.pc3"), PathKind::relative, 0},
    {OD_T("com10.pc3"), PathKind::relative, 0},
    {OD_T("xcom1.pc3"), PathKind::relative, 0},
    {OD_T("lpt"), PathKind::relative, 0},
    {OD_T("nul x.pc3"), PathKind::relative, 0},
};

// A path and its parent folder, or its form without a length limit.
struct Pair
{
    const OdChar* path;
    const OdChar* other;
};
} // namespace

TEST_P(PathForm, isDeterminedByTheText)
{
    const Form& form = GetParam();
    const PathStart start = pathStart(form.path);
    EXPECT_EQ(start.kind, form.kind);
    EXPECT_EQ(start.rootLength, form.rootLength);
    EXPECT_EQ(isJoinable(start.kind), form.kind == PathKind::relative);
}

INSTANTIATE_TEST_SUITE_P(PathStart, PathForm, testing::ValuesIn(forms));

TEST(PathStart, aParentNeverGoesAboveTheRoot)
{
    for (const auto& [path, parent] :
         {Pair{OD_T("C:\\plots\\A0.pc3"), OD_T("C:\\plots")}, Pair{OD_T("C:\\plots\\\\A0.pc3"), OD_T("C:\\plots")},
          Pair{OD_T("C:\\A0.pc3"), OD_T("C:\\")}, Pair{OD_T("C:\\"), OD_T("C:\\")}, Pair{OD_T("C:A0.pc3"), OD_T("C:")},
          Pair{OD_T("\\\\srv\\plots\\A0.pc3"), OD_T("\\\\srv\\plots\\")},
          Pair{OD_T("\\\\srv\\plots\\a\\A0.pc3"), OD_T("\\\\srv\\plots\\a")},
          Pair{OD_T("\\\\srv\\plots"), OD_T("\\\\srv\\plots")}, Pair{OD_T("\\\\?\\C:\\A0.pc3"), OD_T("\\\\?\\C:\\")},
          Pair{OD_T("\\\\?\\C:\\a\\A0.pc3"), OD_T("\\\\?\\C:\\a")},
          Pair{OD_T("\\\\?\\UNC\\srv\\plots\\A0.pc3"), OD_T("\\\\?\\UNC\\srv\\plots\\")},
          Pair{OD_T("/A0.pc3"), OD_T("/")}, Pair{OD_T("/plots/A0.pc3"), OD_T("/plots")},
          Pair{OD_T("plots/A0.pc3"), OD_T("plots")}, Pair{OD_T("plots\\"), OD_T("plots")},
          Pair{OD_T("A0.pc3"), OD_T("")}, Pair{OD_T(""), OD_T("")}})
        EXPECT_EQ(parentFolder(path), parent) << OdString(path);
}

TEST(PathStart, onlyFullPathsHaveAnExtendedForm)
{
    for (const auto& [path, extended] :
         {Pair{OD_T("C:\\plots\\A0.pc3"), OD_T("\\\\?\\C:\\plots\\A0.pc3")},
          Pair{OD_T("\\\\srv\\plots\\A0.pc3"), OD_T("\\\\?\\UNC\\srv\\plots\\A0.pc3")},
          Pair{OD_T("\\\\?\\C:\\A0.pc3"), OD_T("\\\\?\\C:\\A0.pc3")},
          Pair{OD_T("\\\\?\\UNC\\srv\\plots"), OD_T("\\\\?\\UNC\\srv\\plots")},
          Pair{OD_T("\\\\.\\NUL"), OD_T("\\\\.\\NUL")}, Pair{OD_T("C:A0.pc3"), OD_T("C:A0.pc3")},
          Pair{OD_T("\\A0.pc3"), OD_T("\\A0.pc3")}, Pair{OD_T("A0.pc3"), OD_T("A0.pc3")}, Pair{OD_T(""), OD_T("")}})
        EXPECT_EQ(extendedPath(path), extended) << OdString(path);
}
