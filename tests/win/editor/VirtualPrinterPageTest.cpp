// The button of the custom properties, on one of the product family's own printers.

#include "tests/win/editor/DeviceTabTest.h"
#include "tests/win/editor/HostDialog.h"

#include "host/GmResellerData.h"
#include "resources/Resource.h"
#include "spooler/DevModeView.h"

#include <stdexcept>

namespace
{
using room::Call;

constexpr DWORD silently = DM_IN_BUFFER | DM_OUT_BUFFER;

class VirtualPrinterPage : public DeviceTabTest
{
protected:
    VirtualPrinterPage()
    {
        GmResellerData::set(OD_T("PDFPRINTERNAME"), OD_T("plotter a"));
        m_room.forgetCalls();
    }
    ~VirtualPrinterPage() override { GmResellerData::clear(); }

    // Presses the button and delivers the dialog it opens.
    static HWND open(const DeviceTabUser& tab)
    {
        tab.user.press(tab.tab, IDC_DRIVER_SETTINGS);
        return tab.user.awaitWindow();
    }
    static void close(const DeviceTabUser& tab, HWND dialog, int button)
    {
        tab.user.press(dialog, button);
        tab.user.awaitClosed(dialog);
        tab.user.settle();
    }
    // The merges that the driver was asked for.
    std::vector<room::CallRecord> merges() const
    {
        std::vector<room::CallRecord> found = m_room.calls();
        std::erase_if(found, [](const room::CallRecord& call)
                      { return call.call != Call::documentProperties || !(call.detail & DM_IN_BUFFER); });
        return found;
    }
};
} // namespace

TEST_F(VirtualPrinterPage, itsOwnDialogIsShownInsteadOfDrivers)
{
    HWND page = nullptr;
    run(
        [&](DeviceTabUser& tab)
        {
            page = tab.shownPage();
            const HWND dialog = open(tab);
            EXPECT_EQ(tab.user.text(dialog), L"Plotter A - Properties");
            EXPECT_TRUE(tab.user.hasControl(dialog, IDC_QUALITY));
            EXPECT_FALSE(::IsWindowEnabled(tab.sheet));
            EXPECT_EQ(::GetWindow(dialog, GW_OWNER), tab.sheet);
            close(tab, dialog, IDCANCEL);
            EXPECT_TRUE(::IsWindowEnabled(tab.sheet));
        });
    // Before the dialog opens the driver completes the block without a window of its own; the page is still the owner.
    ASSERT_EQ(merges().size(), 1U);
    EXPECT_EQ(merges()[0].detail, silently);
    EXPECT_EQ(merges()[0].owner, page);
    EXPECT_FALSE(m_sheet.m_modified);
}

TEST_F(VirtualPrinterPage, theJpgPrinterHasItToo)
{
    GmResellerData::clear();
    GmResellerData::set(OD_T("JPGPRINTERNAME"), OD_T("Plotter A"));
    run(
        [](DeviceTabUser& tab)
        {
            const HWND dialog = open(tab);
            EXPECT_EQ(tab.user.text(dialog), L"Plotter A - Properties");
            close(tab, dialog, IDCANCEL);
        });
}

TEST_F(VirtualPrinterPage, okPutsTheChoiceIntoTheConfiguration)
{
    run(
        [](DeviceTabUser& tab)
        {
            const HWND dialog = open(tab);
            const HWND list = tab.user.control(dialog, IDC_QUALITY);
            tab.user.send(list, WM_KEYDOWN, VK_HOME, 1); // 72 dots per inch
            close(tab, dialog, IDOK);
            EXPECT_TRUE(::IsWindowEnabled(tab.sheet));
        });
    const auto calls = merges();
    ASSERT_EQ(calls.size(), 2U);
    EXPECT_EQ(calls[1].owner, nullptr);
    const DevModeView handed(calls[1].devMode);
    EXPECT_EQ(handed.rawFlags(), static_cast<DWORD>(DM_PRINTQUALITY | DM_PAPERSIZE));
    EXPECT_EQ(handed.fields().dmPrintQuality, 72);
    EXPECT_TRUE(m_sheet.m_modified);
}

TEST_F(VirtualPrinterPage, theAnswerOfTheDialogIsNotUsed)
{
    // Changes by the silent call are kept even though the dialog is cancelled.
    m_cfg->m_media.m_number_of_copies = 1;
    m_room.remove(L"Plotter A");
    addPlotterSettingCopies(5);
    run([](DeviceTabUser& tab) { close(tab, open(tab), IDCANCEL); });
    EXPECT_EQ(m_cfg->m_media.m_number_of_copies, 5);
    EXPECT_TRUE(m_sheet.m_modified);
}

TEST_F(VirtualPrinterPage, refusedSilentCallStillShowsTheDialog)
{
    m_room.refuse(Call::documentProperties, L"Plotter A");
    run(
        [](DeviceTabUser& tab)
        {
            const HWND dialog = open(tab);
            close(tab, dialog, IDOK);
            EXPECT_TRUE(tab.markedEntries().empty());
        });
    EXPECT_FALSE(m_sheet.m_modified);
}

TEST_F(VirtualPrinterPage, driverThatThrowsLeavesDialogAndSheetUsable)
{
    m_room.onCall(Call::documentProperties, L"Plotter A",
                  [](const room::CallRecord& call)
                  {
                      if (call.detail & DM_IN_BUFFER)
                          throw std::runtime_error("the driver crashed");
                  });
    run(
        [this](DeviceTabUser& tab)
        {
            const HWND dialog = open(tab);
            EXPECT_TRUE(tab.user.hasControl(dialog, IDC_QUALITY));
            close(tab, dialog, IDOK);
            EXPECT_TRUE(::IsWindowEnabled(tab.sheet));
            EXPECT_TRUE(tab.markedEntries().empty());
        });
    m_room.forgetHooks();
    EXPECT_FALSE(m_sheet.m_modified);
}

TEST_F(VirtualPrinterPage, theHostsPapersAreFoundFromThePage)
{
    HostDialog host;
    host.addPaper(L"A4");
    host.addPaper(L"A3");
    host.selectPaper(0);
    ::SetActiveWindow(host.window());
    run(
        [&](DeviceTabUser& tab)
        {
            EXPECT_EQ(::GetWindow(tab.sheet, GW_OWNER), host.window());
            const HWND dialog = open(tab);
            const HWND list = tab.user.control(dialog, IDC_PAPER);
            EXPECT_EQ(tab.user.send(list, CB_GETCOUNT), 2);
            tab.user.send(list, WM_KEYDOWN, VK_DOWN, 1);
            tab.user.click(dialog, IDC_LANDSCAPE);
            close(tab, dialog, IDOK);
            EXPECT_EQ(tab.label(eSourceSize), libraryText(IDS_SOURCE_SIZE) + L" <Size: A3>");
        });
    EXPECT_EQ(host.selectedPaper(), 1);
    EXPECT_TRUE(host.isLandscapeChecked());
    EXPECT_EQ(m_cfg->m_media.m_dm_orientation, DMORIENT_LANDSCAPE);
    EXPECT_TRUE(m_sheet.m_modified);
}
