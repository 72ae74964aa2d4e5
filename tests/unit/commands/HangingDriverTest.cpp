// A driver that does not return: the check hangs in it on a real thread, and everything else continues. The test
// decides when the driver returns.
#include "GarmPC3Editor/Commands/BackgroundCheck.h"
#include "GarmPC3Editor/Commands/EditedConfiguration.h"
#include "GarmPC3Editor/Commands/PrinterQuery.h"
#include "host/GarmInterfaces.h"
#include "tests/support/TemporaryFolder.h"
#include "tests/support/room/PrinterRoom.h"

#include <gtest/gtest.h>

#include <memory>
#include <set>
#include <stdexcept>
#include <vector>

namespace
{
room::Printer printer(const OdChar* name, const OdChar* driver)
{
    room::Printer made;
    made.name = name;
    made.driver = driver;
    made.port = OD_T("LPT1:");
    made.papers = {{9, OD_T("A4")}, {8, OD_T("A3")}};
    made.driverExtra = 8;
    return made;
}

// A host with two printers with different drivers, and a configuration for each: "slow.pc3" and "other.pc3".
class HangingDriverTest : public ::testing::Test
{
protected:
    HangingDriverTest()
    {
        m_room.add(printer(OD_T("Slow"), OD_T("Slow driver")));
        m_room.add(printer(OD_T("Other"), OD_T("Other driver")));
        getMainInternalInterface()->setPlotCfgSearchPath(m_folder.path());
        for (const OdChar* name : {OD_T("Slow"), OD_T("Other")})
        {
            const EditedConfiguration made = createForEditing(name);
            EXPECT_TRUE(made.cfg && made.cfg->write(file(name)));
        }
    }
    ~HangingDriverTest() override
    {
        m_room.forgetHooks();
        EXPECT_EQ(m_room.openHandles(), 0);
        EXPECT_EQ(m_room.openContexts(), 0);
        EXPECT_EQ(m_room.strayCloses(), 0);
        getMainInternalInterface()->setPlotCfgSearchPath({});
    }

    OdString file(const OdChar* name) const { return m_folder.at((OdString(name) + OD_T(".pc3")).c_str()); }

    // The calls for that printer that a check of its configuration makes.
    std::set<room::Call> callsOfACheck()
    {
        m_room.forgetCalls();
        PrinterAnswer answer;
        EXPECT_TRUE(queryPrinter(OD_T("Slow.pc3"), answer));
        std::set<room::Call> calls;
        for (const room::CallRecord& record : m_room.calls())
            if (record.printer == OD_T("Slow"))
                calls.insert(record.call);
        return calls;
    }

    // What the window thread does meanwhile; the test hangs if this does not return.
    void workOnMeanwhile()
    {
        PrinterAnswer answer;
        EXPECT_TRUE(queryPrinter(OD_T("Other"), answer));
        EXPECT_TRUE(queryPrinter(OD_T("Other.pc3"), answer));
        EXPECT_EQ(answer.printerName, OD_T("Other"));
        EXPECT_FALSE(answer.devMode.isEmpty());
        EXPECT_TRUE(openForEditing(OD_T("Other.pc3"), {}).cfg);
        EXPECT_TRUE(createForEditing(OD_T("Other")).cfg);
    }

    static room::PostedMessage report(HWND window, WPARAM found) { return {window, 1125, found, 0}; }

    PrinterRoom m_room;
    TemporaryFolder m_folder;
    const HWND m_window = m_room.newWindow();
};

TEST_F(HangingDriverTest, whereverItHangsCallerReturnsAndWorksOn)
{
    const std::set<room::Call> calls = callsOfACheck();
    // Spooler, driver and closing a handle: each may hang.
    ASSERT_TRUE(calls.contains(room::Call::openPrinter));
    ASSERT_TRUE(calls.contains(room::Call::getPrinterDriver));
    ASSERT_TRUE(calls.contains(room::Call::closePrinter));
    std::size_t reports = 0;
    for (const room::Call call : calls)
    {
        SCOPED_TRACE(static_cast<int>(call));
        const std::shared_ptr<room::Held> driver = m_room.hold(call, OD_T("Slow"));
        startBackgroundCheck(OD_T("Slow.pc3"), m_window);
        driver->awaitEntered();
        workOnMeanwhile();
        EXPECT_EQ(m_room.posted().size(), reports) << "posted while the driver hung";
        driver->release();
        m_room.awaitPosted(++reports);
        EXPECT_EQ(m_room.posted().back(), report(m_window, 1));
        m_room.forgetHooks();
    }
    EXPECT_EQ(m_room.posted().size(), calls.size());
}

TEST_F(HangingDriverTest, manyHangingChecksReportOnceEach)
{
    constexpr std::size_t count = 20;
    const std::shared_ptr<room::Held> driver = m_room.hold(room::Call::getPrinterDriver, OD_T("Slow"));
    std::multiset<HWND> expected;
    for (std::size_t i = 0; i < count; ++i)
        startBackgroundCheck(OD_T("Slow.pc3"), *expected.insert(m_room.newWindow()));
    driver->awaitEntered();
    workOnMeanwhile();

    // A check that does not need the driver does not wait for them.
    startBackgroundCheck(OD_T("Other.pc3"), m_window);
    m_room.awaitPosted(1);
    EXPECT_EQ(m_room.posted().front(), report(m_window, 1));

    driver->release();
    m_room.awaitPosted(count + 1);
    std::multiset<HWND> reported;
    for (const room::PostedMessage& message : m_room.posted())
        if (message.window != m_window)
        {
            EXPECT_EQ(message, report(message.window, 1));
            reported.insert(message.window);
        }
    EXPECT_EQ(reported, expected);
}

TEST_F(HangingDriverTest, driverThatThrowsOnWakingPostsZero)
{
    const std::shared_ptr<room::Held> driver = m_room.hold(room::Call::getPrinterDriver, OD_T("Slow"));
    m_room.onCall(room::Call::getPrinterDriver, OD_T("Slow"),
                  [](const room::CallRecord&) { throw std::runtime_error("woken too early"); });
    startBackgroundCheck(OD_T("Slow.pc3"), m_window);
    driver->awaitEntered();
    driver->release();
    m_room.awaitPosted(1);
    EXPECT_EQ(m_room.posted(), std::vector{report(m_window, 0)});
}

TEST_F(HangingDriverTest, printerDeletedWhileItsDriverHangsPostsZero)
{
    const std::shared_ptr<room::Held> driver = m_room.hold(room::Call::getPrinterDriver, OD_T("Slow"));
    startBackgroundCheck(OD_T("Slow.pc3"), m_window);
    driver->awaitEntered();
    m_room.remove(OD_T("Slow"));
    driver->release();
    m_room.awaitPosted(1);
    EXPECT_EQ(m_room.posted(), std::vector{report(m_window, 0)});
}

TEST_F(HangingDriverTest, theFileMayChangeWhileTheCheckHangs)
{
    const std::shared_ptr<room::Held> driver = m_room.hold(room::Call::getPrinterDriver, OD_T("Slow"));
    startBackgroundCheck(OD_T("Slow.pc3"), m_window);
    driver->awaitEntered();
    // It has been read by now, and it is not locked.
    EXPECT_TRUE(createForEditing(OD_T("Other")).cfg->write(file(OD_T("Slow"))));
    driver->release();
    m_room.awaitPosted(1);
    EXPECT_EQ(m_room.posted(), std::vector{report(m_window, 1)});
}
} // namespace
