#include "GarmPC3Editor/GmPlotCfg3.h"
#include "tests/support/PrinterRoomTest.h"
#include "tests/support/TemporaryFolder.h"

#include <algorithm>

using room::Call;

namespace
{
class Configuration : public GmPlotCfg3
{
public:
    using GmPlotCfg3::resolvePrinterByDriver;
};

// The room has no printer yet; the configuration wants "Plotter A" on driver "Acme HP-GL".
class ResolvePrinter : public PrinterRoomTest
{
protected:
    ResolvePrinter()
    {
        cfg.m_meta.m_win_device_name = OD_T("Plotter A");
        cfg.m_meta.m_win_driver_name = OD_T("Acme HP-GL");
    }

    room::Printer& install(const OdChar* name, std::optional<room::Text> driver = OD_T("Acme HP-GL"),
                           bool connection = false)
    {
        return room.add({.name = name, .driver = std::move(driver), .connection = connection});
    }

    std::vector<room::CallRecord> passes() const
    {
        std::vector<room::CallRecord> found;
        std::ranges::copy_if(room.calls(), std::back_inserter(found),
                             [](const room::CallRecord& one) { return one.call == Call::enumPrinters; });
        return found;
    }

    const OdString& device() const { return cfg.m_meta.m_win_device_name; }

    Configuration cfg;
};
} // namespace

TEST_F(ResolvePrinter, theStoredPrinterWithItsDriverIsTheSamePrinter)
{
    install(OD_T("Plotter B"));
    install(OD_T("Plotter A"));
    EXPECT_EQ(cfg.resolvePrinterByDriver(), eSamePrinter);
    EXPECT_EQ(device(), OD_T("Plotter A"));
    EXPECT_TRUE(passes().empty());
}

TEST_F(ResolvePrinter, theDriverOfTheStoredPrinterMayDifferInLetterCase)
{
    install(OD_T("Plotter A"), OD_T("ACME hp-gl"));
    EXPECT_EQ(cfg.resolvePrinterByDriver(), eSamePrinter);
    EXPECT_EQ(cfg.m_meta.m_win_driver_name, OD_T("Acme HP-GL"));
    EXPECT_EQ(device(), OD_T("Plotter A"));
}

TEST_F(ResolvePrinter, aPrinterThatIsGoneIsReplacedByTheFirstLocalOneWithItsDriver)
{
    install(OD_T("Other"), OD_T("Another driver"));
    install(OD_T("Zebra"), OD_T("acme hp-gl"));
    install(OD_T("Aardvark"));
    EXPECT_EQ(cfg.resolvePrinterByDriver(), eOtherPrinter);
    EXPECT_EQ(device(), OD_T("Zebra"));
}

TEST_F(ResolvePrinter, aPrinterWithAnotherDriverNowIsReplacedToo)
{
    install(OD_T("Plotter A"), OD_T("Another driver"));
    install(OD_T("Plotter B"));
    EXPECT_EQ(cfg.resolvePrinterByDriver(), eOtherPrinter);
    EXPECT_EQ(device(), OD_T("Plotter B"));
}

TEST_F(ResolvePrinter, theWinnerMayBeTheVeryPrinterWhoseDriverCouldNotBeRead)
{
    install(OD_T("Plotter A"));
    room.refuse(Call::getPrinterDriver);
    EXPECT_EQ(cfg.resolvePrinterByDriver(), eOtherPrinter);
    EXPECT_EQ(device(), OD_T("Plotter A"));
}

TEST_F(ResolvePrinter, aConnectionIsTakenOnlyWhenNoLocalPrinterMatches)
{
    room.allowNetworkPass();
    install(OD_T("\\\\server\\Net"), OD_T("Acme HP-GL"), true);
    install(OD_T("Local"));
    EXPECT_EQ(cfg.resolvePrinterByDriver(), eOtherPrinter);
    EXPECT_EQ(device(), OD_T("Local"));

    room.remove(OD_T("Local"));
    EXPECT_EQ(cfg.resolvePrinterByDriver(), eOtherPrinter);
    EXPECT_EQ(device(), OD_T("\\\\server\\Net"));
}

TEST_F(ResolvePrinter, theTwoPassesAreTwoCallsInThatOrderAtLevel2)
{
    room.allowNetworkPass();
    install(OD_T("Local"), OD_T("D1"));
    install(OD_T("Net"), OD_T("D2"), true);
    EXPECT_EQ(cfg.resolvePrinterByDriver(), eNoPrinter);
    const auto calls = passes();
    ASSERT_EQ(calls.size(), 4U);
    for (std::size_t i = 0; i < 4; ++i)
    {
        EXPECT_EQ(calls[i].detail, i < 2 ? 2U : 0x64U);
        EXPECT_EQ(calls[i].fill, i % 2 == 1);
        EXPECT_EQ(calls[i].level, 2U);
    }
}

TEST_F(ResolvePrinter, withoutAnyPrinterOfThatDriverTheStoredNameStays)
{
    install(OD_T("Other"), OD_T("Another driver"));
    EXPECT_EQ(cfg.resolvePrinterByDriver(), eNoPrinter);
    EXPECT_EQ(device(), OD_T("Plotter A"));
}

TEST_F(ResolvePrinter, aRefusedNetworkPassAddsNothing)
{
    install(OD_T("Net"), OD_T("Acme HP-GL"), true);
    EXPECT_EQ(cfg.resolvePrinterByDriver(), eNoPrinter);
    EXPECT_EQ(passes().back().detail, 0x64U);
    EXPECT_FALSE(passes().back().fill);
}

TEST_F(ResolvePrinter, aLocalPassThatFailsIsFollowedByTheNetworkPass)
{
    room.allowNetworkPass();
    install(OD_T("Local"));
    install(OD_T("Net"), OD_T("Acme HP-GL"), true);
    // 1: opening fails anyway, the printer is deleted. 2: the size query, 3: the enumeration of the local pass.
    for (const int failing : {2, 3})
    {
        cfg.m_meta.m_win_device_name = OD_T("Plotter A");
        room.failNth(failing);
        EXPECT_EQ(cfg.resolvePrinterByDriver(), eOtherPrinter);
        EXPECT_TRUE(room.failureReached());
        EXPECT_EQ(device(), OD_T("Net"));
    }
}

TEST_F(ResolvePrinter, aPassWhoseSizeQuerySucceedsIsSkipped)
{
    install(OD_T("Local"));
    room.lies(Call::enumPrinters).sizeQuerySucceeds = true;
    EXPECT_EQ(cfg.resolvePrinterByDriver(), eNoPrinter);
    EXPECT_EQ(passes().size(), 2U);
}

TEST_F(ResolvePrinter, aPassThatReturnsNoPrintersIsSkipped)
{
    install(OD_T("Local"));
    room.lies(Call::enumPrinters).returned = 0;
    EXPECT_EQ(cfg.resolvePrinterByDriver(), eNoPrinter);
}

TEST_F(ResolvePrinter, recordsWithNullNamesAreSkipped)
{
    install(OD_T("No driver"), std::nullopt);
    install(OD_T("Nameless")).namedInRecords = false;
    install(OD_T("Plotter B"));
    EXPECT_EQ(cfg.resolvePrinterByDriver(), eOtherPrinter);
    EXPECT_EQ(device(), OD_T("Plotter B"));
}

TEST_F(ResolvePrinter, recordsThatLieDoNoHarm)
{
    install(OD_T("Plotter B"), OD_T("x"));
    room::RecordLies& lies = room.lies(Call::enumPrinters);
    lies = {.pointersOutside = true};
    EXPECT_EQ(cfg.resolvePrinterByDriver(), eNoPrinter);
    lies = {.returned = 0xFFFFFFFF};
    EXPECT_EQ(cfg.resolvePrinterByDriver(), eNoPrinter);
    lies = {.needed = 40, .fillsWhatFits = true};
    EXPECT_EQ(cfg.resolvePrinterByDriver(), eNoPrinter);
    lies = {.needed = 0xFFFFFFFF};
    EXPECT_EQ(cfg.resolvePrinterByDriver(), eNoPrinter);
}

TEST_F(ResolvePrinter, anEmptyStoredNameIsNoPrinterButTheDriverStillFindsOne)
{
    install(OD_T("Plotter B"));
    cfg.m_meta.m_win_device_name = OD_T("");
    EXPECT_EQ(cfg.resolvePrinterByDriver(), eOtherPrinter);
    EXPECT_EQ(device(), OD_T("Plotter B"));
    EXPECT_FALSE(room.calls().at(0).null);
}

TEST_F(ResolvePrinter, aPrinterThatGoesAwayAfterOpeningIsReplaced)
{
    install(OD_T("Plotter A"));
    install(OD_T("Plotter B"));
    room.onCall(Call::getPrinterDriver, OD_T("Plotter A"),
                [this](const room::CallRecord&) { room.remove(OD_T("Plotter A")); });
    EXPECT_EQ(cfg.resolvePrinterByDriver(), eOtherPrinter);
    EXPECT_EQ(device(), OD_T("Plotter B"));
}

TEST_F(ResolvePrinter, everyCallMayFailAndTheNameChangesOnlyForAnotherPrinter)
{
    room.allowNetworkPass();
    install(OD_T("Plotter B"), OD_T("Another driver"));
    install(OD_T("Net"), OD_T("Acme HP-GL"), true);
    install(OD_T("Plotter A"), OD_T("Another driver"));
    const int failures = failEachCall(
        room,
        [this]
        {
            cfg.m_meta.m_win_device_name = OD_T("Plotter A");
            return cfg.resolvePrinterByDriver();
        },
        [this](ResolvePrinterResult result, bool failed)
        {
            EXPECT_EQ(device(), result == eOtherPrinter ? OdString(OD_T("Net")) : OdString(OD_T("Plotter A")));
            EXPECT_TRUE(result == eOtherPrinter || (failed && result == eNoPrinter));
        });
    // Open, driver in two calls, close, and two passes of two calls.
    EXPECT_EQ(failures, 8);
}

TEST_F(ResolvePrinter, readingReportsWhetherThePrinterIsAnother)
{
    const TemporaryFolder folder;
    const OdString path = folder.at("bound.pc3");
    ASSERT_TRUE(cfg.write(path));

    room::Printer& printer = install(OD_T("Plotter A"), OD_T("acme HP-GL"));
    bool modified = true;
    OdSharedPtr<GmPlotCfg3> read = GmPlotCfg3::read(path, modified);
    ASSERT_TRUE(read);
    EXPECT_FALSE(modified);
    EXPECT_EQ(read->m_meta.m_win_device_name, OD_T("Plotter A"));

    install(OD_T("Plotter B"));
    printer.driver = OD_T("Another driver");
    read = GmPlotCfg3::read(path, modified);
    ASSERT_TRUE(read);
    EXPECT_TRUE(modified);
    EXPECT_EQ(read->m_meta.m_win_device_name, OD_T("Plotter B"));

    room.remove(OD_T("Plotter B"));
    EXPECT_FALSE(GmPlotCfg3::read(path, modified));
    EXPECT_FALSE(modified);
}

TEST_F(ResolvePrinter, readingAnswersNullWhenADriverThrows)
{
    const TemporaryFolder folder;
    const OdString path = folder.at("bound.pc3");
    ASSERT_TRUE(cfg.write(path));
    install(OD_T("Plotter B"));
    const int thrown = throwFromEachCall(
        room,
        [&path]
        {
            bool modified = false;
            return GmPlotCfg3::read(path, modified);
        },
        [](const OdSharedPtr<GmPlotCfg3>& read, bool spoiled) { EXPECT_EQ(read.isNull(), spoiled); });
    EXPECT_EQ(thrown, 3);
}
