// What the virtual printers' dialog shows, and what changes while it is open.

#include "tests/support/operator/Pixels.h"
#include "tests/support/operator/SentMessages.h"
#include "tests/win/editor/VirtualPrinterTest.h"
#include "tests/win/mfc/BoxAnswerer.h"
#include "tests/win/module/ImportPatch.h"

#include "resources/Resource.h"

#include <commctrl.h>

using VirtualPrinterShow = VirtualPrinterTest;

namespace
{
constexpr int sizeControls[] = {IDC_PAPER_LENGTH, IDC_PAPER_WIDTH, IDC_MILLIMETRES, IDC_INCHES};

void expectSizeEnabled(const ScriptedPrintDlg& dialog, bool enabled)
{
    for (const int id : sizeControls)
        EXPECT_EQ(dialog.isEnabled(id), enabled) << id;
}

std::vector<int>& askedControls()
{
    static std::vector<int> instance;
    return instance;
}

// Notes the first question for a value to each control.
LRESULT CALLBACK noteQuestion(HWND window, UINT message, WPARAM wParam, LPARAM lParam, UINT_PTR id, DWORD_PTR)
{
    const bool asksForValue = message == CB_GETCURSEL || message == WM_GETTEXT || message == BM_GETCHECK;
    std::vector<int>& asked = askedControls();
    if (asksForValue && std::find(asked.begin(), asked.end(), static_cast<int>(id)) == asked.end())
        asked.push_back(static_cast<int>(id));
    return ::DefSubclassProc(window, message, wParam, lParam);
}

struct DrawnIcon
{
    HDC dc = nullptr;
    int x = 0;
    int y = 0;
    HICON icon = nullptr;
};

std::vector<DrawnIcon>& drawnIcons()
{
    static std::vector<DrawnIcon> instance;
    return instance;
}

BOOL WINAPI noteIcon(HDC dc, int x, int y, HICON icon)
{
    drawnIcons().push_back({dc, x, y, icon});
    return TRUE;
}

// Some systems leave a minimised window no room at all.
BOOL WINAPI roomOfMinimised(HWND /*window*/, RECT* rect)
{
    *rect = {0, 0, 101, 60};
    return TRUE;
}
} // namespace

TEST_F(VirtualPrinterShow, titleNamesThePrinter)
{
    run([](ScriptedPrintDlg& dialog) { EXPECT_EQ(dialog.title(), L"R&D PDF - Properties"); });
}

TEST_F(VirtualPrinterShow, titleIsCutAndHasSigns)
{
    const auto titleFor = [this](const OdString& name)
    {
        std::wstring title;
        run([&](ScriptedPrintDlg& dialog) { title = dialog.title(); },
            [&](ScriptedPrintDlg& dialog) { dialog.m_printerName = name; });
        return title;
    };
    EXPECT_EQ(titleFor(OdString(L"PDF\0A", 5)), L"PDF\u2400A - Properties");
    EXPECT_EQ(titleFor(OdString(std::wstring(3000, L'x'))), std::wstring(999, L'x') + L"\u2026 - Properties");
}

TEST_F(VirtualPrinterShow, iconIsSetForBothSizesAndDragging)
{
    run(
        [](ScriptedPrintDlg& dialog)
        {
            const HICON icon = dialog.GetIcon(TRUE);
            EXPECT_NE(icon, nullptr);
            EXPECT_EQ(dialog.GetIcon(FALSE), icon);
            EXPECT_EQ(reinterpret_cast<HICON>(dialog.SendMessage(WM_QUERYDRAGICON)), icon);
        });
}

TEST_F(VirtualPrinterShow, itsPicturesArePrinterAndTwoOrientations)
{
    const auto printerIcon = pixels(::LoadIconW(library(), MAKEINTRESOURCEW(301)));
    const auto bitmap = [this](UINT id)
    {
        return static_cast<HBITMAP>(
            ::LoadImageW(library(), MAKEINTRESOURCEW(id), IMAGE_BITMAP, 0, 0, LR_CREATEDIBSECTION));
    };
    const HBITMAP loaded[] = {bitmap(10111), bitmap(10114)};
    const auto portrait = pixels(loaded[0]);
    const auto landscape = pixels(loaded[1]);
    ASSERT_FALSE(printerIcon.empty());
    ASSERT_FALSE(portrait.empty());
    ASSERT_NE(portrait, landscape);
    run(
        [&](ScriptedPrintDlg& dialog)
        {
            const auto image = [&dialog](int id)
            { return pixels(reinterpret_cast<HBITMAP>(dialog.SendDlgItemMessage(id, STM_GETIMAGE, IMAGE_BITMAP))); };
            EXPECT_EQ(pixels(dialog.GetIcon(TRUE)), printerIcon);
            EXPECT_EQ(image(10121), portrait);
            EXPECT_EQ(image(10122), landscape);
        });
    for (const HBITMAP one : loaded)
        ::DeleteObject(one);
}

TEST_F(VirtualPrinterShow, minimisedItPaintsItsIconInTheMiddle)
{
    const ImportPatch drawing(::GetModuleHandleW(nullptr), "DrawIcon", reinterpret_cast<const void*>(&noteIcon));
    run(
        [](ScriptedPrintDlg& dialog)
        {
            dialog.ShowWindow(SW_MINIMIZE);
            ASSERT_TRUE(dialog.IsIconic());
            const ImportPatch room(::GetModuleHandleW(nullptr), "GetClientRect",
                                   reinterpret_cast<const void*>(&roomOfMinimised));
            HDC erased = nullptr;
            const SentMessages watch(
                [&](HWND window, UINT message, WPARAM wParam, LPARAM)
                {
                    if (window == dialog && message == WM_ICONERASEBKGND)
                        erased = reinterpret_cast<HDC>(wParam);
                });
            drawnIcons().clear();
            dialog.Invalidate();
            dialog.SendMessage(WM_PAINT);
            EXPECT_FALSE(::GetUpdateRect(dialog, nullptr, FALSE));
            ASSERT_EQ(drawnIcons().size(), 1U);
            const DrawnIcon drawn = drawnIcons()[0];
            EXPECT_EQ(drawn.icon, dialog.GetIcon(TRUE));
            // The ground is erased first, in the same place.
            EXPECT_NE(erased, nullptr);
            EXPECT_EQ(drawn.dc, erased);
            // The icon has 32 by 32 pixels.
            EXPECT_EQ(drawn.x, 35);
            EXPECT_EQ(drawn.y, 14);
        });
}

TEST_F(VirtualPrinterShow, paperListIsTheHostsInItsOrder)
{
    openHost().selectPaper(1);
    run(
        [](ScriptedPrintDlg& dialog)
        {
            EXPECT_EQ(dialog.entriesOf(IDC_PAPER), (std::vector<std::wstring>{L"A4", L"A3", L"Custom"}));
            EXPECT_EQ(dialog.selectionOf(IDC_PAPER), 1);
        });
}

TEST_F(VirtualPrinterShow, entriesThatWereThereAreEmptied)
{
    run(
        [](ScriptedPrintDlg& dialog)
        {
            EXPECT_EQ(dialog.entriesOf(IDC_PAPER).size(), 3U);
            EXPECT_EQ(dialog.entriesOf(IDC_QUALITY).size(), 5U);
        },
        [](ScriptedPrintDlg& dialog)
        {
            dialog.m_beforeInit = [](ScriptedPrintDlg& early)
            {
                for (const int id : {IDC_PAPER, IDC_QUALITY})
                    early.SendDlgItemMessage(id, CB_ADDSTRING, 0, reinterpret_cast<LPARAM>(L"left over"));
            };
        });
}

TEST_F(VirtualPrinterShow, longPaperNamesAreCutTo255Characters)
{
    openHost().addPaper(std::wstring(255, L'x'));
    host->addPaper(std::wstring(256, L'y'));
    host->addPaper(std::wstring(70000, L'z'));
    run(
        [](ScriptedPrintDlg& dialog)
        {
            const std::vector<std::wstring> papers = dialog.entriesOf(IDC_PAPER);
            ASSERT_EQ(papers.size(), 6U);
            EXPECT_EQ(papers[3], std::wstring(255, L'x'));
            EXPECT_EQ(papers[4], std::wstring(255, L'y'));
            EXPECT_EQ(papers[5], std::wstring(255, L'z'));
        });
}

TEST_F(VirtualPrinterShow, withoutAHostsPaperSelectedNoneIs)
{
    openHost().selectPaper(-1);
    run(
        [](ScriptedPrintDlg& dialog)
        {
            EXPECT_EQ(dialog.selectionOf(IDC_PAPER), -1);
            expectSizeEnabled(dialog, false);
        });
}

TEST_F(VirtualPrinterShow, noHostPaperListMeansAnEmptyList)
{
    openHost(HostDialog::noPapers);
    devMode().dmPaperWidth = 2100;
    run(
        [](ScriptedPrintDlg& dialog)
        {
            EXPECT_TRUE(dialog.entriesOf(IDC_PAPER).empty());
            expectSizeEnabled(dialog, false);
            EXPECT_EQ(dialog.textOf(IDC_PAPER_WIDTH), L"0");
            EXPECT_EQ(dialog.textOf(IDC_PAPER_LENGTH), L"0");
        });
}

TEST_F(VirtualPrinterShow, withoutAHostAtAllItOpens)
{
    for (const auto controls : {HostDialog::none, HostDialog::noDialog})
    {
        openHost(controls);
        EXPECT_EQ(run(
                      [](ScriptedPrintDlg& dialog)
                      {
                          EXPECT_TRUE(dialog.isChecked(IDC_PORTRAIT));
                          EXPECT_TRUE(dialog.entriesOf(IDC_PAPER).empty());
                      }),
                  IDCANCEL);
    }
}

TEST_F(VirtualPrinterShow, qualitiesComeFromTheLibraryInOrder)
{
    run(
        [](ScriptedPrintDlg& dialog)
        {
            EXPECT_EQ(dialog.entriesOf(IDC_QUALITY),
                      (std::vector<std::wstring>{L"72 dpi", L"150 dpi", L"300 dpi", L"600 dpi", L"1200 dpi"}));
            EXPECT_EQ(dialog.selectionOf(IDC_QUALITY), 2);
        });
}

TEST_F(VirtualPrinterShow, anUnknownQualityShowsTheFirst)
{
    devMode().dmPrintQuality = 200;
    run([](ScriptedPrintDlg& dialog) { EXPECT_EQ(dialog.selectionOf(IDC_QUALITY), 0); });
}

TEST_F(VirtualPrinterShow, orientationIsTheHosts)
{
    devMode().dmOrientation = DMORIENT_PORTRAIT;
    openHost().checkLandscape(true);
    run(
        [](ScriptedPrintDlg& dialog)
        {
            EXPECT_FALSE(dialog.isChecked(IDC_PORTRAIT));
            EXPECT_TRUE(dialog.isChecked(IDC_LANDSCAPE));
        });
    host->checkLandscape(false);
    run([](ScriptedPrintDlg& dialog) { EXPECT_TRUE(dialog.isChecked(IDC_PORTRAIT)); });
}

TEST_F(VirtualPrinterShow, withoutTheHostsButtonsItIsPortrait)
{
    devMode().dmOrientation = DMORIENT_LANDSCAPE;
    openHost(HostDialog::noOrientation);
    run([](ScriptedPrintDlg& dialog) { EXPECT_TRUE(dialog.isChecked(IDC_PORTRAIT)); });
}

TEST_F(VirtualPrinterShow, aNamedPaperHasNoSize)
{
    devMode().dmPaperWidth = 2100;
    run(
        [](ScriptedPrintDlg& dialog)
        {
            expectSizeEnabled(dialog, false);
            EXPECT_EQ(dialog.textOf(IDC_PAPER_WIDTH), L"0");
        });
}

TEST_F(VirtualPrinterShow, aCustomSizeIsShownInWholeMillimetres)
{
    openHost().selectPaper(2);
    devMode().dmPaperWidth = 2109;
    devMode().dmPaperLength = 2975;
    run(
        [](ScriptedPrintDlg& dialog)
        {
            expectSizeEnabled(dialog, true);
            EXPECT_EQ(dialog.textOf(IDC_PAPER_WIDTH), L"210");
            EXPECT_EQ(dialog.textOf(IDC_PAPER_LENGTH), L"297");
            EXPECT_TRUE(dialog.isChecked(IDC_MILLIMETRES));
        });
}

TEST_F(VirtualPrinterShow, everythingStandsBeforeBaseMovesValuesAgain)
{
    openHost().selectPaper(2);
    std::vector<std::wstring> titles;
    std::vector<int> selections;
    run({},
        [&](ScriptedPrintDlg& dialog)
        {
            dialog.m_beforeExchange = [&](CDataExchange& exchange)
            {
                EXPECT_FALSE(exchange.m_bSaveAndValidate);
                titles.push_back(dialog.title());
                selections.push_back(dialog.selectionOf(IDC_QUALITY));
            };
        });
    EXPECT_EQ(titles, (std::vector<std::wstring>(2, L"R&D PDF - Properties")));
    EXPECT_EQ(selections, (std::vector<int>{-1, 2}));
}

TEST_F(VirtualPrinterShow, valuesAreTakenFromTheControlsInOrder)
{
    openHost().selectPaper(2);
    run(
        [](ScriptedPrintDlg& dialog)
        {
            askedControls().clear();
            for (const int id :
                 {IDC_MILLIMETRES, IDC_PAPER_LENGTH, IDC_PAPER_WIDTH, IDC_QUALITY, IDC_PAPER, IDC_PORTRAIT})
                ::SetWindowSubclass(dialog.control(id), &noteQuestion, static_cast<UINT_PTR>(id), 0);
            dialog.UpdateData(TRUE);
            EXPECT_EQ(askedControls(), (std::vector<int>{10117, 10118, 10116, 10115, 10119, 10123}));
        });
}

TEST_F(VirtualPrinterShow, anotherPaperEnablesSizeWhenItIsCustom)
{
    run(
        [](ScriptedPrintDlg& dialog)
        {
            dialog.select(IDC_PAPER, 2);
            expectSizeEnabled(dialog, true);
            dialog.select(IDC_PAPER, 1);
            expectSizeEnabled(dialog, false);
        });
}

TEST_F(VirtualPrinterShow, withoutAHostsListNoPaperIsCustom)
{
    openHost(HostDialog::none);
    run(
        [](ScriptedPrintDlg& dialog)
        {
            dialog.select(IDC_PAPER, 0);
            expectSizeEnabled(dialog, false);
        });
}

TEST_F(VirtualPrinterShow, anotherUnitConvertsWithTwoDecimals)
{
    openHost().selectPaper(2);
    run(
        [](ScriptedPrintDlg& dialog)
        {
            dialog.type(IDC_PAPER_WIDTH, L"210");
            dialog.type(IDC_PAPER_LENGTH, L"297");
            dialog.click(IDC_INCHES);
            EXPECT_EQ(dialog.textOf(IDC_PAPER_WIDTH), L"8.27");
            EXPECT_EQ(dialog.textOf(IDC_PAPER_LENGTH), L"11.69");
            dialog.click(IDC_INCHES);
            EXPECT_EQ(dialog.textOf(IDC_PAPER_WIDTH), L"8.27");
            dialog.click(IDC_MILLIMETRES);
            EXPECT_EQ(dialog.textOf(IDC_PAPER_WIDTH), L"210.06");
            EXPECT_EQ(dialog.textOf(IDC_PAPER_LENGTH), L"296.93");
            dialog.click(IDC_MILLIMETRES);
            EXPECT_EQ(dialog.textOf(IDC_PAPER_WIDTH), L"210.06");
        });
}

TEST_F(VirtualPrinterShow, lengthThatIsNoNumberKeepsItsUnit)
{
    openHost().selectPaper(2);
    BoxAnswerer boxes;
    run(
        [&boxes](ScriptedPrintDlg& dialog)
        {
            dialog.type(IDC_PAPER_WIDTH, L"wide");
            dialog.click(IDC_INCHES);
            EXPECT_EQ(boxes.boxes().size(), 1U);
            EXPECT_EQ(dialog.textOf(IDC_PAPER_WIDTH), L"wide");
            EXPECT_TRUE(dialog.isChecked(IDC_MILLIMETRES));
            EXPECT_FALSE(dialog.isChecked(IDC_INCHES));
            // Put right, it is converted as ever.
            dialog.type(IDC_PAPER_WIDTH, L"254");
            dialog.click(IDC_INCHES);
            EXPECT_EQ(dialog.textOf(IDC_PAPER_WIDTH), L"10.00");
        });
}

TEST_F(VirtualPrinterShow, invalidLengthCanBeCorrectedAfterPaperChange)
{
    openHost().selectPaper(2);
    BoxAnswerer boxes;
    EXPECT_EQ(run(
                  [&boxes](ScriptedPrintDlg& dialog)
                  {
                      dialog.type(IDC_PAPER_LENGTH, L"");
                      dialog.select(IDC_PAPER, 0);
                      EXPECT_EQ(boxes.boxes().size(), 1U);
                      expectSizeEnabled(dialog, true);
                      dialog.type(IDC_PAPER_LENGTH, L"1");
                      dialog.click(IDOK);
                  }),
              IDOK);
    EXPECT_EQ(boxes.boxes().size(), 1U);
}

TEST_F(VirtualPrinterShow, imagesAreGivenBackAndDeleted)
{
    const HBITMAP before[] = {::CreateBitmap(4, 4, 1, 1, nullptr), ::CreateBitmap(4, 4, 1, 1, nullptr)};
    constexpr int controls[] = {IDC_PORTRAIT_IMAGE, IDC_LANDSCAPE_IMAGE};
    HBITMAP shown[2] = {};
    HBITMAP inTheEnd[2] = {};
    const auto imageOf = [](const ScriptedPrintDlg& dialog, int id)
    { return reinterpret_cast<HBITMAP>(dialog.SendDlgItemMessage(id, STM_GETIMAGE, IMAGE_BITMAP)); };
    run(
        [&](ScriptedPrintDlg& dialog)
        {
            for (int i = 0; i < 2; ++i)
            {
                shown[i] = imageOf(dialog, controls[i]);
                BITMAP bitmap = {};
                EXPECT_NE(::GetObjectW(shown[i], sizeof bitmap, &bitmap), 0);
                EXPECT_EQ(bitmap.bmBitsPixel, 24);
            }
            EXPECT_NE(shown[0], shown[1]);
        },
        [&](ScriptedPrintDlg& dialog)
        {
            dialog.m_beforeInit = [&](ScriptedPrintDlg& early)
            {
                for (int i = 0; i < 2; ++i)
                    early.SendDlgItemMessage(controls[i], STM_SETIMAGE, IMAGE_BITMAP,
                                             reinterpret_cast<LPARAM>(before[i]));
            };
            dialog.m_whileDestroyed = [&](ScriptedPrintDlg& late)
            {
                for (int i = 0; i < 2; ++i)
                    inTheEnd[i] = imageOf(late, controls[i]);
            };
        });
    for (int i = 0; i < 2; ++i)
    {
        EXPECT_EQ(inTheEnd[i], before[i]);
        EXPECT_EQ(::GetObjectType(shown[i]), 0U);
        EXPECT_TRUE(::DeleteObject(before[i]));
    }
}

TEST_F(VirtualPrinterShow, theSheetIsDisabledMeanwhile)
{
    openHost();
    run([this](ScriptedPrintDlg&) { EXPECT_FALSE(::IsWindowEnabled(host->sheet())); });
    EXPECT_TRUE(::IsWindowEnabled(host->sheet()));
}
