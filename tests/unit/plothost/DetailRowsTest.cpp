#include "plothost/DetailRows.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstring>

using namespace plothost;
using testing::Contains;

namespace
{
std::vector<BYTE> sampleDevMode()
{
    DEVMODEW devMode = {};
    devMode.dmSize = sizeof(devMode);
    devMode.dmDeviceName[0] = 'P';
    devMode.dmDeviceName[1] = 0x1B; // a control character
    devMode.dmFields = DM_ORIENTATION | DM_PAPERSIZE;
    devMode.dmOrientation = DMORIENT_LANDSCAPE;
    devMode.dmPaperSize = 9;
    devMode.dmScale = 50;
    std::vector<BYTE> bytes(sizeof(devMode));
    std::memcpy(bytes.data(), &devMode, sizeof(devMode));
    return bytes;
}
} // namespace

TEST(DetailRows, aConfigurationShowsItsAnswersAndItsDevMode)
{
    DevModeReport report;
    report.printerName = OD_T("P");
    report.paperName = OD_T("A4");
    report.driverType = 1;
    report.canonicalModelName = OD_T("M");
    report.devMode = sampleDevMode();
    const auto rows = configurationRows(report);
    ASSERT_GE(rows.size(), 4U);
    EXPECT_EQ(rows[0], (DetailRow{"Printer", "P", "", ""}));
    EXPECT_EQ(rows[1], (DetailRow{"Paper", "A4", "", ""}));
    EXPECT_EQ(rows[2], (DetailRow{"Driver type", "1", "Windows system printer", ""}));
    EXPECT_EQ(rows[3], (DetailRow{"Model", "M", "", ""}));
    EXPECT_THAT(rows, Contains(DetailRow{"dmSize", "220", "", ""}));
    EXPECT_THAT(rows, Contains(DetailRow{"dmDriverExtra", "0", "", ""}));
    EXPECT_THAT(rows, Contains(DetailRow{"dmFields", "0x3", "", ""}));
    EXPECT_THAT(rows, Contains(DetailRow{"dmOrientation", "2", "DMORIENT_LANDSCAPE", "yes"}));
    EXPECT_THAT(rows, Contains(DetailRow{"dmPaperSize", "9", "DMPAPER_A4", "yes"}));
    EXPECT_THAT(rows, Contains(DetailRow{"dmScale", "50", "", "no"}));
    EXPECT_THAT(rows, Contains(DetailRow{"dmDeviceName", "P\\u001B", "", ""})) << "shown, not obeyed";
}

TEST(DetailRows, anotherDriverTypeHasNoMeaning)
{
    DevModeReport report;
    report.driverType = 3;
    report.canonicalModelName = OD_T("M");
    EXPECT_THAT(configurationRows(report), Contains(DetailRow{"Driver type", "3", "", ""}));
}

TEST(DetailRows, withoutADevModeOneLineSaysSo)
{
    EXPECT_EQ(printerRows({}), (std::vector<DetailRow>{{"DEVMODE", "none", "", ""}}));
    const std::vector<BYTE> few(3);
    EXPECT_EQ(printerRows(few), (std::vector<DetailRow>{{"DEVMODE", "3 bytes are too few for a DEVMODEW", "", ""}}));
    DevModeReport report;
    report.paperName = OD_T("A4");
    EXPECT_THAT(configurationRows(report), Contains(DetailRow{"DEVMODE", "none", "", ""}));
}

TEST(DetailRows, aConfigurationThatCannotBeReadHasNone)
{
    EXPECT_TRUE(configurationRows({}).empty());
}

TEST(DetailRows, flagsWithoutANameAreTold)
{
    std::vector<BYTE> bytes = sampleDevMode();
    const DWORD strange = 0x40000002;
    std::memcpy(bytes.data() + offsetof(DEVMODEW, dmFields), &strange, sizeof(strange));
    EXPECT_THAT(printerRows(bytes), Contains(DetailRow{"dmFields", "0x40000002", "without a name: 0x40000000", ""}));
}

TEST(DetailRows, landscapeNeedsFlagAndValue)
{
    std::vector<BYTE> bytes = sampleDevMode();
    EXPECT_TRUE(isLandscape(bytes));
    const DWORD none = DM_PAPERSIZE;
    std::memcpy(bytes.data() + offsetof(DEVMODEW, dmFields), &none, sizeof(none));
    EXPECT_FALSE(isLandscape(bytes));
    EXPECT_FALSE(isLandscape({}));
}
