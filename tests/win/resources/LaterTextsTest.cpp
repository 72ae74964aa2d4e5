// Texts that code puts into controls: they too must fit, in every language and at every scale.
#include "tests/win/resources/OpenedDialog.h"

#include "resources/Resource.h"

#include <gtest/gtest.h>

#include <commctrl.h>

#include <string>
#include <vector>

namespace
{
const BOOL scaleAware = ::SetProcessDPIAware();

class LaterTexts : public ::testing::TestWithParam<const wchar_t*>
{
protected:
    LaterTexts() : m_library(loadLanguage(GetParam())) {}

    void SetUp() override { ASSERT_TRUE(m_library); }

    std::wstring string(UINT id) const
    {
        const std::wstring text = stringOf(m_library.get(), id);
        EXPECT_FALSE(text.empty()) << id;
        return text;
    }

    std::wstring formatted(UINT id, int first, int second) const
    {
        wchar_t text[256] = {};
        ::wsprintfW(text, string(id).c_str(), first, second);
        return text;
    }

    void expectFits(UINT dialogId, int controlId, const std::wstring& text, int beside = 0) const
    {
        const OpenedDialog dialog(m_library.get(), dialogId);
        const HWND control = dialog.control(controlId);
        ASSERT_NE(control, nullptr) << controlId;
        const SIZE size = textSize(control, text, DT_SINGLELINE | DT_NOPREFIX);
        EXPECT_GT(size.cx, 0);
        EXPECT_LE(size.cx + beside, clientSize(control).cx) << "control " << controlId;
        EXPECT_LE(size.cy, clientSize(control).cy) << "control " << controlId;
    }

    // A list shows its text beside its button and inside a small border.
    void expectFitsList(UINT dialogId, int controlId, UINT stringId) const
    {
        expectFits(dialogId, controlId, string(stringId), ::GetSystemMetrics(SM_CXVSCROLL) + 8);
    }

    LibraryHandle m_library;
};

INSTANTIATE_TEST_SUITE_P(All, LaterTexts, ::testing::ValuesIn(languageTags));

TEST_P(LaterTexts, linesOfTheGeneralTabFit)
{
    expectFits(IDD_GENERAL, IDC_DRIVER, string(IDS_SYSTEM_DRIVER));
    expectFits(IDD_GENERAL, IDC_VERSION, string(IDS_VERSION) + L"10.20.30.40000");
    expectFits(IDD_GENERAL, IDC_PORT, string(IDS_PORT) + string(IDS_PORT_AUTOSPOOL));
    expectFits(IDD_GENERAL, IDC_PORT, string(IDS_PORT) + string(IDS_PORT_FILE));
    expectFits(IDD_GENERAL, IDC_PORT, string(IDS_PORT) + std::wstring(40, L'W'));
}

TEST_P(LaterTexts, leadingTextsEndInABlank)
{
    EXPECT_EQ(string(IDS_VERSION).back(), L' ');
    EXPECT_EQ(string(IDS_PORT).back(), L' ');
}

TEST_P(LaterTexts, listEntriesFit)
{
    expectFitsList(IDD_COLLATING, IDC_COLLATING, IDS_COLLATING_OFF);
    expectFitsList(IDD_COLLATING, IDC_COLLATING, IDS_COLLATING_ON);
    for (const UINT id : {IDS_QUALITY_72, IDS_QUALITY_150, IDS_QUALITY_300, IDS_QUALITY_600, IDS_QUALITY_1200})
        expectFitsList(IDD_VIRTUAL_PRINTER, IDC_QUALITY, id);
}

TEST_P(LaterTexts, valuesOfTheVectorPageFit)
{
    constexpr int inside = 8; // border and margins of an edit
    expectFits(IDD_VECTOR_GRAPHICS, IDC_COLOR_DEPTH, formatted(IDS_COLORS_AND_DEPTH, 16777216, 24), inside);
    expectFits(IDD_VECTOR_GRAPHICS, IDC_RESOLUTION, L"1200 x 1200 dpi", inside);
    expectFits(IDD_VECTOR_GRAPHICS, IDC_DITHERING, L"Grayscale error diffusion", inside);
}

TEST_P(LaterTexts, numbersAndNotesFit)
{
    expectFits(IDD_CHANGE_CFG, IDC_EXTENSION_NOTE, string(IDS_EXTENSION_ADDED));
    expectFits(IDD_GENERAL, IDC_DESCRIPTION_NOTE, string(IDS_DESCRIPTION_CUT));
    for (const int note : {IDC_WIDTH_NOTE, IDC_LENGTH_NOTE})
        for (const UINT limit : {IDS_LIMIT_MILLIMETRES, IDS_LIMIT_INCHES})
            // With the longest limit.
            expectFits(IDD_VIRTUAL_PRINTER, note, string(IDS_LENGTH_TOO_LARGE) + string(limit) + L"3276.7");
    expectFits(IDD_VIRTUAL_PRINTER, IDC_PAPER_WIDTH, L"100000.00", 8);
    expectFits(IDD_VIRTUAL_PRINTER, IDC_PAPER_LENGTH, L"100000.00", 8);
}

// The tabs' titles are in one row above the page.
TEST_P(LaterTexts, tabTitlesFitInOneRow)
{
    const OpenedDialog dialog(m_library.get(), IDD_GENERAL);
    const HWND font = dialog.control(IDC_DRIVER);
    const int gap = dialog.pixels(8, 8).cx;
    const int width = textSize(font, string(IDS_TAB_GENERAL), DT_SINGLELINE).cx +
                      textSize(font, string(IDS_TAB_DEVICE), DT_SINGLELINE).cx + 2 * gap;
    EXPECT_LE(width, clientSize(dialog.window()).cx);
    EXPECT_EQ(textOf(dialog.window()), string(IDS_TAB_GENERAL));
}

// A title bar has a symbol, a close button and the window's width.
TEST_P(LaterTexts, titlesOfTheDialogsFit)
{
    const OpenedDialog dialog(m_library.get(), IDD_CHANGE_CFG);
    NONCLIENTMETRICSW metrics = {};
    metrics.cbSize = sizeof(metrics);
    ASSERT_TRUE(::SystemParametersInfoW(SPI_GETNONCLIENTMETRICS, sizeof(metrics), &metrics, 0));
    const FontHandle font(::CreateFontIndirectW(&metrics.lfCaptionFont));
    const HDC context = ::GetDC(dialog.window());
    const HGDIOBJ before = ::SelectObject(context, font.get());
    const std::wstring title = textOf(dialog.window());
    SIZE size = {};
    ::GetTextExtentPoint32W(context, title.c_str(), static_cast<int>(title.size()), &size);
    ::SelectObject(context, before);
    ::ReleaseDC(dialog.window(), context);
    EXPECT_FALSE(title.empty());
    EXPECT_LE(size.cx + 3 * ::GetSystemMetrics(SM_CXSIZE), clientSize(dialog.window()).cx);
}

// The text as a control of the dialog draws it, black on white.
std::vector<BYTE> pictureOf(HWND control, const std::wstring& text)
{
    constexpr int side = 64;
    BITMAPINFO shape = {};
    shape.bmiHeader.biSize = sizeof(shape.bmiHeader);
    shape.bmiHeader.biWidth = side;
    shape.bmiHeader.biHeight = side;
    shape.bmiHeader.biPlanes = 1;
    shape.bmiHeader.biBitCount = 32;
    void* bits = nullptr;
    const HDC context = ::CreateCompatibleDC(nullptr);
    const HBITMAP bitmap = ::CreateDIBSection(context, &shape, DIB_RGB_COLORS, &bits, nullptr, 0);
    const HGDIOBJ bitmapBefore = ::SelectObject(context, bitmap);
    const HGDIOBJ fontBefore =
        ::SelectObject(context, reinterpret_cast<HGDIOBJ>(::SendMessageW(control, WM_GETFONT, 0, 0)));
    ::PatBlt(context, 0, 0, side, side, WHITENESS);
    ::TextOutW(context, 4, 4, text.c_str(), static_cast<int>(text.size()));
    ::GdiFlush();
    const auto first = static_cast<const BYTE*>(bits);
    std::vector<BYTE> picture(first, first + side * side * 4);
    ::SelectObject(context, fontBefore);
    ::SelectObject(context, bitmapBefore);
    ::DeleteObject(bitmap);
    ::DeleteDC(context);
    return picture;
}

// Letters that the font does not have would all be drawn, and measured, as the same empty box.
TEST(JapaneseTexts, areMeasuredWithLettersThatThereAre)
{
    const LibraryHandle library = loadLanguage(L"ja");
    ASSERT_TRUE(library);
    const OpenedDialog dialog(library.get(), IDD_GENERAL);
    const HWND control = dialog.control(IDC_DRIVER);
    EXPECT_NE(pictureOf(control, L"\u7528"), pictureOf(control, L"\u7D19"));
    EXPECT_NE(pictureOf(control, L"\u30D7"), pictureOf(control, L"\u30ED"));
    EXPECT_EQ(pictureOf(control, L"\u7528"), pictureOf(control, L"\u7528"));
}
} // namespace
