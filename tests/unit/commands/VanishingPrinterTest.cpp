// A printer that is deleted, and one that comes back, at every single call that the commands make.
#include "GarmPC3Editor/Commands/EditedConfiguration.h"
#include "GarmPC3Editor/Commands/PrinterQuery.h"
#include "tests/unit/commands/CommandTest.h"

#include <functional>

namespace
{
constexpr room::Call allCalls[] = {room::Call::openPrinter,        room::Call::closePrinter,
                                   room::Call::getPrinter,         room::Call::getPrinterDriver,
                                   room::Call::enumPrinters,       room::Call::documentProperties,
                                   room::Call::deviceCapabilities, room::Call::createDC,
                                   room::Call::getDeviceCaps,      room::Call::deleteDC};

const OdChar* const name = OD_T("Plotter A");

class VanishingPrinterTest : public CommandTest
{
protected:
    // Repeats the work; the n-th time, the event happens right before the n-th call. Ends when the work makes fewer
    // calls, and returns the number of events. check sees each outcome, and nothing may be left open.
    template <class Work, class Check>
    int atEachCall(const std::function<void()>& event, const std::function<void()>& restore, Work work, Check check)
    {
        for (int n = 1;; ++n)
        {
            SCOPED_TRACE(n);
            int calls = 0;
            for (const room::Call call : allCalls)
                m_room.onCall(call, {},
                              [&calls, n, &event](const room::CallRecord&)
                              {
                                  if (++calls == n)
                                      event();
                              });
            const auto result = work();
            m_room.forgetHooks();
            EXPECT_EQ(m_room.openHandles(), 0);
            EXPECT_EQ(m_room.openContexts(), 0);
            const bool happened = calls >= n;
            check(result, happened);
            if (!happened)
                return n - 1;
            restore();
        }
    }

    void remove() { m_room.remove(name); }
    void putBack()
    {
        m_room.add({.name = name, .driver = OD_T("Acme HP-GL"), .port = OD_T("LPT1:"), .papers = {{9, OD_T("A4")}}});
    }
};

// Created completely or not at all.
void expectWhole(const EditedConfiguration& edited, bool mayBeMissing)
{
    if (!edited.cfg)
    {
        EXPECT_TRUE(mayBeMissing);
        EXPECT_EQ(edited.path, OdString());
        return;
    }
    EXPECT_EQ(edited.cfg->m_meta.m_win_device_name, name);
}

TEST_F(VanishingPrinterTest, newConfigurationIsWholeOrAbsent)
{
    int missing = 0;
    const int events = atEachCall([this] { remove(); }, [this] { putBack(); }, [] { return createForEditing(name); },
                                  [&missing](const EditedConfiguration& edited, bool happened)
                                  {
                                      expectWhole(edited, happened);
                                      missing += !edited.cfg;
                                  });
    EXPECT_GT(events, 10);
    EXPECT_GT(missing, 0) << "the printer was never missed";
}

TEST_F(VanishingPrinterTest, openedFileIsWholeOrAbsentAndUnchanged)
{
    const OdString path = putConfiguration(OD_T("a.pc3"));
    const std::set<std::string> files = m_folder.names();
    const int events =
        atEachCall([this] { remove(); }, [this] { putBack(); }, [] { return openForEditing(OD_T("a.pc3"), {}); },
                   [](const EditedConfiguration& edited, bool happened) { expectWhole(edited, happened); });
    EXPECT_GT(events, 3);
    EXPECT_EQ(m_folder.names(), files);
    EXPECT_TRUE(openForEditing(OD_T("a.pc3"), {}).cfg);
}

TEST_F(VanishingPrinterTest, deviceIsFoundOrNotAndAnswerFits)
{
    putConfiguration(OD_T("a.pc3"));
    for (const OdChar* device : {OD_T("a.pc3"), name})
    {
        SCOPED_TRACE(odToUtf8(OdString(device)));
        atEachCall([this] { remove(); }, [this] { putBack(); },
                   [device]
                   {
                       PrinterAnswer answer;
                       const bool found = queryPrinter(device, answer);
                       return std::pair(found, answer);
                   },
                   [](const std::pair<bool, PrinterAnswer>& result, bool happened)
                   {
                       EXPECT_EQ(result.first, !result.second.printerName.isEmpty());
                       if (!happened)
                       {
                           EXPECT_TRUE(result.first);
                       }
                   });
    }
}

TEST_F(VanishingPrinterTest, returningPrinterDoesNoHarm)
{
    putConfiguration(OD_T("a.pc3"));
    remove();
    const auto gone = [this] { remove(); };
    const auto back = [this] { putBack(); };
    atEachCall(
        back, gone, [] { return openForEditing(OD_T("a.pc3"), {}); },
        [](const EditedConfiguration& edited, bool) { expectWhole(edited, true); });
    atEachCall(
        back, gone, [] { return createForEditing(name); },
        [](const EditedConfiguration& edited, bool) { expectWhole(edited, true); });
}
} // namespace
