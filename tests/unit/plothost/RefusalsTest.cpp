#include "plothost/Refusals.h"

#include "host/GarmInterfaces.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "SampleTree.h"
#include "tests/support/PrinterRoomTest.h"
#include "tests/support/TemporaryFolder.h"

using namespace plothost;
using testing::EndsWith;
using testing::HasSubstr;
using testing::StartsWith;

namespace
{
// One printer, and a folder as the host's search path.
class Refusals : public PrinterRoomTest
{
protected:
    Refusals()
    {
        getMainInternalInterface()->setPlotCfgSearchPath(m_folder.path());
        room.add({.name = OD_T("Plotter A"), .driver = OD_T("Acme HP-GL"), .papers = {{9, OD_T("A4")}}});
    }
    ~Refusals() override { getMainInternalInterface()->setPlotCfgSearchPath(OdString()); }

    void write(const GmPlotCfg3& configuration) const { EXPECT_TRUE(configuration.write(m_folder.at("x.pc3"))); }
    std::string noPrinter(const OdChar* deviceName) const { return whyNoPrinterFor(deviceName, m_folder.path()); }
    std::string notEdited(const EditQuestion& question) const { return whyNotEdited(question, m_folder.path()); }

    const TemporaryFolder m_folder;
    const std::string m_shown = "'" + odToUtf8(m_folder.at("x.pc3")) + "': ";
};
} // namespace

TEST_F(Refusals, aConfigurationNameEndsInPc3)
{
    EXPECT_TRUE(isConfigurationName(OD_T("x.PC3")));
    EXPECT_FALSE(isConfigurationName(OD_T("x.pc3 ")));
    EXPECT_FALSE(isConfigurationName(OD_T("Plotter A")));
}

TEST_F(Refusals, theReasonNamesTheFile)
{
    GmPlotCfg3 configuration = sample::configuration();
    configuration.m_meta.m_win_driver_name = OD_T("Old");
    write(configuration);
    const std::string why = m_shown + "no printer with driver 'Old'";
    EXPECT_EQ(whyNotShown(m_folder.at("x.pc3")), why);
    EXPECT_EQ(noPrinter(OD_T("x.pc3")), why);
    EXPECT_EQ(notEdited({OD_T("x.pc3"), false, {}}), why);
}

TEST_F(Refusals, aFileWithoutDeviceModeIsStillRead)
{
    GmPlotCfg3 configuration = sample::configuration();
    configuration.m_custom = nullptr;
    write(configuration);
    EXPECT_EQ(noPrinter(OD_T("x.pc3")), m_shown + "there is no block 'custom' with a DEVMODE");
    EXPECT_EQ(notEdited({OD_T("x.pc3"), false, {}}), m_shown + "the editor left no values");
}

TEST_F(Refusals, whatWorksByNowIsWorthAnotherTry)
{
    write(sample::configuration());
    EXPECT_EQ(whyNotShown(m_folder.at("x.pc3")), m_shown + "reading it failed for a moment; try again");
    EXPECT_EQ(noPrinter(OD_T("x.pc3")), m_shown + "making its DEVMODE failed for a moment; try again");
    EXPECT_EQ(whyNotCreated(OD_T("Plotter A")),
              "asking printer 'Plotter A' for its defaults failed for a moment; try again");
}

TEST_F(Refusals, aNameThatIsNearlyRightIsSuggested)
{
    EXPECT_EQ(noPrinter(OD_T("Plotter B")),
              "printer 'Plotter B' cannot be opened: there is no printer with that name (error 1801); "
              "did you mean 'Plotter A'?");
    EXPECT_EQ(whyNotCreated(OD_T("Plotter B")), noPrinter(OD_T("Plotter B")));
    EXPECT_EQ(notEdited({OD_T("Plotter B"), true, {}}), noPrinter(OD_T("Plotter B")));
    write(sample::configuration());
    EXPECT_THAT(noPrinter(OD_T("x")), EndsWith("; the configuration of that name is 'x.pc3'"));
    EXPECT_THAT(noPrinter(OD_T("xy.pc3")), StartsWith("'xy.pc3' is not found in "));
    EXPECT_THAT(noPrinter(OD_T("xy.pc3")), EndsWith("; did you mean 'x.pc3'?"));
    EXPECT_THAT(notEdited({OD_T("xy.pc3"), false, {}}), HasSubstr("'xy.pc3' is not found in "));
}

TEST_F(Refusals, aPrinterThatGivesNoConfiguration)
{
    room.add({.name = OD_T("Plain"), .driver = OD_T("D"), .papers = {{9, OD_T("A4")}}, .driverExtra = 0});
    const std::string why = "the DEVMODE of printer 'Plain' has no private bytes, which a configuration needs";
    EXPECT_EQ(whyNotCreated(OD_T("Plain")), why);
    EXPECT_EQ(notEdited({OD_T("Plain"), true, {}}), why);
    EXPECT_EQ(notEdited({OD_T("Plotter A"), true, {}}),
              "the driver of printer 'Plotter A' does not take the settings of the new configuration");

    room.add({.name = OD_T("Odd"), .driver = OD_T("D"), .papers = {{8, OD_T("A3")}}, .tune = [](DEVMODEW& dm) {
                  dm.dmPaperSize = 9;
              }});
    EXPECT_EQ(whyNotCreated(OD_T("Odd")),
              "the default settings of printer 'Odd' cannot be imported: the printer does not list its paper with code "
              "9");
}
