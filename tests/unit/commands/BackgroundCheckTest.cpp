#include "GarmPC3Editor/Commands/BackgroundCheck.h"

#include "tests/support/FailingAllocation.h"
#include "tests/unit/commands/CommandTest.h"

#include <stdexcept>
#include <thread>

namespace
{
class BackgroundCheckTest : public CommandTest
{
protected:
    std::vector<room::PostedMessage> report(WPARAM found) const { return {{m_window, 1125, found, 0}}; }

    void check(const OdString& deviceName)
    {
        startBackgroundCheck(deviceName, m_window);
        ASSERT_EQ(m_module.waitingThreads(), 1U);
        EXPECT_TRUE(m_room.posted().empty()) << "posted before the check was done";
        m_module.runFirstThread();
    }

    const HWND m_window = m_room.newWindow();
};

TEST_F(BackgroundCheckTest, theMessageIsWmUserPlus101)
{
    EXPECT_EQ(printerCheckedMessage, 1125U);
}

TEST_F(BackgroundCheckTest, foundPrinterPostsOne)
{
    check(OD_T("Plotter A"));
    EXPECT_EQ(m_room.posted(), report(1));
}

TEST_F(BackgroundCheckTest, unknownPrinterPostsZero)
{
    check(OD_T("Plotter Z"));
    EXPECT_EQ(m_room.posted(), report(0));
}

TEST_F(BackgroundCheckTest, configurationOfAPrinterPostsOne)
{
    putConfiguration(OD_T("a.pc3"));
    check(OD_T("a.pc3"));
    EXPECT_EQ(m_room.posted(), report(1));
}

TEST_F(BackgroundCheckTest, missingAndDamagedConfigurationsPostZero)
{
    check(OD_T("missing.pc3"));
    EXPECT_EQ(m_room.posted(), report(0));
    putDamagedFile(OD_T("bad.pc3"));
    startBackgroundCheck(OD_T("bad.pc3"), m_window);
    m_module.runFirstThread();
    ASSERT_EQ(m_room.posted().size(), 2U);
    EXPECT_EQ(m_room.posted()[1].wParam, 0U);
}

TEST_F(BackgroundCheckTest, runsOnAnotherThread)
{
    std::thread::id caller;
    m_room.onCall(room::Call::openPrinter, {},
                  [&caller](const room::CallRecord&) { caller = std::this_thread::get_id(); });
    check(OD_T("Plotter A"));
    EXPECT_NE(caller, std::thread::id());
    EXPECT_NE(caller, std::this_thread::get_id());
}

TEST_F(BackgroundCheckTest, ownsItsCopyOfTheName)
{
    {
        OdString name(OD_T("Plotter A"));
        startBackgroundCheck(name, m_window);
        name = OD_T("Plotter Z");
    }
    m_module.runFirstThread();
    EXPECT_EQ(m_room.posted(), report(1));
}

TEST_F(BackgroundCheckTest, checksPostOnceEachInAnyOrder)
{
    const HWND other = m_room.newWindow();
    startBackgroundCheck(OD_T("Plotter A"), m_window);
    startBackgroundCheck(OD_T("Plotter Z"), other);
    m_module.runLastThread();
    m_module.runLastThread();
    const std::vector<room::PostedMessage> expected = {{other, 1125, 0, 0}, {m_window, 1125, 1, 0}};
    EXPECT_EQ(m_room.posted(), expected);
}

TEST_F(BackgroundCheckTest, whatTheDriverThrowsPostsZeroOnce)
{
    m_room.onCall(room::Call::openPrinter, {}, [](const room::CallRecord&) { throw std::runtime_error("driver"); });
    check(OD_T("Plotter A"));
    EXPECT_EQ(m_room.posted(), report(0));
}

TEST_F(BackgroundCheckTest, throwingDriverDuringReadPostsZeroOnce)
{
    putConfiguration(OD_T("a.pc3"));
    m_room.onCall(room::Call::getPrinterDriver, {}, [](const room::CallRecord&) { throw 17; });
    check(OD_T("a.pc3"));
    EXPECT_EQ(m_room.posted(), report(0));
}

TEST_F(BackgroundCheckTest, aThreadThatCannotStartPostsZeroOnce)
{
    m_module.refuseThreads();
    startBackgroundCheck(OD_T("Plotter A"), m_window);
    EXPECT_EQ(m_module.waitingThreads(), 0U);
    EXPECT_TRUE(m_room.count(room::Call::openPrinter) == 0);
    EXPECT_EQ(m_room.posted(), report(0));
}

TEST_F(BackgroundCheckTest, outOfMemoryAtStartPostsZeroOnce)
{
    // Long enough not to fit into the string object itself.
    const OdString name(OD_T("Plotter A with a name that needs memory of its own"));
    std::size_t messages = 0;
    for (unsigned n = 1; n <= 2; ++n)
    {
        {
            const FailingAllocation failing(n);
            startBackgroundCheck(name, m_window);
            EXPECT_TRUE(failing.reached());
        }
        ASSERT_EQ(m_room.posted().size(), ++messages);
        EXPECT_EQ(m_room.posted().back().wParam, 0U);
        EXPECT_EQ(m_module.waitingThreads(), 0U);
    }
}
} // namespace
