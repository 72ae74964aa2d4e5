// A custom size that has no room in the 16 bits of a device mode.

#include "tests/win/editor/VirtualPrinterTest.h"
#include "tests/win/mfc/BoxAnswerer.h"

#include "resources/Resource.h"

namespace
{
constexpr const wchar_t* limitInMillimetres = L"At most 3276.7 mm";
constexpr const wchar_t* limitInInches = L"At most 129.00 inches";
constexpr const wchar_t* tooLong = L"Too long. At most 3276.7 mm";
constexpr const wchar_t* tooLongInInches = L"Too long. At most 129.00 inches";

class VirtualPrinterLimit : public VirtualPrinterTest
{
protected:
    VirtualPrinterLimit() { openHost().selectPaper(2); }

    // Nothing of this is said in a message box.
    ~VirtualPrinterLimit() override { EXPECT_TRUE(m_boxes.boxes().empty()); }

    static void expectNotes(const ScriptedPrintDlg& dialog, const wchar_t* width, const wchar_t* length)
    {
        EXPECT_EQ(dialog.textOf(IDC_WIDTH_NOTE), width);
        EXPECT_EQ(dialog.textOf(IDC_LENGTH_NOTE), length);
    }
    static void type(const ScriptedPrintDlg& dialog, const wchar_t* width, const wchar_t* length)
    {
        dialog.type(IDC_PAPER_WIDTH, width);
        dialog.type(IDC_PAPER_LENGTH, length);
    }

private:
    BoxAnswerer m_boxes;
};
} // namespace

TEST_F(VirtualPrinterLimit, standsBesideTheFieldsInTheirUnit)
{
    run(
        [](ScriptedPrintDlg& dialog)
        {
            expectNotes(dialog, limitInMillimetres, limitInMillimetres);
            dialog.click(IDC_INCHES);
            expectNotes(dialog, limitInInches, limitInInches);
            dialog.click(IDC_MILLIMETRES);
            expectNotes(dialog, limitInMillimetres, limitInMillimetres);
        });
}

TEST_F(VirtualPrinterLimit, standsThereForOtherPapersToo)
{
    host->selectPaper(0);
    run([](ScriptedPrintDlg& dialog) { expectNotes(dialog, limitInMillimetres, limitInMillimetres); });
}

TEST_F(VirtualPrinterLimit, theLongestLengthIsWritten)
{
    const DEVMODEW handed = confirm([](ScriptedPrintDlg& dialog) { type(dialog, L"3276.7", L"3276.74"); });
    EXPECT_EQ(handed.dmPaperWidth, 32767);
    EXPECT_EQ(handed.dmPaperLength, 32767);
}

TEST_F(VirtualPrinterLimit, longerWidthIsErrorBesideItsField)
{
    const DEVMODEW handed = confirm(
        [this](ScriptedPrintDlg& dialog)
        {
            type(dialog, L"3276.8", L"297");
            dialog.click(IDOK);
            expectNotes(dialog, tooLong, limitInMillimetres);
            EXPECT_EQ(::GetFocus(), dialog.control(IDC_PAPER_WIDTH));
            EXPECT_TRUE(handedToDriver().empty());
            // The note is outdated as soon as something else is typed.
            dialog.type(IDC_PAPER_WIDTH, L"210");
            expectNotes(dialog, limitInMillimetres, limitInMillimetres);
        });
    EXPECT_EQ(handed.dmPaperWidth, 2100);
}

TEST_F(VirtualPrinterLimit, longerLengthIsErrorBesideItsField)
{
    EXPECT_EQ(run(
                  [](ScriptedPrintDlg& dialog)
                  {
                      type(dialog, L"210", L"100000");
                      dialog.click(IDOK);
                      expectNotes(dialog, limitInMillimetres, tooLong);
                      EXPECT_EQ(::GetFocus(), dialog.control(IDC_PAPER_LENGTH));
                      dialog.type(IDC_PAPER_LENGTH, L"1");
                      expectNotes(dialog, limitInMillimetres, limitInMillimetres);
                  }),
              IDCANCEL);
    EXPECT_EQ(host->selectedPaper(), 2);
    EXPECT_TRUE(handedToDriver().empty());
}

TEST_F(VirtualPrinterLimit, holdsInInchesAndForBothFields)
{
    const DEVMODEW handed = confirm(
        [](ScriptedPrintDlg& dialog)
        {
            dialog.click(IDC_INCHES);
            type(dialog, L"129.01", L"-129.1");
            dialog.click(IDOK);
            expectNotes(dialog, tooLongInInches, tooLongInInches);
            EXPECT_EQ(::GetFocus(), dialog.control(IDC_PAPER_WIDTH));
            type(dialog, L"129", L"11");
        });
    EXPECT_EQ(handed.dmPaperWidth, 32766);
    EXPECT_EQ(handed.dmPaperLength, 2794);
}

TEST_F(VirtualPrinterLimit, doesNotMatterForAnotherPaper)
{
    const DEVMODEW handed = confirm(
        [](ScriptedPrintDlg& dialog)
        {
            type(dialog, L"100000", L"100000");
            dialog.click(IDOK);
            expectNotes(dialog, tooLong, tooLong);
            dialog.select(IDC_PAPER, 0);
            expectNotes(dialog, limitInMillimetres, limitInMillimetres);
        });
    EXPECT_EQ(handed.dmPaperSize, 9);
}
