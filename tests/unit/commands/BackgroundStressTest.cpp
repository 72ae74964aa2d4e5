#include "GarmPC3Editor/Commands/BackgroundCheck.h"

#include "GarmPC3Editor/Commands/PrinterQuery.h"
#include "GarmPC3Editor/GmPlotCfg3.h"
#include "host/GarmInterfaces.h"
#include "tests/support/PrinterRoomTest.h"
#include "tests/support/TemporaryFolder.h"

#include <array>
#include <condition_variable>
#include <map>
#include <memory>
#include <mutex>

// Background checks on real threads while the main thread keeps working. The assertions check that every check reports
// once and correctly; the thread sanitizer finds data shared without a lock.
namespace
{
using room::Call;

GmPlotCfg3 configurationOf(const OdChar* printer)
{
    GmPlotCfg3 cfg;
    cfg.m_meta.m_driver_type = 1;
    cfg.m_meta.m_win_device_name = printer;
    cfg.m_meta.m_win_driver_name = OD_T("Acme HP-GL");
    cfg.m_media.m_size.m_name = OD_T("A3");
    cfg.m_custom = new GmCustomNode();
    cfg.m_custom->setNumber(220, OD_T("dmSize"), true);
    cfg.m_custom->setNumber(8, OD_T("dmDriverExtra"), true);
    cfg.m_custom->setRawData(OD_T("0102030405060708"), true);
    return cfg;
}

class BackgroundStress : public PrinterRoomTest
{
protected:
    BackgroundStress()
    {
        add(OD_T("Plotter A"));
        add(OD_T("Plotter B"));
        for (const TemporaryFolder* folder : {&first, &second})
        {
            EXPECT_TRUE(configurationOf(OD_T("Plotter A")).write(folder->at("a.pc3")));
            EXPECT_TRUE(configurationOf(OD_T("Plotter B")).write(folder->at("b.pc3")));
            folder->addFile("bad.pc3");
        }
        searchIn(first);
    }

    ~BackgroundStress() override { getMainInternalInterface()->setPlotCfgSearchPath({}); }

    void add(const OdChar* name)
    {
        room.add({.name = name,
                  .driver = OD_T("Acme HP-GL"),
                  .port = OD_T("LPT1:"),
                  .papers = {{9, OD_T("A4")}, {8, OD_T("A3")}},
                  .driverExtra = 8});
    }

    static void searchIn(const TemporaryFolder& folder)
    {
        getMainInternalInterface()->setPlotCfgSearchPath(folder.path());
    }

    // How often each window received 0 and 1. Every message is from a check.
    std::map<HWND, std::array<int, 2>> answers() const
    {
        std::map<HWND, std::array<int, 2>> found;
        for (const room::PostedMessage& message : room.posted())
        {
            EXPECT_EQ(message.message, printerCheckedMessage);
            EXPECT_EQ(message.lParam, 0);
            EXPECT_LE(message.wParam, 1U);
            ++found[message.window][message.wParam != 0];
        }
        return found;
    }

    const TemporaryFolder first;
    const TemporaryFolder second;
};

TEST_F(BackgroundStress, checksReportOnceWhileTheMainThreadWorks)
{
    // The device names, each with its own window, and the result that each must have whatever happens meanwhile.
    const std::array<std::pair<const OdChar*, bool>, 6> devices = {{{OD_T("Plotter A"), true},
                                                                    {OD_T("plotter b"), true},
                                                                    {OD_T("a.pc3"), true},
                                                                    {OD_T("b.pc3"), true},
                                                                    {OD_T("missing.pc3"), false},
                                                                    {OD_T("bad.pc3"), false}}};
    std::array<HWND, devices.size()> windows = {};
    for (HWND& window : windows)
        window = room.newWindow();

    constexpr int rounds = 20;
    for (int round = 0; round < rounds; ++round)
    {
        for (std::size_t i = 0; i < devices.size(); ++i)
            startBackgroundCheck(OdString(devices[i].first), windows[i]);

        // The user carries on: other folders, another printer, a saved configuration, the same checks again at once.
        searchIn(round % 2 == 0 ? second : first);
        add(OD_T("Plotter C"));
        const OdString saved = second.at("saved.pc3");
        ASSERT_TRUE(configurationOf(OD_T("Plotter C")).write(saved));
        PrinterAnswer answer;
        EXPECT_TRUE(queryPrinter(saved, answer));
        EXPECT_EQ(answer.printerName, OD_T("Plotter C"));
        EXPECT_TRUE(queryPrinter(OD_T("a.pc3"), answer));
        EXPECT_EQ(answer.printerName, OD_T("Plotter A"));
        room.remove(OD_T("Plotter C"));
    }
    room.awaitPosted(rounds * devices.size());

    const auto found = answers();
    ASSERT_EQ(found.size(), devices.size());
    for (std::size_t i = 0; i < devices.size(); ++i)
    {
        const std::array<int, 2> expected = {devices[i].second ? 0 : rounds, devices[i].second ? rounds : 0};
        EXPECT_EQ(found.at(windows[i]), expected) << OdString(devices[i].first);
    }
}

// Counts on the threads of the checks. They may still use it after the test, so they share ownership.
class Count
{
public:
    void add()
    {
        const std::lock_guard lock(m_mutex);
        ++m_count;
        m_changed.notify_one();
    }

    void await(int count)
    {
        std::unique_lock lock(m_mutex);
        m_changed.wait(lock, [this, count] { return m_count >= count; });
    }

private:
    std::mutex m_mutex;
    std::condition_variable m_changed;
    int m_count = 0;
};

TEST_F(BackgroundStress, checksEndWithoutPrinterAndWindow)
{
    constexpr int checks = 40;
    const HWND closed = room.newWindow();
    const auto held = room.hold(Call::openPrinter, OD_T("Plotter B"));
    const auto ended = std::make_shared<Count>();
    room.onCall(Call::postMessage, {}, [ended](const room::CallRecord&) { ended->add(); });
    for (int i = 0; i < checks; ++i)
        startBackgroundCheck(OdString(OD_T("Plotter B")), closed);
    held->awaitEntered();

    // The user closes the sheet and deletes the printer while the driver is still busy.
    room.remove(OD_T("Plotter B"));
    room.refuse(Call::postMessage);
    held->release();
    ended->await(checks);

    EXPECT_TRUE(room.posted().empty());
    EXPECT_EQ(room.count(Call::openPrinter), checks);
    EXPECT_EQ(room.count(Call::postMessage), checks);
}
} // namespace
