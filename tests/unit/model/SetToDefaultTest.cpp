#include "GarmPC3Editor/GmPlotCfg3.h"
#include "tests/support/Blocks.h"
#include "tests/support/PrinterRoomTest.h"

#include <gtest/gtest.h>

#include <stdexcept>

namespace
{
// Bound to the room's printer, as saved earlier: the driver's own settings are not known yet.
GmPlotCfg3 bound()
{
    GmPlotCfg3 configuration;
    configuration.m_meta.m_win_device_name = OD_T("Plotter A");
    configuration.m_meta.m_win_driver_name = OD_T("Acme HP-GL");
    configuration.m_custom = new GmCustomNode;
    for (const auto& [key, value] : {std::pair(OD_T("dmSize"), 220U), std::pair(OD_T("dmDriverExtra"), 8U),
                                     std::pair(OD_T("dmSpecVersion"), 0U), std::pair(OD_T("dmMediaType"), 0U),
                                     std::pair(OD_T("dmDefaultSource"), 0U), std::pair(OD_T("dmTTOption"), 0U)})
        configuration.m_custom->setNumber(value, key, true);
    configuration.m_custom->setRawData(OD_T("0000000000000000"), true);
    return configuration;
}

class SetToDefault : public PrinterRoomTest
{
protected:
    room::Printer& addPlotter()
    {
        return room.add({.name = OD_T("Plotter A"),
                         .driver = OD_T("Acme HP-GL"),
                         .port = OD_T("LPT1:"),
                         .papers = {{9, OD_T("A4")}, {8, OD_T("A3")}}});
    }
};
} // namespace

TEST_F(SetToDefault, answersWhetherTheDefaultsChangedSomething)
{
    addPlotter();
    GmPlotCfg3 configuration = bound();
    EXPECT_TRUE(configuration.setToDefault());
    EXPECT_NE(configuration.m_devModeFields, 0U);
    EXPECT_EQ(configuration.m_media.m_size.m_name, OD_T("A4"));
    EXPECT_FALSE(configuration.setToDefault()) << "it holds the defaults already";
    configuration.m_media.m_number_of_copies = 7;
    EXPECT_TRUE(configuration.setToDefault());
    EXPECT_EQ(configuration.m_media.m_number_of_copies, 1);
}

TEST_F(SetToDefault, addsNothingThatTheConfigurationDoesNotHave)
{
    addPlotter().port = OD_T("FILE:");
    GmPlotCfg3 configuration = bound();
    configuration.m_custom->m_numbers.erase(OD_T("dmTTOption"));
    configuration.m_meta.m_localized_model_name = OD_T("My plotter");
    configuration.setToDefault();
    EXPECT_EQ(configuration.m_custom->m_numbers.count(OD_T("dmTTOption")), 0U);
    EXPECT_EQ(configuration.m_meta.m_localized_model_name, OD_T("My plotter"));
    EXPECT_FALSE(configuration.m_io.m_plot_to_file);
}

TEST_F(SetToDefault, opensThePrinterByItsStoredName)
{
    addPlotter();
    GmPlotCfg3 configuration = bound();
    configuration.setToDefault();
    const auto calls = room.calls();
    ASSERT_FALSE(calls.empty());
    EXPECT_EQ(calls.front().call, room::Call::openPrinter);
    EXPECT_EQ(calls.front().printer, room::Text(OD_T("Plotter A")));
}

TEST_F(SetToDefault, withoutPrinterNothingChanges)
{
    GmPlotCfg3 configuration = bound();
    EXPECT_FALSE(configuration.setToDefault());
    EXPECT_EQ(configuration.m_devModeFields, 0U);
}

TEST_F(SetToDefault, withoutDefaultDeviceModeNothingChanges)
{
    room::Printer& plotter = addPlotter();
    plotter.lies.sizeAnswer = 0;
    GmPlotCfg3 configuration = bound();
    EXPECT_FALSE(configuration.setToDefault());
    plotter.lies.sizeAnswer = -1;
    EXPECT_FALSE(configuration.setToDefault());
    plotter.lies.sizeAnswer.reset();
    plotter.lies.fillAnswer = 0;
    EXPECT_FALSE(configuration.setToDefault());
    plotter.lies.fillAnswer.reset();
    plotter.lies.fillWritesNothing = true;
    EXPECT_FALSE(configuration.setToDefault());
    EXPECT_EQ(configuration.m_devModeFields, 0U);
    EXPECT_EQ(configuration.m_media.m_size.m_name, OD_T(""));
}

TEST_F(SetToDefault, aDeviceModeOfAnotherSizeIsNotTakenOver)
{
    addPlotter().driverExtra = 12;
    GmPlotCfg3 configuration = bound();
    EXPECT_FALSE(configuration.setToDefault());
    EXPECT_EQ(configuration.m_devModeFields, 0U);
}

TEST_F(SetToDefault, withoutCustomDataNothingIsTakenOver)
{
    addPlotter();
    GmPlotCfg3 configuration = bound();
    configuration.m_custom = nullptr;
    EXPECT_FALSE(configuration.setToDefault());
    EXPECT_EQ(configuration.m_devModeFields, 0U);
}

TEST_F(SetToDefault, aDriverThatThrowsIsAnsweredFalse)
{
    addPlotter();
    for (const auto call : {room::Call::openPrinter, room::Call::documentProperties, room::Call::deviceCapabilities,
                            room::Call::createDC, room::Call::getDeviceCaps, room::Call::getPrinterDriver})
        room.onCall(call, OD_T("Plotter A"), [](const room::CallRecord&) { throw std::runtime_error("driver"); });
    GmPlotCfg3 configuration = bound();
    EXPECT_FALSE(configuration.setToDefault());
}

// An exception during the import must not leak a handle or a device context.
TEST(SetToDefaultFailures, aDriverThatThrowsLateLosesNoHandle)
{
    for (const auto call : {room::Call::documentProperties, room::Call::deviceCapabilities, room::Call::createDC,
                            room::Call::getDeviceCaps, room::Call::getPrinterDriver})
    {
        PrinterRoom other;
        other.add({.name = OD_T("Plotter A"), .driver = OD_T("Acme HP-GL"), .papers = {{9, OD_T("A4")}}});
        other.onCall(call, OD_T("Plotter A"), [](const room::CallRecord&) { throw 1; });
        GmPlotCfg3 configuration = bound();
        EXPECT_FALSE(configuration.setToDefault());
        EXPECT_EQ(other.openHandles(), 0);
        EXPECT_EQ(other.openContexts(), 0);
    }
}

TEST_F(SetToDefault, everyCallThatFailsIsAnsweredAndLosesNoHandle)
{
    addPlotter();
    const int failures = failEachCall(
        room,
        [&]
        {
            GmPlotCfg3 configuration = bound();
            return configuration.setToDefault();
        },
        [](bool changed, bool failed) { EXPECT_TRUE(changed || failed); });
    EXPECT_GT(failures, 10);
}
