#include "GarmPC3Editor/Printing/GmPrinterInfo.h"
#include "tests/support/PrinterRoomTest.h"

#include <algorithm>
#include <cstring>

using room::Call;

namespace
{
class PaperLists : public PrinterRoomTest
{
protected:
    room::Printer& printer = room.add({.name = OD_T("P"),
                                       .port = OD_T("LPT1:"),
                                       .papers = {{9, OD_T("A4")}, {8, OD_T("A3")}, {300, OD_T("Roll 24 in")}}});

    std::vector<room::CallRecord> callsOf(Call call) const
    {
        std::vector<room::CallRecord> found;
        std::ranges::copy_if(room.calls(), std::back_inserter(found),
                             [call](const room::CallRecord& one) { return one.call == call; });
        return found;
    }
};

DEVMODEW devModeWithCopies(short copies)
{
    DEVMODEW dm = {};
    dm.dmSize = sizeof dm;
    dm.dmFields = DM_COPIES;
    dm.dmCopies = copies;
    return dm;
}
} // namespace

TEST_F(PaperLists, papersHaveCodeAndName)
{
    GmPrinterInfo info(OD_T("P"));
    EXPECT_EQ(info.paperCount(), 3);
    EXPECT_EQ(info.paperId(2), 300);
    EXPECT_EQ(info.paperName(2), OD_T("Roll 24 in"));
    EXPECT_EQ(info.paperIndexById(8), 1);
    EXPECT_EQ(info.paperIndexById(10), -1);
    EXPECT_EQ(info.paperIndexByName(OD_T("A3")), 1);
    EXPECT_EQ(info.paperIndexByName(OD_T("A5")), -1);
    for (const int outside : {-1, 3, 2147483647})
    {
        EXPECT_EQ(info.paperId(outside), 0);
        EXPECT_EQ(info.paperName(outside), OD_T(""));
    }
}

// 0 is a code like any other if the driver delivered it, but not if the list was only cleared.
TEST_F(PaperLists, aDeliveredCodeOfZeroIsFound)
{
    printer.papers[1].code = 0;
    EXPECT_EQ(GmPrinterInfo(OD_T("P")).paperIndexById(0), 1);
    printer.lies.codesFilled = 1;
    printer.lies.codeFillAnswer = 1;
    EXPECT_EQ(GmPrinterInfo(OD_T("P")).paperIndexById(0), -1);
    EXPECT_EQ(GmPrinterInfo(OD_T("P")).paperIndexById(9), 0);
}

TEST_F(PaperLists, namesAreFoundWithoutRegardToCaseAndTheFirstOneWins)
{
    printer.papers.push_back({301, OD_T("a4")});
    printer.papers.push_back({9, OD_T("again")});
    GmPrinterInfo info(OD_T("P"));
    EXPECT_EQ(info.paperIndexByName(OD_T("a4")), 0);
    EXPECT_EQ(info.paperIndexByName(OD_T("ROLL 24 IN")), 2);
    EXPECT_EQ(info.paperIndexById(9), 0);
}

TEST_F(PaperLists, codesCompareAsUnsigned16Bit)
{
    printer.papers = {{65535, OD_T("last")}, {0x8000, OD_T("half")}};
    GmPrinterInfo info(OD_T("P"));
    EXPECT_EQ(info.paperIndexById(-1), 0);
    EXPECT_EQ(info.paperIndexById(65535), 0);
    EXPECT_EQ(info.paperIndexById(-32768), 1);
    EXPECT_EQ(info.paperIndexById(0x8000), 1);
}

TEST_F(PaperLists, theListsAreAskedForWithAHandleOfTheirOwnThePortAndThePrintersOwnDeviceMode)
{
    GmPrinterInfo info(OD_T("P"));
    info.paperCount();
    EXPECT_EQ(room.count(Call::openPrinter), 2);
    EXPECT_EQ(room.openHandles(), 1); // the second is closed again
    EXPECT_EQ(callsOf(Call::getPrinter).at(0).detail, 2U);

    const auto asked = callsOf(Call::deviceCapabilities);
    ASSERT_EQ(asked.size(), 4U);
    const WORD capabilities[] = {DC_PAPERS, DC_PAPERNAMES, DC_PAPERS, DC_PAPERNAMES};
    for (std::size_t i = 0; i < 4; ++i)
    {
        EXPECT_EQ(asked[i].detail, capabilities[i]);
        EXPECT_EQ(asked[i].fill, i >= 2);
        EXPECT_EQ(asked[i].text, OD_T("LPT1:"));
        EXPECT_EQ(asked[i].devMode.size(), 228U);
    }
}

TEST_F(PaperLists, aGivenDeviceModeGoesBeforeThePrintersOwn)
{
    const DEVMODEW mine = devModeWithCopies(17);
    GmPrinterInfo info(OD_T("P"), &mine);
    info.paperCount();
    for (const room::CallRecord& call : callsOf(Call::deviceCapabilities))
    {
        ASSERT_EQ(call.devMode.size(), sizeof mine);
        EXPECT_EQ(std::memcmp(call.devMode.data(), &mine, sizeof mine), 0);
    }
}

TEST_F(PaperLists, aNullPortAndANullDeviceModeArePassedOnAsNull)
{
    printer.port = std::nullopt;
    printer.hasDevMode = false;
    GmPrinterInfo info(OD_T("P"));
    EXPECT_EQ(info.paperCount(), 3);
    for (const room::CallRecord& call : callsOf(Call::deviceCapabilities))
    {
        EXPECT_TRUE(call.null);
        EXPECT_TRUE(call.devMode.empty());
    }
}

TEST_F(PaperLists, aMisalignedDeviceModeOfTheSystemIsHandedOnWhole)
{
    room.lies(Call::getPrinter).oddBlocks = true;
    GmPrinterInfo info(OD_T("P"));
    EXPECT_EQ(info.paperCount(), 3);
    EXPECT_EQ(callsOf(Call::deviceCapabilities).at(0).devMode.size(), 228U);
}

TEST_F(PaperLists, aDeviceModeThatClaimsMoreThanTheRecordHoldsIsNotShownToTheDriver)
{
    printer.tune = [](DEVMODEW& dm) { dm.dmDriverExtra = 65535; };
    GmPrinterInfo info(OD_T("P"));
    EXPECT_EQ(info.paperCount(), 3);
    EXPECT_TRUE(callsOf(Call::deviceCapabilities).at(0).devMode.empty());
}

TEST_F(PaperLists, aSecondRecordThatPointsOutsideItselfIsUsedWithoutPortAndDeviceMode)
{
    room.lies(Call::getPrinter).pointersOutside = true;
    GmPrinterInfo info(OD_T("P"));
    EXPECT_EQ(info.paperCount(), 3);
    EXPECT_TRUE(callsOf(Call::deviceCapabilities).at(0).null);
    EXPECT_TRUE(callsOf(Call::deviceCapabilities).at(0).devMode.empty());
}

TEST_F(PaperLists, listsAreLoadedOnceAndNeverRefreshed)
{
    GmPrinterInfo info(OD_T("P"));
    info.paperCount();
    printer.papers.clear();
    EXPECT_EQ(info.paperCount(), 3);
    EXPECT_EQ(info.paperIndexById(9), 0);
    EXPECT_EQ(room.count(Call::deviceCapabilities), 4);
}

TEST_F(PaperLists, anEmptyListIsLoadedToo)
{
    printer.papers.clear();
    GmPrinterInfo info(OD_T("P"));
    EXPECT_EQ(info.paperCount(), 0);
    printer.papers = {{9, OD_T("A4")}};
    EXPECT_EQ(info.paperCount(), 0);
    EXPECT_EQ(info.paperIndexByName(OD_T("")), -1);
    EXPECT_EQ(info.paperIndexById(0), -1);
}

TEST_F(PaperLists, listsThatCouldNotBeLoadedAreTriedAgainWithTheNextQuestion)
{
    GmPrinterInfo info(OD_T("P"));
    // The calls of one loading: open, size and record, two counts. A failing fill does not fail the loading.
    for (const int failing : {1, 2, 3, 4, 5})
    {
        room.failNth(failing);
        EXPECT_EQ(info.paperCount(), 0) << failing;
        EXPECT_TRUE(room.failureReached()) << failing;
    }
    EXPECT_EQ(info.paperCount(), 3);
}

TEST_F(PaperLists, aRecordWhoseSizeQuerySucceedsLeavesTheListsUnloaded)
{
    GmPrinterInfo info(OD_T("P"));
    room.lies(Call::getPrinter).sizeQuerySucceeds = true;
    EXPECT_EQ(info.paperIndexById(9), -1);
    EXPECT_EQ(room.count(Call::deviceCapabilities), 0);
    room.lies(Call::getPrinter) = {};
    EXPECT_EQ(info.paperIndexById(9), 0);
}

TEST_F(PaperLists, countsThatAreNegativeOrCannotBeLeaveTheListsUnloaded)
{
    GmPrinterInfo info(OD_T("P"));
    for (const int count : {-1, 65537, 2147483647})
    {
        printer.lies = {.codeCount = count};
        EXPECT_EQ(info.paperCount(), 0) << count;
        printer.lies = {.nameCount = count};
        EXPECT_EQ(info.paperCount(), 0) << count;
    }
    EXPECT_TRUE(std::ranges::none_of(callsOf(Call::deviceCapabilities), &room::CallRecord::fill));
    printer.lies = {};
    EXPECT_EQ(info.paperCount(), 3);
}

TEST_F(PaperLists, asManyPapersAsThereAreCodesAreNotTooMany)
{
    for (const bool names : {false, true})
    {
        printer.lies = {};
        (names ? printer.lies.nameCount : printer.lies.codeCount) = 65536;
        GmPrinterInfo info(OD_T("P"));
        EXPECT_EQ(info.paperCount(), names ? 3 : 65536);
        EXPECT_EQ(info.paperIndexById(300), 2);
    }
}

TEST_F(PaperLists, withoutAHandleOfTheirOwnNothingIsAsked)
{
    GmPrinterInfo info(OD_T("P"));
    room.failNth(1);
    EXPECT_EQ(info.paperCount(), 0);
    EXPECT_EQ(room.count(Call::getPrinter), 0);
}

TEST_F(PaperLists, aDriverThatDeliversTwiceAsMuchStaysInItsRoom)
{
    printer.papers.clear();
    for (int i = 0; i < 64; ++i)
        printer.papers.push_back({400 + i, OD_T("new")});
    printer.lies = {.codeCount = 0, .nameCount = 0};
    GmPrinterInfo info(OD_T("P"));
    EXPECT_EQ(info.paperCount(), 0);
    EXPECT_EQ(info.paperName(0), OD_T(""));
}

TEST_F(PaperLists, namesBehindTheAnnouncedOnesAreNone)
{
    printer.lies = {.nameCount = 1};
    GmPrinterInfo info(OD_T("P"));
    EXPECT_EQ(info.paperCount(), 3);
    EXPECT_EQ(info.paperName(0), OD_T("A4"));
    EXPECT_EQ(info.paperName(1), OD_T(""));
    EXPECT_EQ(info.paperIndexByName(OD_T("A3")), -1);
    EXPECT_EQ(info.paperIndexById(8), 1);
}

TEST_F(PaperLists, theOnlyPaperMayHaveTheCode0AndAnEmptyName)
{
    printer.papers = {{0, OD_T("")}};
    GmPrinterInfo info(OD_T("P"));
    EXPECT_EQ(info.paperIndexById(0), 0);
    EXPECT_EQ(info.paperIndexByName(OD_T("")), 0);
}

TEST_F(PaperLists, withMoreNamesThanCodesOnlyTheFirstNamesAreSearched)
{
    printer.papers = {{9, OD_T("")}, {8, OD_T("")}};
    printer.paperNames = {OD_T("A4"), OD_T("A3"), OD_T("A2")};
    GmPrinterInfo info(OD_T("P"));
    EXPECT_EQ(info.paperCount(), 2);
    EXPECT_EQ(info.paperIndexByName(OD_T("a3")), 1);
    EXPECT_EQ(info.paperIndexByName(OD_T("A2")), -1);
    EXPECT_EQ(info.paperName(2), OD_T(""));
}

TEST_F(PaperLists, withFewerNamesThanCodesASlotWithoutNameNeverMatches)
{
    printer.paperNames = {OD_T("A4")};
    GmPrinterInfo info(OD_T("P"));
    EXPECT_EQ(info.paperCount(), 3);
    EXPECT_EQ(info.paperIndexByName(OD_T("A4")), 0);
    EXPECT_EQ(info.paperIndexByName(OD_T("")), -1);
    EXPECT_EQ(info.paperName(1), OD_T(""));
    EXPECT_EQ(info.paperIndexById(300), 2);
}

TEST_F(PaperLists, anEmptyNameThatTheDriverDidGiveMatchesTheEmptyName)
{
    printer.paperNames = {OD_T("A4"), OD_T(""), OD_T("A2")};
    GmPrinterInfo info(OD_T("P"));
    EXPECT_EQ(info.paperIndexByName(OD_T("")), 1);
}

TEST_F(PaperLists, aFillThatDeliversLessLeavesTheRestWithoutNameAndCode)
{
    printer.lies = {.codesFilled = 1, .namesFilled = 1};
    GmPrinterInfo info(OD_T("P"));
    EXPECT_EQ(info.paperCount(), 3);
    EXPECT_EQ(info.paperIndexByName(OD_T("A4")), 0);
    EXPECT_EQ(info.paperIndexByName(OD_T("A3")), -1);
    EXPECT_EQ(info.paperIndexByName(OD_T("")), -1);
    EXPECT_EQ(info.paperIndexById(0), -1);
    EXPECT_EQ(info.paperId(1), 0);
}

TEST_F(PaperLists, whatAFillWroteCountsWhateverItAnswers)
{
    for (const int answer : {-1, 0, 99})
    {
        printer.lies = {.codeFillAnswer = answer, .nameFillAnswer = answer};
        GmPrinterInfo info(OD_T("P"));
        EXPECT_EQ(info.paperIndexByName(OD_T("Roll 24 in")), 2) << answer;
        EXPECT_EQ(info.paperIndexById(300), 2) << answer;
    }
}

TEST_F(PaperLists, papersThatCameBetweenCountAndFillAreIgnored)
{
    room.onCall(Call::deviceCapabilities, OD_T("P"),
                [this](const room::CallRecord& call)
                {
                    if (call.fill && printer.papers.size() == 3)
                        for (int i = 0; i < 60; ++i)
                            printer.papers.push_back({400 + i, OD_T("new")});
                });
    GmPrinterInfo info(OD_T("P"));
    EXPECT_EQ(info.paperCount(), 3);
    EXPECT_EQ(info.paperIndexById(400), -1);
    EXPECT_EQ(info.paperIndexByName(OD_T("new")), -1);
    EXPECT_EQ(info.paperIndexById(300), 2);
}

TEST_F(PaperLists, papersThatWentBetweenCountAndFillHaveNoNameAndNoCode)
{
    room.onCall(Call::deviceCapabilities, OD_T("P"),
                [this](const room::CallRecord& call)
                {
                    if (call.fill)
                        printer.papers.resize(1);
                });
    GmPrinterInfo info(OD_T("P"));
    EXPECT_EQ(info.paperCount(), 3);
    EXPECT_EQ(info.paperIndexById(9), 0);
    EXPECT_EQ(info.paperIndexById(8), -1);
    EXPECT_EQ(info.paperName(1), OD_T(""));
}

TEST_F(PaperLists, aPrinterThatGoesAwayWhileTheListsLoadLeavesPapersWithoutNames)
{
    room.onCall(Call::deviceCapabilities, OD_T("P"),
                [this](const room::CallRecord& call)
                {
                    if (call.fill)
                        room.remove(OD_T("P"));
                });
    GmPrinterInfo info(OD_T("P"));
    EXPECT_EQ(info.paperCount(), 3);
    EXPECT_EQ(info.paperIndexById(9), -1);
    EXPECT_EQ(info.paperIndexById(0), -1);
    EXPECT_EQ(info.paperIndexByName(OD_T("")), -1);
}

TEST_F(PaperLists, aNameOf64UnitsHasNoTerminatorAndEndsWithItsSlot)
{
    const room::Text longName(64, 'n');
    printer.papers = {{300, longName}, {301, OD_T("next")}};
    GmPrinterInfo info(OD_T("P"));
    EXPECT_EQ(info.paperName(0), longName);
    EXPECT_EQ(info.paperIndexByName(longName), 0);
    EXPECT_EQ(info.paperIndexByName(longName + OD_T("next")), -1);
    EXPECT_EQ(info.paperIndexByName(OD_T("next")), 1);
}

TEST_F(PaperLists, everyCallMayFailAndNothingStaysOpen)
{
    const int failures = failEachCall(
        room,
        []
        {
            GmPrinterInfo info(OD_T("P"));
            return info.isOpen() ? info.paperIndexByName(OD_T("a3")) : -2;
        },
        [](int index, bool failed) { EXPECT_TRUE(failed || index == 1); });
    // Two handles opened and closed, one record in two calls, two lists in two calls each.
    EXPECT_EQ(failures, 10);
}
