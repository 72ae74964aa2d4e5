#include "host/GarmInterfaces.h"
#include "host/GmResBufExtention.h"
#include "kernel/OdEdCommandStack.h"
#include "kernel/OdResBuf.h"
#include "processcounts/ProcessCounts.h"
#include "tests/win/module/ImportPatch.h"
#include "tests/win/module/LoadedModule.h"

#include <gtest/gtest.h>

#include <utility>

namespace
{
constexpr UINT printerChecked = WM_USER + 101;

// A spooler that knows no printer and answers when the test lets it.
HANDLE opened = nullptr;  // set when a check has come so far
HANDLE goOn = nullptr;    // lets it go on
HANDLE checker = nullptr; // its thread

BOOL WINAPI openNoPrinter(LPWSTR, LPHANDLE, LPPRINTER_DEFAULTSW)
{
    checker = ::OpenThread(SYNCHRONIZE, FALSE, ::GetCurrentThreadId());
    ::SetEvent(opened);
    ::WaitForSingleObject(goOn, INFINITE);
    ::SetLastError(ERROR_INVALID_PRINTER_NAME);
    return FALSE;
}

class ModuleBackground : public ::testing::Test
{
protected:
    ModuleBackground()
    {
        opened = ::CreateEventW(nullptr, TRUE, FALSE, nullptr);
        goOn = ::CreateEventW(nullptr, TRUE, FALSE, nullptr);
    }
    ~ModuleBackground() override
    {
        ::CloseHandle(opened);
        ::CloseHandle(goOn);
        ::DestroyWindow(m_window);
    }

    void startCheck(const LoadedModule& module, const OdChar* deviceName) const
    {
        ImportPatch patch(module.library(), "OpenPrinterW", reinterpret_cast<const void*>(&openNoPrinter));
        // A check may run, or the module be gone, when this function has returned.
        patch.forget();
        const GarmInterfacesPtr interfaces = newGarmInterfaces();
        GmServicesManagerInterface* values = getServicesManagerInterface(interfaces.get());
        values->set(L"deviceName", OdResBuf::newRb(kRtString, deviceName));
        values->set(L"printerName", OdResBuf::newRb(kRtString, L""));
        values->set(L"hwndPost", GmResBufExtention::newVoid(m_window));
        ASSERT_TRUE(odedRegCmds()->executeCommand(L"_PC3GETDEVMODE", interfaces.get()));
        EXPECT_EQ(values->names().size(), 3U);
    }

    static void waitForEndOfCheck()
    {
        ::WaitForSingleObject(checker, INFINITE);
        ::CloseHandle(std::exchange(checker, nullptr));
    }

    // Waits for the message of one check.
    MSG report() const
    {
        MSG message = {};
        while (::GetMessageW(&message, m_window, 0, 0) > 0 && message.message != printerChecked)
            ::DispatchMessageW(&message);
        return message;
    }

    const HWND m_window = ::CreateWindowExW(0, L"STATIC", L"", 0, 0, 0, 0, 0, HWND_MESSAGE, nullptr,
                                            ::GetModuleHandleW(nullptr), nullptr);
};

TEST_F(ModuleBackground, TheCheckReportsToTheWindow)
{
    LoadedModule module;
    startCheck(module, L"no such printer");
    ::SetEvent(goOn);
    const MSG message = report();
    EXPECT_EQ(message.message, 1125U);
    EXPECT_EQ(message.wParam, 0U);
    EXPECT_EQ(message.lParam, 0);
    waitForEndOfCheck();
}

TEST_F(ModuleBackground, TheModuleMayBeUnloadedWhileACheckRuns)
{
    {
        LoadedModule module;
        startCheck(module, L"hanging printer");
        ::WaitForSingleObject(opened, INFINITE);
    }
    EXPECT_TRUE(odedRegCmds()->commands().empty());
    EXPECT_TRUE(LoadedModule::isInProcess()) << "unloaded under a running check";

    ::SetEvent(goOn);
    EXPECT_EQ(report().wParam, 0U);
    waitForEndOfCheck();
    EXPECT_FALSE(LoadedModule::isInProcess()) << "the check's reference was not given back";
}

TEST_F(ModuleBackground, UnloadingRightAfterTheMessageIsSafe)
{
    ::SetEvent(goOn);
    for (int i = 0; i < 50; ++i)
    {
        {
            LoadedModule module;
            startCheck(module, L"no such printer");
            EXPECT_EQ(report().wParam, 0U);
        }
        waitForEndOfCheck();
        ASSERT_FALSE(LoadedModule::isInProcess());
    }
}

TEST_F(ModuleBackground, ACheckLeavesNoHandleBehind)
{
    ::SetEvent(goOn);
    LoadedModule module;
    const auto check = [&]
    {
        startCheck(module, L"no such printer");
        report();
        waitForEndOfCheck();
    };
    check();
    const std::size_t handles = openSystemHandles();
    for (int i = 0; i < 10; ++i)
        check();
    EXPECT_EQ(openSystemHandles(), handles);
}
} // namespace
