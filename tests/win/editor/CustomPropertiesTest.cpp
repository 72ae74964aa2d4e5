// The button of the custom properties, on a Windows printer.

#include "tests/support/operator/SentMessages.h"
#include "tests/win/editor/DeviceTabTest.h"

#include "resources/Resource.h"
#include "spooler/DevModeView.h"

namespace
{
using Types = std::vector<GmDeviceEntry>;
using room::Call;

constexpr DWORD withDialog = DM_IN_BUFFER | DM_IN_PROMPT | DM_OUT_BUFFER;

class CustomProperties : public DeviceTabTest
{
protected:
    CustomProperties() { m_room.forgetCalls(); }

    // What the driver makes of the block in its dialog.
    void driverChanges(std::function<void(DEVMODEW& dm)> change)
    {
        room::Printer& printer = addedPrinter();
        printer.merge = [change = std::move(change)](std::vector<BYTE>& block, const std::vector<BYTE>& input)
        {
            block = input;
            change(reinterpret_cast<DEVMODEW&>(*block.data()));
        };
    }
    // "Plotter A" once more, in a way that a test can still change.
    room::Printer& addedPrinter()
    {
        if (!m_printer)
        {
            m_room.remove(L"Plotter A");
            m_printer = &m_room.add({.name = L"Plotter A",
                                     .driver = L"Acme HP-GL",
                                     .port = L"LPT1:",
                                     .papers = {{9, L"A4"}, {8, L"A3"}},
                                     .driverExtra = 8});
        }
        return *m_printer;
    }

    static void pressButton(const DeviceTabUser& tab) { tab.click(IDC_DRIVER_SETTINGS); }
    std::vector<room::CallRecord> dialogCalls() const
    {
        std::vector<room::CallRecord> found = m_room.calls();
        std::erase_if(found, [](const room::CallRecord& call)
                      { return call.call != Call::documentProperties || call.detail != withDialog; });
        return found;
    }
    std::int16_t copies() const { return static_cast<std::int16_t>(m_cfg->m_media.m_number_of_copies); }

private:
    room::Printer* m_printer = nullptr;
};
} // namespace

TEST_F(CustomProperties, driversDialogIsGivenConfigurationsDeviceMode)
{
    m_cfg->m_media.m_number_of_copies = 7;
    HWND page = nullptr;
    run(
        [&page](DeviceTabUser& tab)
        {
            page = tab.shownPage();
            pressButton(tab);
        });
    const auto calls = dialogCalls();
    ASSERT_EQ(calls.size(), 1U);
    EXPECT_EQ(calls[0].owner, page);
    EXPECT_EQ(calls[0].printer, L"Plotter A");
    EXPECT_EQ(DevModeView(calls[0].devMode).fields().dmCopies, 7);
}

TEST_F(CustomProperties, printerStaysOpenUntilItsSettingsAreApplied)
{
    int atTheCall = 0;
    int whileTakingBack = 0;
    int afterwards = -1;
    driverChanges([](DEVMODEW& dm) { dm.dmCopies = 3; });
    m_room.onCall(Call::documentProperties, L"Plotter A",
                  [&](const room::CallRecord& call)
                  {
                      if (call.detail == withDialog)
                          atTheCall = m_room.openHandles();
                  });
    m_room.onCall(Call::createDC, L"Plotter A",
                  [&](const room::CallRecord&) { whileTakingBack = m_room.openHandles(); });
    run(
        [&](DeviceTabUser& tab)
        {
            pressButton(tab);
            afterwards = m_room.openHandles();
        });
    m_room.forgetHooks();
    EXPECT_EQ(atTheCall, 1);
    EXPECT_EQ(whileTakingBack, 2) << "the configuration opens it for itself too";
    EXPECT_EQ(afterwards, 0);
    EXPECT_EQ(copies(), 3);
}

TEST_F(CustomProperties, whatWasSetIsInConfigurationAndMarked)
{
    driverChanges(
        [](DEVMODEW& dm)
        {
            dm.dmPaperSize = 8;
            dm.dmCollate = DMCOLLATE_TRUE;
            dm.dmCopies = 3;
        });
    run(
        [this](DeviceTabUser& tab)
        {
            pressButton(tab);
            EXPECT_EQ(copies(), 3);
            EXPECT_EQ(tab.markedEntries(), (Types{eSourceSize, eCollating}));
            EXPECT_EQ(tab.label(eSourceSize), libraryText(IDS_SOURCE_SIZE) + L" <Size: A3>");
        });
    EXPECT_TRUE(m_sheet.m_modified);
}

TEST_F(CustomProperties, dialogThatWasCancelledWithOkChangesNothing)
{
    // As the drivers under Wine do: they return OK and leave the block unchanged.
    driverChanges([](DEVMODEW&) {});
    int texts = 0;
    const SentMessages watch = countingTreeTexts(texts);
    run(
        [&texts](DeviceTabUser& tab)
        {
            texts = 0;
            pressButton(tab);
            EXPECT_TRUE(tab.markedEntries().empty());
            EXPECT_EQ(texts, 11) << "the tree is refreshed all the same";
        });
    EXPECT_FALSE(m_sheet.m_modified);
}

TEST_F(CustomProperties, aCancelledDialogLeavesTheConfiguration)
{
    driverChanges([](DEVMODEW& dm) { dm.dmCopies = 3; });
    for (const LONG answer : {LONG{IDCANCEL}, LONG{-1}, LONG{0}})
    {
        addedPrinter().lies.mergeAnswer = answer;
        EditorSheet sheet;
        sheet.setConfig(m_cfg, L"C:\\plotter.pc3", L"");
        int texts = 0;
        const SentMessages watch(
            [&texts](HWND, UINT message, WPARAM, LPARAM)
            {
                if (message == TVM_SETITEMW)
                    ++texts;
            });
        sheet.show(
            [&texts](SheetDriver& user, HWND window)
            {
                const DeviceTabUser tab(user, window);
                texts = 0;
                pressButton(tab);
                EXPECT_EQ(texts, 0);
                tab.pressOk();
            });
        EXPECT_EQ(copies(), 1);
        EXPECT_FALSE(sheet.m_modified);
    }
    EXPECT_EQ(dialogCalls().size(), 3U);
}

TEST_F(CustomProperties, whatTakeoverChangedBeforeItFailedIsChange)
{
    // The private bytes are taken first; a paper that the printer does not have then ends it.
    driverChanges(
        [](DEVMODEW& dm)
        {
            reinterpret_cast<BYTE*>(&dm)[dm.dmSize] ^= 0xFF;
            dm.dmPaperSize = 66;
            dm.dmFields |= DM_PAPERSIZE;
            dm.dmCopies = 3;
        });
    m_cfg->m_meta.m_truetype_as_text = true;
    run(
        [this](DeviceTabUser& tab)
        {
            // Changed behind the tab's back, so that a refresh is visible.
            m_cfg->m_meta.m_truetype_as_text = false;
            pressButton(tab);
            EXPECT_EQ(copies(), 1);
            EXPECT_EQ(tab.markedEntries(), Types{eTrueType});
        });
    EXPECT_TRUE(m_sheet.m_modified);
}

TEST_F(CustomProperties, withoutADeviceModeNothingIsAsked)
{
    run(
        [this](DeviceTabUser& tab)
        {
            m_cfg->m_custom = nullptr;
            m_room.forgetCalls();
            pressButton(tab);
        });
    EXPECT_EQ(m_room.count(Call::openPrinter), 0);
    EXPECT_FALSE(m_sheet.m_modified);
}

TEST_F(CustomProperties, printerThatCannotBeOpenedIsNotAsked)
{
    m_room.refuse(Call::openPrinter, L"Plotter A");
    run([](DeviceTabUser& tab) { pressButton(tab); });
    EXPECT_TRUE(dialogCalls().empty());
    EXPECT_FALSE(m_sheet.m_modified);
}

TEST_F(CustomProperties, otherDriverTypesHaveNoDialog)
{
    const std::pair<std::int32_t, const OdChar*> others[] = {
        {3, OD_T("DWF6_ePlot_for_plotting")},
        {3, OD_T("DWFx_ePlot_for_plotting")},
        {3, OD_T("pdf")},
        {3, OD_T("else")},
        {0, OD_T("png")},
        {0, OD_T("jfif")},
        {0, OD_T("else")},
        {2, OD_T("pdf")},
        {-1, OD_T("")},
    };
    run(
        [&](DeviceTabUser& tab)
        {
            for (const auto& [type, model] : others)
            {
                m_cfg->m_meta.m_driver_type = type;
                m_cfg->m_meta.m_canonical_model_name = model;
                m_room.forgetCalls();
                pressButton(tab);
                EXPECT_TRUE(m_room.calls().empty()) << type;
                EXPECT_TRUE(tab.markedEntries().empty()) << type;
            }
        });
    EXPECT_FALSE(m_sheet.m_modified);
}

TEST_F(CustomProperties, sheetIsDisabledMeanwhileAndGetsFocusBack)
{
    HWND sheet = nullptr;
    bool wasEnabled = true;
    m_room.onCall(Call::documentProperties, L"Plotter A",
                  [&](const room::CallRecord& call)
                  {
                      if (call.detail != withDialog)
                          return;
                      wasEnabled = ::IsWindowEnabled(sheet) != FALSE;
                      // A dialog of the driver takes the focus away.
                      const HWND dialog = ::CreateWindowExW(0, L"STATIC", L"", WS_POPUP | WS_VISIBLE, 0, 0, 50, 50,
                                                            sheet, nullptr, nullptr, nullptr);
                      ::SetActiveWindow(dialog);
                      ::SetFocus(dialog);
                      ::DestroyWindow(dialog);
                  });
    run(
        [&](DeviceTabUser& tab)
        {
            sheet = tab.sheet;
            const HWND button = tab.control(IDC_DRIVER_SETTINGS);
            tab.user.focusOn(button);
            pressButton(tab);
            EXPECT_FALSE(wasEnabled);
            EXPECT_TRUE(::IsWindowEnabled(tab.sheet));
            EXPECT_EQ(tab.user.focus(), button);
            HWND active = nullptr;
            onSheetsThread(tab, [&] { active = ::GetActiveWindow(); });
            EXPECT_EQ(active, tab.sheet);
        });
    m_room.forgetHooks();
}

TEST_F(CustomProperties, sheetIsActiveAfterwardsEvenWithoutAFocus)
{
    HWND other = nullptr;
    m_room.onCall(Call::documentProperties, L"Plotter A",
                  [&other](const room::CallRecord& call)
                  {
                      if (call.detail == withDialog)
                          ::SetActiveWindow(other);
                  });
    run(
        [&](DeviceTabUser& tab)
        {
            const HWND page = tab.shownPage();
            HWND active = nullptr;
            onSheetsThread(tab,
                           [&]
                           {
                               other = ::CreateWindowExW(0, L"STATIC", L"", WS_POPUP | WS_VISIBLE, 0, 0, 50, 50,
                                                         nullptr, nullptr, nullptr, nullptr);
                               ::SetActiveWindow(tab.sheet);
                               ::SetFocus(nullptr);
                               ::SendMessageW(page, WM_COMMAND, MAKEWPARAM(IDC_DRIVER_SETTINGS, BN_CLICKED),
                                              reinterpret_cast<LPARAM>(::GetDlgItem(page, IDC_DRIVER_SETTINGS)));
                               active = ::GetActiveWindow();
                               ::DestroyWindow(other);
                           });
            EXPECT_EQ(active, tab.sheet);
        });
    m_room.forgetHooks();
    EXPECT_EQ(dialogCalls().size(), 1U);
}

TEST_F(CustomProperties, failingDriverLeavesTheSheetUsable)
{
    driverChanges([](DEVMODEW& dm) { dm.dmCopies = 3; });
    run(
        [this](DeviceTabUser& tab)
        {
            for (const auto spoil : {&PrinterRoom::failNth, &PrinterRoom::throwNth})
                for (int n = 1;; ++n)
                {
                    (m_room.*spoil)(n);
                    pressButton(tab);
                    const bool spoiled = m_room.failureReached();
                    (m_room.*spoil)(0);
                    EXPECT_TRUE(::IsWindowEnabled(tab.sheet));
                    EXPECT_EQ(m_room.openHandles(), 0) << n;
                    EXPECT_EQ(m_room.openContexts(), 0) << n;
                    if (!spoiled)
                    {
                        EXPECT_GT(n, 5);
                        break;
                    }
                }
        });
    EXPECT_EQ(copies(), 3);
}
