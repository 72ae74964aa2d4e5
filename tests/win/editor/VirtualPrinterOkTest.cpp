// What OK of the virtual printers' dialog writes, and where.

#include "tests/support/PrinterRoomTest.h"
#include "tests/win/editor/VirtualPrinterTest.h"
#include "tests/win/mfc/BoxAnswerer.h"

#include "resources/Resource.h"

#include <cstring>
#include <vector>

using VirtualPrinterOk = VirtualPrinterTest;

namespace
{
constexpr DWORD always = DM_PRINTQUALITY | DM_PAPERSIZE;
} // namespace

TEST_F(VirtualPrinterOk, writesPapersCodeQualityAndOrientation)
{
    const DEVMODEW handed = confirm(
        [](ScriptedPrintDlg& dialog)
        {
            dialog.select(IDC_PAPER, 1);
            dialog.select(IDC_QUALITY, 4);
            dialog.click(IDC_LANDSCAPE);
        });
    // What was set before is dropped.
    EXPECT_EQ(handed.dmFields, always | DM_ORIENTATION);
    EXPECT_EQ(handed.dmPaperSize, 8);
    EXPECT_EQ(handed.dmPrintQuality, 1200);
    EXPECT_EQ(handed.dmOrientation, DMORIENT_LANDSCAPE);
}

TEST_F(VirtualPrinterOk, hostGetsTheChosenPaperAndOrientation)
{
    run(
        [](ScriptedPrintDlg& dialog)
        {
            dialog.select(IDC_PAPER, 2);
            dialog.click(IDC_LANDSCAPE);
            dialog.click(IDOK);
        });
    EXPECT_EQ(host->selectedPaper(), 2);
    EXPECT_FALSE(host->isPortraitChecked());
    EXPECT_TRUE(host->isLandscapeChecked());

    run(
        [](ScriptedPrintDlg& dialog)
        {
            dialog.select(IDC_PAPER, 0);
            dialog.click(IDC_PORTRAIT);
            dialog.click(IDOK);
        });
    EXPECT_EQ(host->selectedPaper(), 0);
    EXPECT_TRUE(host->isPortraitChecked());
    EXPECT_FALSE(host->isLandscapeChecked());
}

TEST_F(VirtualPrinterOk, cancelChangesNothingAnywhere)
{
    const DEVMODEW before = devMode();
    EXPECT_EQ(run(
                  [](ScriptedPrintDlg& dialog)
                  {
                      dialog.select(IDC_PAPER, 1);
                      dialog.select(IDC_QUALITY, 0);
                      dialog.click(IDC_LANDSCAPE);
                      dialog.click(IDCANCEL);
                  }),
              IDCANCEL);
    EXPECT_EQ(std::memcmp(&before, &devMode(), sizeof before), 0);
    EXPECT_EQ(host->selectedPaper(), 0);
    EXPECT_TRUE(host->isPortraitChecked());
    EXPECT_TRUE(handedToDriver().empty());
}

TEST_F(VirtualPrinterOk, driverBytesAfterAShortPublicPartStay)
{
    openHost().selectPaper(2);
    devMode().dmSize = 76;
    devMode().dmDriverExtra = 40;
    BYTE* const privateBytes = reinterpret_cast<BYTE*>(&devMode()) + 76;
    std::memset(privateBytes, 0x55, 40);
    m_room.refuse(room::Call::documentProperties);
    EXPECT_EQ(run(
                  [](ScriptedPrintDlg& dialog)
                  {
                      // The fields that are not there read as 0, not as 0x5555.
                      EXPECT_EQ(dialog.textOf(IDC_PAPER_WIDTH), L"0");
                      EXPECT_EQ(dialog.textOf(IDC_PAPER_LENGTH), L"0");
                      dialog.type(IDC_PAPER_WIDTH, L"210");
                      dialog.click(IDC_LANDSCAPE);
                      dialog.click(IDOK);
                  }),
              IDOK);
    EXPECT_EQ(devMode().dmFields, 0U);
    EXPECT_EQ(std::vector<BYTE>(privateBytes, privateBytes + 40), std::vector<BYTE>(40, 0x55));
}

TEST_F(VirtualPrinterOk, anUnknownQualityIsWrittenAsTheFirst)
{
    devMode().dmPrintQuality = 200;
    const DEVMODEW handed = confirm([](ScriptedPrintDlg&) {});
    EXPECT_EQ(handed.dmPrintQuality, 72);
}

TEST_F(VirtualPrinterOk, withoutASelectedQualityItIs600)
{
    const DEVMODEW handed = confirm([](ScriptedPrintDlg& dialog) { dialog.select(IDC_QUALITY, -1); });
    EXPECT_EQ(handed.dmPrintQuality, 600);
}

TEST_F(VirtualPrinterOk, paperPrinterDoesNotHaveIs65535)
{
    openHost().addPaper(L"Papyrus");
    const DEVMODEW handed = confirm([](ScriptedPrintDlg& dialog) { dialog.select(IDC_PAPER, 3); });
    EXPECT_EQ(static_cast<WORD>(handed.dmPaperSize), 65535);
}

TEST_F(VirtualPrinterOk, hostWithoutControlsGetsQualityAndUnknownPaper)
{
    openHost(HostDialog::none);
    devMode().dmOrientation = 77;
    const DEVMODEW handed = confirm([](ScriptedPrintDlg&) {});
    EXPECT_EQ(handed.dmFields, always);
    EXPECT_EQ(handed.dmOrientation, 77);
    EXPECT_EQ(static_cast<WORD>(handed.dmPaperSize), 65535);
}

TEST_F(VirtualPrinterOk, customNeedsTheHostsPaperList)
{
    openHost(HostDialog::noPapers);
    const DEVMODEW handed = confirm(
        [](ScriptedPrintDlg& dialog)
        {
            dialog.SendDlgItemMessage(IDC_PAPER, CB_ADDSTRING, 0, reinterpret_cast<LPARAM>(L"Custom"));
            dialog.select(IDC_PAPER, 0);
        });
    EXPECT_EQ(handed.dmFields, always | DM_ORIENTATION);
}

TEST_F(VirtualPrinterOk, withoutHostsPaperListNoPaperIsNamed)
{
    openHost(HostDialog::noPapers);
    const DEVMODEW handed = confirm(
        [](ScriptedPrintDlg& dialog)
        {
            // One that the printer has, under the code 9.
            dialog.SendDlgItemMessage(IDC_PAPER, CB_ADDSTRING, 0, reinterpret_cast<LPARAM>(L"A4"));
            dialog.select(IDC_PAPER, 0);
        });
    EXPECT_EQ(static_cast<WORD>(handed.dmPaperSize), 65535);
}

TEST_F(VirtualPrinterOk, aCustomSizeIsWrittenInTenths)
{
    openHost().selectPaper(2);
    const DEVMODEW handed = confirm(
        [](ScriptedPrintDlg& dialog)
        {
            dialog.type(IDC_PAPER_WIDTH, L"210");
            dialog.type(IDC_PAPER_LENGTH, L"297.06");
        });
    EXPECT_EQ(handed.dmFields, always | DM_ORIENTATION | DM_PAPERWIDTH | DM_PAPERLENGTH);
    EXPECT_EQ(handed.dmPaperWidth, 2100);
    EXPECT_EQ(handed.dmPaperLength, 2971);
    EXPECT_EQ(handed.dmPaperSize, DMPAPER_USER);
}

TEST_F(VirtualPrinterOk, aCustomSizeInInchesIsConverted)
{
    openHost().selectPaper(2);
    const DEVMODEW handed = confirm(
        [](ScriptedPrintDlg& dialog)
        {
            dialog.click(IDC_INCHES);
            dialog.type(IDC_PAPER_WIDTH, L"8.27");
            dialog.type(IDC_PAPER_LENGTH, L"11");
        });
    EXPECT_EQ(handed.dmPaperWidth, 2101);
    EXPECT_EQ(handed.dmPaperLength, 2794);
}

TEST_F(VirtualPrinterOk, invalidLengthKeepsTheDialogOpenAndFocused)
{
    openHost().selectPaper(2);
    BoxAnswerer boxes;
    EXPECT_EQ(run(
                  [&boxes](ScriptedPrintDlg& dialog)
                  {
                      dialog.type(IDC_PAPER_LENGTH, L"long");
                      dialog.click(IDOK);
                      EXPECT_EQ(boxes.boxes().size(), 1U);
                      EXPECT_EQ(::GetFocus(), dialog.control(IDC_PAPER_LENGTH));
                  }),
              IDCANCEL);
    EXPECT_TRUE(handedToDriver().empty());
    EXPECT_EQ(host->selectedPaper(), 2);
}

TEST_F(VirtualPrinterOk, paperQueryHasTheNewQualityAndOrientation)
{
    run(
        [](ScriptedPrintDlg& dialog)
        {
            dialog.select(IDC_QUALITY, 3);
            dialog.click(IDC_LANDSCAPE);
            dialog.click(IDOK);
        });
    int asked = 0;
    for (const room::CallRecord& call : m_room.calls())
    {
        if (call.call != room::Call::deviceCapabilities)
            continue;
        ++asked;
        const DevModeView view(call.devMode);
        EXPECT_EQ(call.text, L"PDF:");
        EXPECT_EQ(view.rawFlags(), static_cast<DWORD>(DM_PRINTQUALITY | DM_ORIENTATION));
        EXPECT_EQ(view.fields().dmPrintQuality, 600);
        EXPECT_EQ(view.fields().dmOrientation, DMORIENT_LANDSCAPE);
    }
    EXPECT_GT(asked, 0);
}

TEST_F(VirtualPrinterOk, theDriverCompletesTheBlock)
{
    run([](ScriptedPrintDlg& dialog) { dialog.click(IDOK); });
    // The room's driver merges into its own default block.
    EXPECT_NE(devMode().dmFields & DM_COPIES, 0U);
    EXPECT_EQ(devMode().dmPaperSize, 9);
    EXPECT_EQ(devMode().dmPrintQuality, 300);
}

TEST_F(VirtualPrinterOk, unopenedPrinterLeavesTheWrittenValues)
{
    m_room.refuse(room::Call::openPrinter, printerName);
    EXPECT_EQ(run([](ScriptedPrintDlg& dialog) { dialog.click(IDOK); }), IDOK);
    EXPECT_TRUE(handedToDriver().empty());
    EXPECT_EQ(devMode().dmFields, always | DM_ORIENTATION);
    EXPECT_EQ(static_cast<WORD>(devMode().dmPaperSize), 65535);
}

TEST_F(VirtualPrinterOk, aDriverThatRefusesLeavesWhatWasWritten)
{
    m_room.refuse(room::Call::documentProperties);
    EXPECT_EQ(run([](ScriptedPrintDlg& dialog) { dialog.click(IDOK); }), IDOK);
    EXPECT_EQ(devMode().dmFields, always | DM_ORIENTATION);
}

TEST_F(VirtualPrinterOk, whatDriverWritesAndRefusesIsNotTaken)
{
    printer->lies.mergeAnswer = -1;
    EXPECT_EQ(run([](ScriptedPrintDlg& dialog) { dialog.click(IDOK); }), IDOK);
    EXPECT_EQ(handedToDriver().size(), 1U);
    EXPECT_EQ(devMode().dmFields, always | DM_ORIENTATION);
}

TEST_F(VirtualPrinterOk, aBlockThatGrewIsNotTaken)
{
    m_room.remove(printerName);
    m_room.add({.name = printerName, .driverExtra = 9});
    EXPECT_EQ(run([](ScriptedPrintDlg& dialog) { dialog.click(IDOK); }), IDOK);
    EXPECT_EQ(devMode().dmFields, always | DM_ORIENTATION);
    EXPECT_EQ(devMode().dmDriverExtra, 8);
}

TEST_F(VirtualPrinterOk, throwingDriverStillClosesWithOk)
{
    const int thrown = throwFromEachCall(
        m_room, [this] { return run([](ScriptedPrintDlg& dialog) { dialog.click(IDOK); }); },
        [](INT_PTR result, bool) { EXPECT_EQ(result, IDOK); });
    EXPECT_GT(thrown, 5);
}
