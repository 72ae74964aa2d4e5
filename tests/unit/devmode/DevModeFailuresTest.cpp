// Calls that fail, throw or find the printer deleted, and memory that runs out: the result is false or empty, and
// everything is closed.

#include "tests/support/FailingAllocation.h"
#include "tests/unit/devmode/DevModeFixture.h"

#include <stdexcept>

namespace
{
class DevModeFailures : public DevModeTest
{
protected:
    void expectAllClosed(int n) const
    {
        EXPECT_EQ(m_room.openHandles(), 0) << n;
        EXPECT_EQ(m_room.openContexts(), 0) << n;
        EXPECT_EQ(m_room.strayCloses(), 0) << n;
    }

    // The printer of the configuration, for a room of its own.
    static room::Printer usualPrinter()
    {
        room::Printer printer;
        printer.name = plotter;
        printer.driver = driver;
        printer.papers = {{9, OD_T("A4")}, {8, OD_T("A3")}};
        return printer;
    }

    // A block that changes something everywhere.
    static Block otherBlock()
    {
        Block block = driversBlock();
        block.privateBytes[0] = 0x99;
        block.fields.dmPaperSize = 8;
        block.setFormName(OD_T("A3"));
        block.fields.dmColor = DMCOLOR_COLOR;
        block.fields.dmOrientation = DMORIENT_LANDSCAPE;
        block.fields.dmPrintQuality = DMRES_HIGH;
        return block;
    }

    // The result of importing otherBlock if nothing fails.
    std::vector<std::string> describeOtherBlock() const
    {
        Configuration each = withoutDestination();
        EXPECT_EQ(takeOver(each, otherBlock()), (Outcome{true, true}));
        return describe(each);
    }

    // So that the import has to create everything it can create.
    Configuration withoutDestination() const
    {
        Configuration copy = ownCopy(settled);
        copy.m_media.m_destination = nullptr;
        return copy;
    }
};

constexpr room::Call everyCall[] = {
    room::Call::openPrinter,        room::Call::closePrinter, room::Call::getPrinter,    room::Call::getPrinterDriver,
    room::Call::deviceCapabilities, room::Call::createDC,     room::Call::getDeviceCaps, room::Call::deleteDC};

// Calls that an import needs, or can partly do without.
bool isNeeded(const room::CallRecord& call)
{
    return call.call == room::Call::openPrinter || call.call == room::Call::getPrinter ||
           call.call == room::Call::deviceCapabilities;
}
} // namespace

TEST_F(DevModeFailures, everyCallOfABuildMayFail)
{
    const OdArray<unsigned char> whole = settled.toDevMode();
    for (int n = 1;; ++n)
    {
        m_room.forgetCalls();
        m_room.failNth(n);
        const OdArray<unsigned char> bytes = settled.toDevMode();
        expectAllClosed(n);
        if (!m_room.failureReached())
        {
            EXPECT_EQ(bytes, whole);
            EXPECT_GT(n, 8) << "open, the lists with their own handle, close";
            break;
        }
        // Without the printer there is no block; without its papers, a block that names none.
        EXPECT_EQ(bytes.isEmpty(), n == 1) << n;
    }
}

TEST_F(DevModeFailures, everyCallOfATakeoverMayFail)
{
    const std::vector<std::string> whole = describeOtherBlock();
    for (int n = 1;; ++n)
    {
        Configuration each = withoutDestination();
        m_room.forgetCalls();
        m_room.failNth(n);
        const Outcome outcome = takeOver(each, otherBlock());
        expectAllClosed(n);
        if (!m_room.failureReached())
        {
            EXPECT_EQ(outcome, (Outcome{true, true}));
            EXPECT_EQ(describe(each), whole);
            EXPECT_GT(n, 25) << "two printers, their lists, the context";
            break;
        }
        const room::CallRecord failed = m_room.calls().at(static_cast<std::size_t>(n) - 1);
        if (!isNeeded(failed))
        {
            EXPECT_TRUE(outcome.succeeded) << "call " << n << " of kind " << static_cast<int>(failed.call);
        }
    }
}

TEST_F(DevModeFailures, aPrinterThatIsGoneWhenItsTurnComesFailsTheTakeover)
{
    // A driver's own code needs no paper list, so nothing else would fail.
    Block block = driversBlock();
    block.fields.dmPaperSize = 300;
    block.fields.dmFields &= ~static_cast<DWORD>(DM_FORMNAME);
    int opens = 0;
    for (int n = 1;; ++n)
    {
        Configuration each = ownCopy(settled);
        m_room.forgetCalls();
        m_room.failNth(n);
        const Outcome outcome = takeOver(each, block);
        if (!m_room.failureReached())
            break;
        if (m_room.calls().at(static_cast<std::size_t>(n) - 1).call != room::Call::openPrinter)
            continue;
        // Opened to check whether the block matches, then for the papers, and then for the import itself.
        if (++opens == 1 || opens == 3)
        {
            EXPECT_FALSE(outcome.succeeded) << n;
        }
    }
    EXPECT_GE(opens, 3);
}

TEST_F(DevModeFailures, aCallThatAlwaysFailsLeavesNothingOpen)
{
    for (const room::Call call : everyCall)
    {
        PrinterRoom fresh;
        fresh.add(usualPrinter());
        fresh.refuse(call);
        Configuration each = ownCopy(settled);
        const OdArray<unsigned char> bytes = each.toDevMode();
        EXPECT_EQ(bytes.isEmpty(), call == room::Call::openPrinter);
        takeOver(each, otherBlock());
        EXPECT_EQ(fresh.openHandles(), 0) << static_cast<int>(call);
        EXPECT_EQ(fresh.openContexts(), 0) << static_cast<int>(call);
        EXPECT_EQ(fresh.strayCloses(), 0) << static_cast<int>(call);
    }
}

TEST_F(DevModeFailures, aDriverThatThrowsGivesNoBlockAndFailsTheTakeover)
{
    for (const room::Call call : {room::Call::openPrinter, room::Call::getPrinter, room::Call::deviceCapabilities})
    {
        Configuration each = ownCopy(settled);
        bool thrown = false;
        bool armed = true;
        m_room.onCall(call, room::Text(),
                      [&thrown, armed = &armed](const room::CallRecord&)
                      {
                          if (!*armed)
                              return;
                          thrown = true;
                          throw std::runtime_error("a driver");
                      });
        EXPECT_TRUE(each.toDevMode().isEmpty());
        EXPECT_TRUE(thrown);
        EXPECT_EQ(takeOver(each, otherBlock()), (Outcome{false, false}));
        armed = false;
        expectAllClosed(static_cast<int>(call));
        EXPECT_TRUE(takeOver(each, otherBlock()).succeeded) << "the next call finds a driver in order";
    }
}

// Any call throws, in the middle of any step.
TEST_F(DevModeFailures, aDriverThatThrowsInAnyCallLeavesNothingOpen)
{
    int next = 0;
    int throwAt = 0;
    for (const room::Call call : everyCall)
        m_room.onCall(call, room::Text(),
                      [&](const room::CallRecord&)
                      {
                          if (++next == throwAt)
                              throw std::runtime_error("a driver");
                      });
    int failures = 0;
    for (throwAt = 1;; ++throwAt)
    {
        Configuration each = withoutDestination();
        next = 0;
        const Outcome outcome = takeOver(each, otherBlock());
        expectAllClosed(throwAt);
        if (next < throwAt)
            break;
        failures += outcome.succeeded ? 0 : 1;
    }
    EXPECT_GT(throwAt, 25);
    // Only closing calls may throw without an effect.
    EXPECT_GT(failures, throwAt - 8);
}

TEST_F(DevModeFailures, thePrinterMayBeGoneBeforeAnyCall)
{
    for (int vanishAt = 1;; ++vanishAt)
    {
        PrinterRoom fresh;
        fresh.add(usualPrinter());
        int next = 0;
        for (const room::Call call : everyCall)
            fresh.onCall(call, room::Text(),
                         [&](const room::CallRecord&)
                         {
                             if (++next == vanishAt)
                                 fresh.remove(plotter);
                         });
        Configuration each = withoutDestination();
        const Outcome outcome = takeOver(each, otherBlock());
        EXPECT_EQ(fresh.openHandles(), 0) << vanishAt;
        EXPECT_EQ(fresh.openContexts(), 0) << vanishAt;
        if (next < vanishAt)
        {
            EXPECT_TRUE(outcome.succeeded);
            EXPECT_GT(vanishAt, 25);
            break;
        }
    }
}

TEST_F(DevModeFailures, withoutMemoryThereIsNoBlock)
{
    const OdArray<unsigned char> whole = settled.toDevMode();
    int empty = 0;
    const unsigned failures = failEachAllocation([&] { return settled.toDevMode(); },
                                                 [&](const OdArray<unsigned char>& bytes, bool failed)
                                                 {
                                                     expectAllClosed(empty);
                                                     if (failed && bytes.isEmpty())
                                                         ++empty;
                                                     else
                                                         EXPECT_EQ(bytes, whole);
                                                 });
    EXPECT_GT(failures, 5U);
    EXPECT_GT(empty, 5);
}

TEST_F(DevModeFailures, withoutMemoryATakeoverFails)
{
    const std::vector<std::string> whole = describeOtherBlock();
    const std::vector<BYTE> bytes = otherBlock().bytes();
    const OdString printerName(plotter);
    int refused = 0;
    for (unsigned n = 1;; ++n)
    {
        Configuration each = withoutDestination();
        bool succeeded = false;
        bool modified = false;
        bool reached = false;
        {
            const FailingAllocation failing(n);
            succeeded = each.updateFromDevMode(DevModeView(bytes), printerName, modified);
            reached = failing.reached();
        }
        expectAllClosed(static_cast<int>(n));
        if (succeeded)
        {
            EXPECT_TRUE(modified) << n;
        }
        refused += succeeded ? 0 : 1;
        if (!reached)
        {
            EXPECT_TRUE(succeeded);
            EXPECT_EQ(describe(each), whole);
            break;
        }
    }
    EXPECT_GT(refused, 20);
}

// A driver may count papers without a name.
TEST_F(DevModeFailures, aListedCodeWithoutANameGivesAnEmptySizeName)
{
    m_printer.paperNames = std::vector<room::Text>{OD_T("A4")};
    EXPECT_TRUE(takeOver(settled, otherBlock()).succeeded);
    EXPECT_EQ(settled.m_media.m_size.m_name, OD_T(""));
}

TEST_F(DevModeFailures, anEmptySizeNameFindsNoPaperWithoutAName)
{
    m_printer.paperNames = std::vector<room::Text>{OD_T("A4")};
    settled.m_media.m_size.m_name = OD_T("");
    const OdArray<unsigned char> bytes = settled.toDevMode();
    const DevModeView view(std::span(bytes.begin(), bytes.end()));
    ASSERT_TRUE(view);
    EXPECT_FALSE(view.has(DM_PAPERSIZE | DM_FORMNAME));
}

TEST_F(DevModeFailures, anOpenThatGivesNoUsableHandleIsAFailure)
{
    for (const std::intptr_t handle : {std::intptr_t{0}, std::intptr_t{-1}})
    {
        m_printer.opensAs = handle;
        EXPECT_TRUE(settled.toDevMode().isEmpty());
        EXPECT_EQ(takeOver(settled, driversBlock()), (Outcome{false, false}));
    }
}

TEST_F(DevModeFailures, anOpenThatFailsMayStillWriteAStrangersHandle)
{
    m_room.writeHandleOnFailedOpen();
    m_room.refuse(room::Call::openPrinter);
    EXPECT_TRUE(settled.toDevMode().isEmpty());
    EXPECT_EQ(m_room.count(room::Call::closePrinter), 0);
}

TEST_F(DevModeFailures, aContextOfMinusOneIsNone)
{
    m_printer.contextIs = -1;
    EXPECT_TRUE(takeOver(settled, driversBlock()).succeeded);
    EXPECT_EQ(m_room.count(room::Call::getDeviceCaps), 0);
    EXPECT_EQ(m_room.count(room::Call::deleteDC), 0);
}

// The context is released before the driver's name is read.
TEST_F(DevModeFailures, theContextIsDeletedBeforeTheDriverIsNamed)
{
    int openAtDriverName = -1;
    m_room.onCall(room::Call::getPrinterDriver, room::Text(),
                  [&](const room::CallRecord&) { openAtDriverName = m_room.openContexts(); });
    EXPECT_TRUE(takeOver(settled, driversBlock()).succeeded);
    EXPECT_EQ(openAtDriverName, 0);
    EXPECT_EQ(m_room.count(room::Call::createDC), 1);
}
