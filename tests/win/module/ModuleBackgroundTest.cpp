#include "host/GarmInterfaces.h"
#include "host/GmLanguage.h"
#include "host/GmResBufExtention.h"
#include "kernel/OdEdCommandStack.h"
#include "kernel/OdResBuf.h"
#include "tests/support/processcounts/ProcessCounts.h"
#include "tests/win/module/ImportPatch.h"
#include "tests/win/module/LoadedModule.h"
#include "win32/windows/MessageWindow.h"

#include <gtest/gtest.h>

#include <mutex>
#include <optional>
#include <vector>

namespace
{
constexpr UINT printerChecked = WM_USER + 101;

// A spooler without printers that returns when the test lets it.
KernelHandle opened;                // counts the checks that have come so far
KernelHandle goOn;                  // lets them go on
std::vector<KernelHandle> checkers; // their threads
std::mutex checkersMutex;

BOOL WINAPI openNoPrinter(LPWSTR, LPHANDLE, LPPRINTER_DEFAULTSW)
{
    {
        const std::lock_guard lock(checkersMutex);
        checkers.emplace_back(::OpenThread(SYNCHRONIZE, FALSE, ::GetCurrentThreadId()));
    }
    ::ReleaseSemaphore(opened.get(), 1, nullptr);
    ::WaitForSingleObject(goOn.get(), INFINITE);
    ::SetLastError(ERROR_INVALID_PRINTER_NAME);
    return FALSE;
}

class ModuleBackground : public ::testing::Test
{
protected:
    ModuleBackground()
    {
        opened = KernelHandle(::CreateSemaphoreW(nullptr, 0, 1000, nullptr));
        goOn = KernelHandle(::CreateEventW(nullptr, TRUE, FALSE, nullptr));
    }
    ~ModuleBackground() override
    {
        opened.reset();
        goOn.reset();
    }

    void startCheck(const LoadedModule& module, const OdChar* deviceName) const
    {
        startCheck(module, deviceName, m_window.handle());
    }
    static void startCheck(const LoadedModule& module, const OdChar* deviceName, HWND window)
    {
        ImportPatch patch(module.library(), "OpenPrinterW", reinterpret_cast<const void*>(&openNoPrinter));
        // A check may be running, or the module unloaded, when this function has returned.
        patch.forget();
        const GarmInterfacesPtr interfaces = newGarmInterfaces();
        GmServicesManagerInterface* values = getServicesManagerInterface(interfaces.get());
        values->set(L"deviceName", OdResBuf::newRb(kRtString, deviceName));
        values->set(L"printerName", OdResBuf::newRb(kRtString, L""));
        values->set(L"hwndPost", GmResBufExtention::newVoid(window));
        ASSERT_TRUE(odedRegCmds()->executeCommand(L"_PC3GETDEVMODE", interfaces.get()));
        EXPECT_EQ(values->names().size(), 3U);
    }

    static void waitUntilOpened(int checks)
    {
        for (int i = 0; i < checks; ++i)
            ::WaitForSingleObject(opened.get(), INFINITE);
    }

    // Of all that have reported, so that none is still on its way to the spooler.
    static void waitForEndOfChecks()
    {
        const std::lock_guard lock(checkersMutex);
        for (const KernelHandle& checker : checkers)
            ::WaitForSingleObject(checker.get(), INFINITE);
        checkers.clear();
    }

    // Waits for the message of one check.
    MSG report() const
    {
        MSG message = {};
        while (::GetMessageW(&message, m_window.handle(), 0, 0) > 0 && message.message != printerChecked)
            ::DispatchMessageW(&message);
        return message;
    }

    MessageWindow m_window;
};

TEST_F(ModuleBackground, theCheckReportsToTheWindow)
{
    LoadedModule module;
    startCheck(module, L"no such printer");
    ::SetEvent(goOn.get());
    const MSG message = report();
    EXPECT_EQ(message.message, 1125U);
    EXPECT_EQ(message.wParam, 0U);
    EXPECT_EQ(message.lParam, 0);
    waitForEndOfChecks();
}

TEST_F(ModuleBackground, moduleMayBeUnloadedWhileCheckRuns)
{
    {
        LoadedModule module;
        startCheck(module, L"hanging printer");
        waitUntilOpened(1);
    }
    EXPECT_TRUE(odedRegCmds()->commands().empty());
    EXPECT_TRUE(LoadedModule::isInProcess()) << "unloaded under a running check";

    ::SetEvent(goOn.get());
    EXPECT_EQ(report().wParam, 0U);
    waitForEndOfChecks();
    EXPECT_FALSE(LoadedModule::isInProcess()) << "the check's reference was not given back";
}

TEST_F(ModuleBackground, unloadingRightAfterTheMessageIsSafe)
{
    ::SetEvent(goOn.get());
    for (int i = 0; i < 50; ++i)
    {
        {
            LoadedModule module;
            startCheck(module, L"no such printer");
            EXPECT_EQ(report().wParam, 0U);
        }
        waitForEndOfChecks();
        ASSERT_FALSE(LoadedModule::isInProcess());
    }
}

TEST_F(ModuleBackground, aCheckLeavesNoHandleBehind)
{
    ::SetEvent(goOn.get());
    LoadedModule module;
    const auto check = [&]
    {
        startCheck(module, L"no such printer");
        report();
        waitForEndOfChecks();
    };
    check();
    const std::size_t handles = openSystemHandles();
    for (int i = 0; i < 10; ++i)
        check();
    EXPECT_EQ(openSystemHandles(), handles);
}

// -- Many at once ----------------------------------------------------------------------------------------------------

TEST_F(ModuleBackground, checksHoldTheModuleUntilTheLastEnds)
{
    constexpr int count = 20;
    const auto manyChecks = [this]
    {
        ::ResetEvent(goOn.get());
        {
            LoadedModule module;
            for (int i = 0; i < count; ++i)
                startCheck(module, L"hanging printer");
            waitUntilOpened(count);
        }
        EXPECT_TRUE(LoadedModule::isInProcess());
        ::SetEvent(goOn.get());
        for (int i = 0; i < count; ++i)
            EXPECT_EQ(report().wParam, 0U);
        waitForEndOfChecks();
        EXPECT_FALSE(LoadedModule::isInProcess());
        MSG message = {};
        EXPECT_FALSE(::PeekMessageW(&message, m_window.handle(), printerChecked, printerChecked, PM_REMOVE))
            << "reported twice";
    };
    // Under Wine the spooler's library leaks a handle each time it is unloaded, so it stays loaded.
    const LibraryHandle spooler(::LoadLibraryW(L"winspool.drv"));
    // As many threads at once as never before leave something for the next ones.
    manyChecks();
    const std::size_t handles = openSystemHandles();
    for (int i = 0; i < 5; ++i)
        manyChecks();
    EXPECT_EQ(openSystemHandles(), handles);
}

TEST_F(ModuleBackground, reloadIsPossibleWhileACheckRuns)
{
    {
        LoadedModule module;
        startCheck(module, L"hanging printer");
        waitUntilOpened(1);
    }
    {
        LoadedModule again;
        EXPECT_EQ(odedRegCmds()->commands().size(), 2U);
        startCheck(again, L"another hanging printer");
        waitUntilOpened(1);
    }
    EXPECT_TRUE(odedRegCmds()->commands().empty());
    ::SetEvent(goOn.get());
    for (int i = 0; i < 2; ++i)
        EXPECT_EQ(report().wParam, 0U);
    waitForEndOfChecks();
    EXPECT_FALSE(LoadedModule::isInProcess());
}

TEST_F(ModuleBackground, languageMayChangeDuringALateCheck)
{
    {
        LoadedModule module;
        startCheck(module, L"hanging printer");
        waitUntilOpened(1);
    }
    EXPECT_TRUE(setUiLanguage(L"de"));
    EXPECT_TRUE(setUiLanguage(L"en"));
    ::SetEvent(goOn.get());
    EXPECT_EQ(report().wParam, 0U);
    waitForEndOfChecks();
    EXPECT_FALSE(LoadedModule::isInProcess());
    // The callback of a module that went by itself is not called any more.
    EXPECT_TRUE(setUiLanguage(L"de"));
    EXPECT_TRUE(setUiLanguage(L"en"));
    EXPECT_EQ(languageCallbackCount(), 0U);
}

TEST_F(ModuleBackground, checkSurvivesALostWindow)
{
    LoadedModule module;
    std::optional<MessageWindow> window(std::in_place);
    startCheck(module, L"hanging printer", window->handle());
    waitUntilOpened(1);
    window.reset();
    ::SetEvent(goOn.get());
    waitForEndOfChecks();
    module.unload();
    EXPECT_FALSE(LoadedModule::isInProcess());
}
} // namespace
