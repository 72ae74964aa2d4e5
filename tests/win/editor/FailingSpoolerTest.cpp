// A whole session of the editor, again and again: each time another call to the spooler or the driver fails, throws, or
// finds the printer deleted. The session runs to its end or does not start; the file is the old or the new one.

#include "tests/support/operator/DeviceTabUser.h"
#include "tests/win/editor/EditorTest.h"

#include "GarmPC3Editor/Commands/PC3EditCommand.h"
#include "host/GarmInterfaces.h"
#include "kernel/OdResBuf.h"
#include "kernel/OdRxObjectImpl.h"
#include "resources/Resource.h"

#include <fstream>
#include <functional>
#include <iterator>

namespace
{
constexpr room::Call allCalls[] = {room::Call::openPrinter,        room::Call::closePrinter,
                                   room::Call::getPrinter,         room::Call::getPrinterDriver,
                                   room::Call::enumPrinters,       room::Call::documentProperties,
                                   room::Call::deviceCapabilities, room::Call::createDC,
                                   room::Call::getDeviceCaps,      room::Call::deleteDC};

class FailingSpooler : public EditorTest
{
protected:
    // A file of "Plotter A", a driver that changes something in its dialog, and the whole session once undisturbed.
    FailingSpooler()
    {
        m_room.remove(L"Plotter A");
        addPlotter();
        const OdSharedPtr<GmPlotCfg3> cfg = newConfiguration();
        cfg->m_meta.m_config_description = L"old";
        EXPECT_TRUE(cfg->write(m_folder.at("a.pc3")));
        m_old = content();
        session();
        m_new = content();
        EXPECT_NE(m_old, m_new);
        putBackFile();
    }

    void addPlotter() { addPlotterSettingCopies(7); }

    std::string content() const
    {
        std::ifstream file(std::filesystem::path(m_folder.at("a.pc3").c_str()), std::ios::binary);
        return {std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
    }
    void putBackFile() const
    {
        std::ofstream(std::filesystem::path(m_folder.at("a.pc3").c_str()), std::ios::binary) << m_old;
    }

    // Edits the file with everything that asks the printer, and saves it. Whether the sheet came up.
    bool session()
    {
        GmServicesManagerInterface& values = m_interfaces->document().servicesManager();
        values.clear();
        values.set(L"plotCfgName", OdResBuf::newRb(kRtString, OdString(L"a.pc3")));
        values.set(L"bSystemPrinter", OdResBuf::newRb(kRtBool, false));
        bool opened = false;
        SheetDriver::run([&] { OdRxObjectImpl<PC3EditCommand>::createObject()->execute(m_interfaces.get()); },
                         [&](SheetDriver& user) { opened = use(user); });
        return opened;
    }

    static bool use(SheetDriver& user)
    {
        HWND sheet = nullptr;
        try
        {
            sheet = user.awaitWindow();
        }
        catch (const std::runtime_error&)
        {
            return false; // the command ended before
        }
        user.enter(sheet, IDC_DESCRIPTION, L"new");
        DeviceTabUser tab(user, sheet);
        tab.select(eCustomProp);
        tab.click(IDC_DRIVER_SETTINGS);
        user.press(tab.tab, IDC_DEFAULTS);
        user.answer(user.awaitWindow(), IDYES);
        user.selectTab(sheet, 0);
        tab.pressOk();
        const HWND dialog = user.awaitWindow();
        EXPECT_EQ(user.textOf(dialog, IDC_CFG_NAME), L"a");
        user.press(dialog, IDOK);
        return true;
    }

    // After a session in which something went wrong.
    void expectOrder(bool opened)
    {
        EXPECT_EQ(m_room.openHandles(), 0);
        EXPECT_EQ(m_room.openContexts(), 0);
        EXPECT_EQ(m_folder.names(), std::set<std::string>{"a.pc3"});
        const auto values = m_interfaces->document().servicesManager().names().size();
        if (opened)
        {
            const OdSharedPtr<GmPlotCfg3> saved = read("a.pc3");
            ASSERT_TRUE(saved);
            EXPECT_EQ(saved->m_meta.m_config_description, L"new");
            EXPECT_EQ(values, 6U);
        }
        else
        {
            EXPECT_EQ(content(), m_old);
            EXPECT_EQ(values, 2U) << "answers of a session that did not begin";
        }
        putBackFile();
    }

    // Spoils the first call of a session, the second, and so on. How many there were, and how many sessions began.
    struct Counts
    {
        int spoiled = 0;
        int opened = 0;
    };
    Counts spoilEach(void (PrinterRoom::*sabotage)(int))
    {
        for (Counts counts;;)
        {
            SCOPED_TRACE(counts.spoiled + 1);
            (m_room.*sabotage)(counts.spoiled + 1);
            const bool opened = session();
            const bool spoiled = m_room.failureReached();
            (m_room.*sabotage)(0);
            expectOrder(opened);
            if (!spoiled || HasFailure())
                return counts;
            ++counts.spoiled;
            counts.opened += opened;
        }
    }

    GarmInterfacesPtr m_interfaces = newGarmInterfaces();
    std::string m_old;
    std::string m_new;
};

TEST_F(FailingSpooler, eachCallMayFail)
{
    const Counts counts = spoilEach(&PrinterRoom::failNth);
    EXPECT_GT(counts.spoiled, 20);
    // A single failure keeps the file from being bound by name or by driver, never from both.
    EXPECT_EQ(counts.opened, counts.spoiled);
}

TEST_F(FailingSpooler, eachCallMayThrow)
{
    const Counts counts = spoilEach(&PrinterRoom::throwNth);
    EXPECT_GT(counts.spoiled, 20);
    EXPECT_GT(counts.opened, 0);
}

TEST_F(FailingSpooler, thePrinterMayGoAtEachCall)
{
    for (int n = 1;; ++n)
    {
        SCOPED_TRACE(n);
        int calls = 0;
        for (const room::Call call : allCalls)
            m_room.onCall(call, {},
                          [&](const room::CallRecord&)
                          {
                              if (++calls == n)
                                  m_room.remove(L"Plotter A");
                          });
        // Its driver has another printer, "Plotter B": what is opened later is bound to that one.
        const bool opened = session();
        m_room.forgetHooks();
        expectOrder(opened);
        if (calls < n || HasFailure())
        {
            EXPECT_GT(n, 20);
            return;
        }
        addPlotter();
    }
}
} // namespace
