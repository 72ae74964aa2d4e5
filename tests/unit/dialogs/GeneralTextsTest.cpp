#include "GarmPC3Editor/Dialogs/GeneralTexts.h"

#include "tests/support/PrinterRoomTest.h"
#include "tests/unit/dialogs/FakeTexts.h"

using room::Call;

namespace
{
class GeneralTexts : public PrinterRoomTest
{
protected:
    OdString port() const { return portLine(cfg, fakeTexts()); }

    GmPlotCfg3 cfg;
};
} // namespace

TEST_F(GeneralTexts, driverLineTellsSystemDriverOrFamilyAndModel)
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

TEST_F(GeneralTexts, portLineIsAutospoolElseFileElseNothingElseThePort)
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

TEST_F(GeneralTexts, aPrinterThatCannotBeOpenedLeavesTheLeadingText)
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

TEST_F(GeneralTexts, namesComeFromLevel5UnderWineAndLevel1Elsewhere)
{
    room.add({.name = OD_T("B")});
    room.add({.name = OD_T("A")});
    const std::vector<OdString> both = {OD_T("B"), OD_T("A")};
    for (const bool underWine : {false, true})
    {
        room.forgetCalls();
        EXPECT_EQ(printerNames(2, underWine), both);
        for (const room::CallRecord& call : room.calls())
            EXPECT_EQ(call.level, underWine ? 5U : 1U);
    }
}

TEST_F(GeneralTexts, aRefusedPassAndANamelessPrinterAddNothing)
{
    EXPECT_TRUE(printerNames(100, true).empty());
    room.add({.name = OD_T("A"), .namedInRecords = false});
    EXPECT_TRUE(printerNames(2, true).empty());
    room.refuse(Call::enumPrinters);
    EXPECT_TRUE(printerNames(2, false).empty());
}
