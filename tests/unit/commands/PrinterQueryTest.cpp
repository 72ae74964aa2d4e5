#include "GarmPC3Editor/Commands/PrinterQuery.h"

#include "tests/support/FailingAllocation.h"
#include "tests/unit/commands/CommandTest.h"

#include <stdexcept>
#include <utility>
#include <vector>

namespace
{
class PrinterQueryTest : public CommandTest
{
protected:
    // Asks with an answer that already has other values.
    bool ask(const OdString& deviceName)
    {
        m_answer = {OD_T("poison"), {9, 9, 9}, OD_T("poison"), 99, OD_T("poison")};
        return queryPrinter(deviceName, m_answer);
    }

    void expectNothing() const
    {
        EXPECT_EQ(m_answer.printerName, OD_T(""));
        EXPECT_TRUE(m_answer.devMode.isEmpty());
        EXPECT_EQ(m_answer.paperName, OD_T(""));
        EXPECT_EQ(m_answer.driverType, 0);
        EXPECT_EQ(m_answer.canonicalModelName, OD_T(""));
    }

    PrinterAnswer m_answer;
};

// A configuration without a Windows printer.
std::function<void(GmPlotCfg3&)> unboundWithType(std::int32_t driverType)
{
    return [driverType](GmPlotCfg3& cfg)
    {
        cfg.m_meta.m_driver_type = driverType;
        cfg.m_meta.m_win_device_name = OdString();
        cfg.m_meta.m_win_driver_name = OdString();
        cfg.m_custom = nullptr;
    };
}

TEST_F(PrinterQueryTest, emptyNameHasNoPrinterAndAsksNobody)
{
    EXPECT_FALSE(ask(OdString()));
    expectNothing();
    EXPECT_TRUE(m_room.calls().empty());
}

TEST_F(PrinterQueryTest, windowsPrinterReturnsOnlyItsName)
{
    EXPECT_TRUE(ask(OD_T("Plotter A")));
    EXPECT_EQ(m_answer.printerName, OD_T("Plotter A"));
    m_answer.printerName = OdString();
    expectNothing();
    EXPECT_EQ(m_room.count(room::Call::openPrinter), 1);
    EXPECT_EQ(m_room.count(room::Call::closePrinter), 1);
}

TEST_F(PrinterQueryTest, printerIsOpenedUnderTheGivenName)
{
    ask(OD_T(",XcvMonitor  Odd Name "));
    ASSERT_EQ(m_room.calls().size(), 1U);
    EXPECT_EQ(OdString(m_room.calls()[0].printer.c_str()), OD_T(",XcvMonitor  Odd Name "));
}

TEST_F(PrinterQueryTest, unknownPrinterHasNone)
{
    EXPECT_FALSE(ask(OD_T("Plotter Z")));
    expectNothing();
}

TEST_F(PrinterQueryTest, handleOfAFailedOpenIsNotClosed)
{
    m_room.writeHandleOnFailedOpen();
    EXPECT_FALSE(ask(OD_T("Plotter Z")));
    EXPECT_EQ(m_room.count(room::Call::closePrinter), 0);
}

TEST_F(PrinterQueryTest, configurationAnswersEverythingOfIt)
{
    putConfiguration(OD_T("a.pc3"));
    EXPECT_TRUE(ask(OD_T("a.pc3")));
    EXPECT_EQ(m_answer.printerName, OD_T("Plotter A"));
    ASSERT_EQ(m_answer.devMode.size(), 228U);
    EXPECT_EQ(m_answer.devMode[220], 1);
    EXPECT_EQ(m_answer.devMode[227], 8);
    EXPECT_EQ(m_answer.paperName, OD_T("A3"));
    EXPECT_EQ(m_answer.driverType, 1);
    EXPECT_EQ(m_answer.canonicalModelName, OD_T("Canonical"));
}

// Each of these spooler calls takes a large part of a millisecond.
TEST_F(PrinterQueryTest, configurationQueryMakesOnlyTheseCalls)
{
    using room::Call;
    putConfiguration(OD_T("a.pc3"));
    m_room.forgetCalls();
    ASSERT_TRUE(ask(OD_T("a.pc3")));
    std::vector<std::pair<Call, bool>> calls;
    for (const room::CallRecord& record : m_room.calls())
        calls.emplace_back(record.call, record.fill);
    const std::vector<std::pair<Call, bool>> expected = {
        // Does the printer still exist, and does it still have the configuration's driver?
        {Call::openPrinter, false},
        {Call::getPrinterDriver, false},
        {Call::getPrinterDriver, true},
        {Call::closePrinter, false},
        // The printer for the device mode, and its papers through a separate handle: counts, then lists.
        {Call::openPrinter, false},
        {Call::openPrinter, false},
        {Call::getPrinter, false},
        {Call::getPrinter, true},
        {Call::deviceCapabilities, false},
        {Call::deviceCapabilities, false},
        {Call::deviceCapabilities, true},
        {Call::deviceCapabilities, true},
        {Call::closePrinter, false},
        {Call::closePrinter, false},
    };
    EXPECT_EQ(calls, expected);
}

TEST_F(PrinterQueryTest, repeatedQueriesLeaveNothingOpen)
{
    putConfiguration(OD_T("a.pc3"));
    m_room.forgetCalls();
    ASSERT_TRUE(ask(OD_T("a.pc3")));
    const std::size_t once = m_room.calls().size();
    m_room.forgetCalls();
    constexpr std::size_t many = 50;
    for (std::size_t i = 0; i < many; ++i)
    {
        ASSERT_TRUE(ask(OD_T("a.pc3")));
        ASSERT_EQ(m_room.openHandles(), 0);
    }
    EXPECT_EQ(m_room.calls().size(), many * once);
}

TEST_F(PrinterQueryTest, endingIsComparedWithoutCase)
{
    putConfiguration(OD_T("a.PC3"));
    EXPECT_TRUE(ask(OD_T("a.PC3")));
    EXPECT_EQ(m_answer.printerName, OD_T("Plotter A"));
    EXPECT_EQ(m_answer.canonicalModelName, OD_T("Canonical"));
}

TEST_F(PrinterQueryTest, longerEndingIsAPrintersName)
{
    putConfiguration(OD_T("a.pc3x"));
    EXPECT_FALSE(ask(OD_T("a.pc3x")));
    expectNothing();
    ASSERT_EQ(m_room.calls().size(), 1U);
    EXPECT_EQ(m_room.calls()[0].call, room::Call::openPrinter);
}

TEST_F(PrinterQueryTest, namesShorterThanTheEndingArePrintersNames)
{
    for (const OdChar* name : {OD_T("p"), OD_T("pc3"), OD_T("c3")})
    {
        m_room.forgetCalls();
        EXPECT_FALSE(ask(name));
        EXPECT_EQ(m_room.count(room::Call::openPrinter), 1) << OdString(name);
    }
    room::Printer printer;
    printer.name = OD_T("pc3");
    m_room.add(printer);
    EXPECT_TRUE(ask(OD_T("pc3")));
}

TEST_F(PrinterQueryTest, theBareEndingIsAConfigurationsName)
{
    putConfiguration(OD_T(".pc3"));
    EXPECT_TRUE(ask(OD_T(".pc3")));
    EXPECT_EQ(m_answer.canonicalModelName, OD_T("Canonical"));
}

TEST_F(PrinterQueryTest, configurationThatIsNotFoundHasNone)
{
    room::Printer printer;
    printer.name = OD_T("missing.pc3");
    m_room.add(printer);
    EXPECT_FALSE(ask(OD_T("missing.pc3"))) << "a name with the ending is never a printer's";
    expectNothing();
    EXPECT_TRUE(m_room.calls().empty());
}

TEST_F(PrinterQueryTest, damagedConfigurationHasNone)
{
    putDamagedFile(OD_T("bad.pc3"));
    EXPECT_FALSE(ask(OD_T("bad.pc3")));
    expectNothing();
}

TEST_F(PrinterQueryTest, configurationWhoseDriverNobodyUsesHasNone)
{
    putConfiguration(OD_T("gone.pc3"), [](GmPlotCfg3& cfg) { cfg.m_meta.m_win_driver_name = OD_T("Gone"); });
    EXPECT_FALSE(ask(OD_T("gone.pc3")));
    expectNothing();
}

TEST_F(PrinterQueryTest, reboundConfigurationReturnsItsNewPrinter)
{
    putConfiguration(OD_T("old.pc3"), [](GmPlotCfg3& cfg) { cfg.m_meta.m_win_device_name = OD_T("Removed"); });
    EXPECT_TRUE(ask(OD_T("old.pc3")));
    EXPECT_EQ(m_answer.printerName, OD_T("Plotter A"));
}

TEST_F(PrinterQueryTest, types0And3ReturnTheLocalizedModel)
{
    for (const std::int32_t driverType : {0, 3})
    {
        putConfiguration(OD_T("model.pc3"), unboundWithType(driverType));
        EXPECT_TRUE(ask(OD_T("model.pc3"))) << driverType;
        EXPECT_EQ(m_answer.printerName, OD_T("Localized"));
        EXPECT_TRUE(m_answer.devMode.isEmpty());
        EXPECT_EQ(m_answer.driverType, driverType);
    }
}

TEST_F(PrinterQueryTest, otherTypesWithoutDevModeHaveNoPrinter)
{
    for (const std::int32_t driverType : {1, 2, 4, -1})
    {
        putConfiguration(OD_T("model.pc3"), unboundWithType(driverType));
        EXPECT_FALSE(ask(OD_T("model.pc3"))) << driverType;
        EXPECT_EQ(m_answer.printerName, OD_T(""));
        EXPECT_TRUE(m_answer.devMode.isEmpty());
        EXPECT_EQ(m_answer.paperName, OD_T("A3"));
        EXPECT_EQ(m_answer.driverType, driverType);
        EXPECT_EQ(m_answer.canonicalModelName, OD_T("Canonical"));
    }
}

TEST_F(PrinterQueryTest, types0And3WithDevModeReturnThePrinter)
{
    for (const std::int32_t driverType : {0, 3})
    {
        putConfiguration(OD_T("bound.pc3"), [driverType](GmPlotCfg3& cfg) { cfg.m_meta.m_driver_type = driverType; });
        EXPECT_TRUE(ask(OD_T("bound.pc3")));
        EXPECT_EQ(m_answer.printerName, OD_T("Plotter A"));
        EXPECT_EQ(m_answer.devMode.size(), 228U);
    }
}

TEST_F(PrinterQueryTest, driverTypeIsTestedBeforeItIsCut)
{
    // 0x10003 and 0x10000 look like 3 and 0 in 16 bits, but the model name depends on the full number.
    for (const std::int32_t driverType : {0x10003, 0x10000, 0x28000})
    {
        putConfiguration(OD_T("wide.pc3"), unboundWithType(driverType));
        EXPECT_FALSE(ask(OD_T("wide.pc3")));
        EXPECT_EQ(m_answer.driverType, static_cast<std::int16_t>(driverType & 0xFFFF));
    }
}

TEST_F(PrinterQueryTest, emptyLocalizedModelIsNoPrinter)
{
    putConfiguration(OD_T("model.pc3"),
                     [](GmPlotCfg3& cfg)
                     {
                         unboundWithType(3)(cfg);
                         cfg.m_meta.m_localized_model_name = OdString();
                     });
    EXPECT_FALSE(ask(OD_T("model.pc3")));
    EXPECT_EQ(m_answer.driverType, 3);
}

TEST_F(PrinterQueryTest, whatADriverThrowsMeansNoPrinter)
{
    m_room.onCall(room::Call::openPrinter, {}, [](const room::CallRecord&) { throw std::runtime_error("driver"); });
    EXPECT_FALSE(ask(OD_T("Plotter A")));
    expectNothing();
}

TEST_F(PrinterQueryTest, whatDriverThrowsForConfigurationLeavesNothingOpen)
{
    putConfiguration(OD_T("a.pc3"));
    m_room.onCall(room::Call::deviceCapabilities, {},
                  [](const room::CallRecord&) { throw std::runtime_error("driver"); });
    EXPECT_FALSE(ask(OD_T("a.pc3")));
    EXPECT_EQ(m_answer.printerName, OD_T(""));
    EXPECT_TRUE(m_answer.devMode.isEmpty());
}

TEST_F(PrinterQueryTest, everyFailedAllocationGivesAKnownResult)
{
    putConfiguration(OD_T("a.pc3"));
    const OdString name(OD_T("a.pc3"));
    const unsigned failures = failEachAllocation([this, &name] { return queryPrinter(name, m_answer); },
                                                 [this](bool found, bool failed)
                                                 {
                                                     EXPECT_EQ(found, !m_answer.printerName.isEmpty());
                                                     EXPECT_EQ(found, !m_answer.devMode.isEmpty())
                                                         << "a printer of type 1 without its device mode";
                                                     if (!failed)
                                                     {
                                                         EXPECT_TRUE(found);
                                                     }
                                                     EXPECT_EQ(m_room.openHandles(), 0);
                                                 });
    EXPECT_GT(failures, 10U);
}
} // namespace
