#include "GarmPC3Editor/Decisions/GeneralTab.h"

#include "tests/support/PrinterRoomTest.h"
#include "tests/unit/decisions/FakeTexts.h"

using room::Call;

namespace
{
class GeneralTexts : public PrinterRoomTest
{
protected:
    OdString port() const { return portLine(cfg, fakeTexts()); }

    GmPlotCfg3 cfg;
};

OdSharedPtr<GmPlotCfg3> configuration(const OdChar* printer, const OdChar* driver, std::int32_t driverVersion)
{
    OdSharedPtr<GmPlotCfg3> cfg(new GmPlotCfg3);
    cfg->m_meta.m_win_device_name = printer;
    cfg->m_meta.m_short_net_name = printer;
    cfg->m_meta.m_win_driver_name = driver;
    cfg->m_meta.m_dm_driver_version = driverVersion;
    return cfg;
}
} // namespace

TEST_F(GeneralTexts, driverLineNamesSystemDriverOrModel)
{
    cfg.m_meta.m_localized_family_name = OD_T("Files");
    cfg.m_meta.m_localized_model_name = OD_T("Raster");
    EXPECT_EQ(driverLine(cfg.m_meta, fakeTexts()), OD_T("[210]Files/Raster"));
    cfg.m_meta.m_win_device_name = OD_T("Plotter A");
    EXPECT_EQ(driverLine(cfg.m_meta, fakeTexts()), OD_T("[209]"));
}

TEST_F(GeneralTexts, driverFileLosesItsFolder)
{
    cfg.m_meta.m_driver_pathname = OD_T("C:\\drv\\gdiplot7.hdi");
    EXPECT_EQ(driverFile(cfg.m_meta), OD_T("gdiplot7.hdi"));
    cfg.m_meta.m_driver_version = OD_T("not specified");
    EXPECT_EQ(versionLine(cfg.m_meta, fakeTexts()), OD_T("[211]not specified"));
}

TEST_F(GeneralTexts, portLineShowsTheFirstThatApplies)
{
    room.add({.name = OD_T("Plotter A"), .port = OD_T("LPT1:")});
    EXPECT_EQ(port(), OD_T("[213]"));
    cfg.m_meta.m_win_device_name = OD_T("Plotter A");
    EXPECT_EQ(port(), OD_T("[213]LPT1:"));
    cfg.m_io.m_plot_to_file = true;
    EXPECT_EQ(port(), OD_T("[213][215]"));
    cfg.m_meta.m_config_autospool = true;
    EXPECT_EQ(port(), OD_T("[213][214]"));
}

TEST_F(GeneralTexts, printerThatCannotBeOpenedLeavesLeadingText)
{
    cfg.m_meta.m_win_device_name = OD_T("Gone");
    EXPECT_EQ(port(), OD_T("[213]"));
    room.add({.name = OD_T("Gone"), .port = std::nullopt});
    EXPECT_EQ(port(), OD_T("[213]"));
}

TEST_F(GeneralTexts, anAbsentPrinterIsNamedInItsEntry)
{
    EXPECT_EQ(notInstalledEntry(OD_T("Gone"), fakeTexts()), OD_T("[103]Gone"));
}

TEST_F(GeneralTexts, wineNeedsLevel5ForNames)
{
    room.allowNetworkPass();
    room.add({.name = OD_T("Net"), .connection = true});
    room.add({.name = OD_T("B")});
    room.add({.name = OD_T("A")});
    const std::vector<OdString> all = {OD_T("B"), OD_T("A"), OD_T("Net")};
    for (const bool underWine : {false, true})
    {
        room.forgetCalls();
        EXPECT_EQ(printerNames([underWine] { return underWine; }), all);
        EXPECT_EQ(room.count(Call::enumPrinters), 4);
        for (const room::CallRecord& call : room.calls())
            EXPECT_EQ(call.level, underWine ? 5U : 1U);
    }
}

TEST_F(GeneralTexts, eachOfTwoPassesAsksForWineOnce)
{
    room.allowNetworkPass();
    room.add({.name = OD_T("A")});
    room.add({.name = OD_T("Net"), .connection = true});
    int asked = 0;
    // Wine in the first pass only: each pass asks again.
    printerNames([&asked] { return ++asked == 1; });
    EXPECT_EQ(asked, 2);
    std::vector<std::pair<DWORD, DWORD>> passes;
    for (const room::CallRecord& call : room.calls())
        if (call.fill)
            passes.emplace_back(call.detail, call.level);
    const std::vector<std::pair<DWORD, DWORD>> expected = {{2, 5}, {100, 1}};
    EXPECT_EQ(passes, expected);
}

TEST_F(GeneralTexts, refusedPassAndNamelessPrinterAddNothing)
{
    const auto noWine = [] { return false; };
    room.add({.name = OD_T("A"), .namedInRecords = false});
    EXPECT_TRUE(printerNames(noWine).empty());
    room.add({.name = OD_T("B")});
    EXPECT_EQ(printerNames(noWine), std::vector<OdString>{OD_T("B")});
    room.refuse(Call::enumPrinters);
    EXPECT_TRUE(printerNames(noWine).empty());
}

TEST_F(GeneralTexts, failedPassAddsNothingAndTheOtherRuns)
{
    room.allowNetworkPass();
    room.add({.name = OD_T("A")});
    room.add({.name = OD_T("Net"), .connection = true});
    const std::vector<OdString> all = {OD_T("A"), OD_T("Net")};
    for (const Sabotage sabotage : {&PrinterRoom::failNth, &PrinterRoom::throwNth})
    {
        std::vector<std::vector<OdString>> seen;
        const int spoiled = spoilEachCall(
            room, sabotage, [] { return printerNames([] { return false; }); },
            [&](const std::vector<OdString>& names, bool wasSpoiled)
            {
                EXPECT_EQ(names == all, !wasSpoiled);
                seen.push_back(names);
            });
        ASSERT_EQ(spoiled, 4);
        const std::vector<OdString> first = {OD_T("A")};
        const std::vector<OdString> second = {OD_T("Net")};
        EXPECT_EQ(seen, (std::vector<std::vector<OdString>>{second, second, first, first, all}));
    }
}

TEST_F(GeneralTexts, failingPrintersPortLineIsItsLabel)
{
    room.add({.name = OD_T("Plotter A"), .port = OD_T("LPT1:")});
    cfg.m_meta.m_win_device_name = OD_T("Plotter A");
    for (const Sabotage sabotage : {&PrinterRoom::failNth, &PrinterRoom::throwNth})
    {
        const int spoiled = spoilEachCall(
            room, sabotage, [this] { return port(); },
            [](const OdString& line, bool)
            { EXPECT_TRUE(line == OD_T("[213]") || line == OD_T("[213]LPT1:")) << line; });
        EXPECT_GT(spoiled, 1);
    }
}

TEST(PrinterExchange, printerOnSameDriverGivesOnlyItsName)
{
    const OdSharedPtr<GmPlotCfg3> cfg = configuration(OD_T("A"), OD_T("Acme HP-GL"), 3);
    cfg->m_media.m_number_of_copies = 7;
    const OdSharedPtr<GmPlotCfg3> chosen = configuration(OD_T("B"), OD_T("ACME hp-gl"), 3);
    EXPECT_EQ(exchangedForPrinter(cfg, chosen), cfg);
    EXPECT_EQ(cfg->m_meta.m_win_device_name, OD_T("B"));
    EXPECT_EQ(cfg->m_meta.m_short_net_name, OD_T("A"));
    EXPECT_EQ(cfg->m_meta.m_win_driver_name, OD_T("Acme HP-GL"));
    EXPECT_EQ(cfg->m_media.m_number_of_copies, 7);
}

TEST(PrinterExchange, anotherDriverOrVersionBringsTheNewConfiguration)
{
    const OdSharedPtr<GmPlotCfg3> cfg = configuration(OD_T("A"), OD_T("Acme HP-GL"), 3);
    for (const OdSharedPtr<GmPlotCfg3>& chosen :
         {configuration(OD_T("B"), OD_T("Acme HP-GL"), 4), configuration(OD_T("B"), OD_T("Acme HP-GL2"), 3)})
    {
        EXPECT_EQ(exchangedForPrinter(cfg, chosen), chosen);
        EXPECT_EQ(cfg->m_meta.m_win_device_name, OD_T("A"));
    }
}
