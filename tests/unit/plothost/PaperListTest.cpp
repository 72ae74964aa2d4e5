#include "plothost/PaperList.h"

#include <gtest/gtest.h>

#include <cstring>

using namespace plothost;

namespace
{
using Names = std::vector<OdString>;

const std::vector<DriverPaper> papers = {
    {OD_T("A4"), 9}, {OD_T("Roll"), 300}, {OD_T("a4"), 28}, {OD_T("Twin"), 28}, {OD_T("No code"), 0}};

std::vector<BYTE> devModeWith(DWORD fields, short paper)
{
    DEVMODEW devMode = {};
    devMode.dmSize = sizeof(devMode);
    devMode.dmFields = fields;
    devMode.dmPaperSize = paper;
    std::vector<BYTE> bytes(sizeof(devMode));
    std::memcpy(bytes.data(), &devMode, sizeof(devMode));
    return bytes;
}
} // namespace

TEST(PaperList, theDriversPapersInItsOrderAndThenCustom)
{
    EXPECT_EQ(paperList(papers, OD_T("A4")),
              (Names{OD_T("A4"), OD_T("Roll"), OD_T("a4"), OD_T("Twin"), OD_T("No code"), OD_T("Custom")}));
    EXPECT_EQ(paperList({}, {}), Names{OD_T("Custom")});
}

TEST(PaperList, customIsThereOnce)
{
    EXPECT_EQ(paperList({{OD_T("Custom"), 256}, {OD_T("A4"), 9}}, OD_T("Custom")), (Names{OD_T("Custom"), OD_T("A4")}));
    EXPECT_EQ(paperList({}, OD_T("Custom")), Names{OD_T("Custom")});
}

TEST(PaperList, aPaperThatTheDriverDoesNotHaveComesFirst)
{
    EXPECT_EQ(paperList({{OD_T("A4"), 9}}, OD_T("B9")), (Names{OD_T("B9"), OD_T("A4"), OD_T("Custom")}));
}

TEST(PaperList, anExactNameComesBeforeOneThatDiffersInCase)
{
    const Names names = {OD_T("A4"), OD_T("a4")};
    EXPECT_EQ(paperNamed(names, OD_T("a4")), 1U);
    EXPECT_EQ(paperNamed({OD_T("x"), OD_T("ROLL")}, OD_T("Roll")), 1U);
    EXPECT_EQ(paperNamed(names, OD_T("A5")), std::nullopt);
    EXPECT_EQ(paperNamed(names, {}), std::nullopt);
}

TEST(PaperList, thePaperOfADeviceModeIsFoundByItsCode)
{
    EXPECT_EQ(paperOf(devModeWith(DM_PAPERSIZE, 300), papers), OD_T("Roll"));
    EXPECT_EQ(paperOf(devModeWith(DM_PAPERSIZE, 28), papers), OD_T("a4")) << "the first of two with one code";
    EXPECT_EQ(paperOf(devModeWith(DM_PAPERSIZE, 7), papers), OD_T(""));
    EXPECT_EQ(paperOf(devModeWith(DM_PAPERSIZE, static_cast<short>(65535)), {{OD_T("Max"), 65535}}), OD_T("Max"));
    EXPECT_EQ(paperOf(devModeWith(0, 300), papers), OD_T("")) << "not flagged";
    EXPECT_EQ(paperOf({}, papers), OD_T(""));
}
