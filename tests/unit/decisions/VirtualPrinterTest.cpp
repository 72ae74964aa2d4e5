#include "GarmPC3Editor/Decisions/VirtualPrinter.h"

#include "host/GmResellerData.h"
#include "tests/support/PrinterRoomTest.h"

#include <cstring>
#include <limits>

using room::Call;

namespace
{
class VirtualPaper : public PrinterRoomTest
{
protected:
    room::Printer& addPdfPrinter(const OdChar* name)
    {
        return room.add({.name = name, .papers = {{9, OD_T("A4")}, {300, OD_T("a4")}, {8, OD_T("A3")}}});
    }
};

class VirtualPrinterNames : public testing::Test
{
protected:
    void SetUp() override { GmResellerData::clear(); }
    void TearDown() override { GmResellerData::clear(); }
};

auto always(short code)
{
    return [code](const DEVMODEW&) { return code; };
}

DEVMODEW wholeDevMode()
{
    DEVMODEW dm = {};
    dm.dmSize = sizeof dm;
    return dm;
}
} // namespace

TEST_F(VirtualPaper, exactNameIsTriedOverAllPrintersFirst)
{
    room.add({.name = OD_T("My PDF Printer")});
    room.add({.name = OD_T("PDF Printer")});
    EXPECT_EQ(fullPrinterName(OD_T("PDF Printer")), OD_T("PDF Printer"));
    EXPECT_EQ(fullPrinterName(OD_T("PDF")), OD_T("My PDF Printer"));
    EXPECT_EQ(fullPrinterName(OD_T("pdf")), OD_T("pdf"));
    room.refuse(Call::enumPrinters);
    EXPECT_EQ(fullPrinterName(OD_T("PDF")), OD_T("PDF"));
}

TEST_F(VirtualPaper, aRecordWithoutANameIsNoPrinter)
{
    room.add({.name = OD_T("Nameless PDF"), .namedInRecords = false});
    room.add({.name = OD_T("Other PDF")});
    EXPECT_EQ(fullPrinterName(OD_T("PDF")), OD_T("Other PDF"));
    EXPECT_EQ(fullPrinterName(OD_T("")), OD_T("Other PDF"));
}

TEST_F(VirtualPaper, aPaperIsFoundByItsExactName)
{
    addPdfPrinter(OD_T("PDF Printer"));
    EXPECT_EQ(paperCodeForName(OD_T("PDF Printer"), OD_T("A4"), nullptr), 9);
    EXPECT_EQ(paperCodeForName(OD_T("PDF"), OD_T("a4"), nullptr), 300);
    EXPECT_EQ(paperCodeForName(OD_T("PDF Printer"), OD_T("A5"), nullptr), -1);
    EXPECT_EQ(paperCodeForName(OD_T("PDF Printer"), OD_T(""), nullptr), -1);
}

TEST_F(VirtualPaper, aNameIsCutAt64Characters)
{
    const room::Text longest(64, 'x');
    room.add({.name = OD_T("PDF Printer"), .papers = {{500, longest + OD_T("yz")}}});
    EXPECT_EQ(paperCodeForName(OD_T("PDF Printer"), longest, nullptr), 500);
}

TEST_F(VirtualPaper, firstPaperOfNameCountsWhateverItsCode)
{
    room.add({.name = OD_T("PDF Printer"), .papers = {{0, OD_T("Zero")}, {7, OD_T("Zero")}, {5, OD_T("")}}});
    EXPECT_EQ(paperCodeForName(OD_T("PDF Printer"), OD_T("Zero"), nullptr), 0);
    EXPECT_EQ(paperCodeForName(OD_T("PDF Printer"), OD_T(""), nullptr), 5);
}

TEST_F(VirtualPaper, missingNamesAndCodesAreNotFound)
{
    room::Printer& printer = addPdfPrinter(OD_T("PDF Printer"));
    printer.lies.namesFilled = 2;
    printer.lies.nameFillAnswer = 2;
    EXPECT_EQ(paperCodeForName(OD_T("PDF Printer"), OD_T(""), nullptr), -1);
    printer.lies = {};
    printer.lies.codesFilled = 1;
    printer.lies.codeFillAnswer = 1;
    EXPECT_EQ(paperCodeForName(OD_T("PDF Printer"), OD_T("A4"), nullptr), 9);
    EXPECT_EQ(paperCodeForName(OD_T("PDF Printer"), OD_T("A3"), nullptr), -1);
}

TEST_F(VirtualPaper, whatCannotBeAskedGivesMinusOne)
{
    EXPECT_EQ(paperCodeForName(OD_T("Gone"), OD_T("A4"), nullptr), -1);
    addPdfPrinter(OD_T("PDF Printer"));
    const int failures = failEachCall(
        room, [] { return paperCodeForName(OD_T("PDF Printer"), OD_T("A4"), nullptr); },
        [](int code, bool) { EXPECT_TRUE(code == -1 || code == 9); });
    EXPECT_GT(failures, 5);
    room.refuse(Call::getPrinter, OD_T("PDF Printer"));
    EXPECT_EQ(paperCodeForName(OD_T("PDF Printer"), OD_T("A4"), nullptr), -1);
}

TEST_F(VirtualPrinterNames, defaultsStandWhenTheStoreHasNone)
{
    OdString name(OD_T("poison"));
    EXPECT_EQ(pdfPrinterName(name), 1);
    EXPECT_EQ(name, OD_T("Tarnwick PDF Printer 2018"));
    EXPECT_EQ(jpgPrinterName(name), 1);
    EXPECT_EQ(name, OD_T("Tarnwick JPG Printer 2018"));
    EXPECT_TRUE(isVirtualPrinter(OD_T("TARNWICK jpg printer 2018")));
    EXPECT_FALSE(isVirtualPrinter(OD_T("")));
}

TEST_F(VirtualPrinterNames, theStoresNameStandsEvenWhenEmpty)
{
    GmResellerData::set(OD_T("PDFPRINTERNAME"), OD_T("Our PDF"));
    GmResellerData::set(OD_T("JPGPRINTERNAME"), OD_T(""));
    OdString name;
    EXPECT_EQ(pdfPrinterName(name), 0);
    EXPECT_EQ(name, OD_T("Our PDF"));
    name = OD_T("poison");
    EXPECT_EQ(jpgPrinterName(name), 0);
    EXPECT_EQ(name, OD_T(""));
    EXPECT_TRUE(isVirtualPrinter(OD_T("our pdf")));
    EXPECT_FALSE(isVirtualPrinter(OD_T("Tarnwick PDF Printer 2018")));
}

TEST(VirtualPrinterQuality, onlyFiveResolutionsAreKnown)
{
    const short known[] = {72, 150, 300, 600, 1200};
    for (int i = 0; i < 5; ++i)
    {
        EXPECT_EQ(qualityIndex(known[i]), i);
        EXPECT_EQ(printQuality(i), known[i]);
    }
    // 200 shows the first choice, and OK then writes that one.
    EXPECT_EQ(printQuality(qualityIndex(200)), 72);
    EXPECT_EQ(qualityIndex(-4), 0);
    EXPECT_EQ(printQuality(-1), 600);
    EXPECT_EQ(printQuality(5), 600);
}

TEST(VirtualPrinterLength, showsWholeMillimetres)
{
    EXPECT_EQ(wholeMillimetres(2109), 210.0);
    EXPECT_EQ(wholeMillimetres(-19), -1.0);
}

TEST(VirtualPrinterLength, isWrittenToTheNearestTenth)
{
    EXPECT_EQ(tenthsOfMillimetre(210, false), 2100);
    EXPECT_EQ(tenthsOfMillimetre(297, false), 2970);
    EXPECT_EQ(tenthsOfMillimetre(8.27, true), 2101);
    EXPECT_EQ(tenthsOfMillimetre(3276.8, false), -32768);
    EXPECT_EQ(tenthsOfMillimetre(std::numeric_limits<double>::infinity(), false), 0);
    EXPECT_EQ(tenthsOfMillimetre(std::numeric_limits<double>::quiet_NaN(), true), 0);
    EXPECT_EQ(tenthsOfMillimetre(1e300, true), 0);
}

TEST(VirtualPrinterLength, isPossibleWithin16Bits)
{
    EXPECT_TRUE(isLengthPossible(3276.7, false));
    EXPECT_TRUE(isLengthPossible(3276.74, false));
    EXPECT_FALSE(isLengthPossible(3276.75, false));
    EXPECT_TRUE(isLengthPossible(-3276.8, false));
    EXPECT_FALSE(isLengthPossible(-3276.9, false));
    EXPECT_TRUE(isLengthPossible(129.0, true));
    EXPECT_FALSE(isLengthPossible(129.01, true));
    EXPECT_FALSE(isLengthPossible(1e300, true));
    EXPECT_FALSE(isLengthPossible(std::numeric_limits<double>::infinity(), false));
    EXPECT_FALSE(isLengthPossible(std::numeric_limits<double>::quiet_NaN(), false));
    EXPECT_EQ(longestLength(false), OD_T("3276.7"));
    EXPECT_EQ(longestLength(true), OD_T("129.00"));
}

TEST(VirtualPrinterLength, isDisplayedWithTwoDecimals)
{
    EXPECT_EQ(displayedLength(210 / millimetresPerInch), OD_T("8.27"));
    EXPECT_EQ(displayedLength(8.27 * millimetresPerInch), OD_T("210.06"));
    EXPECT_EQ(displayedLength(std::numeric_limits<double>::max()).getLength(), 312);
}

TEST(VirtualPrinterChoice, dropsTheFieldsThatWereSetBefore)
{
    DEVMODEW dm = wholeDevMode();
    dm.dmFields = 0xFFFFFFFF;
    applyVirtualPrinterChoice({.qualityIndex = 2, .landscape = true, .paperCode = always(9)}, dm);
    EXPECT_EQ(dm.dmFields, static_cast<DWORD>(DM_PRINTQUALITY | DM_ORIENTATION | DM_PAPERSIZE));
    EXPECT_EQ(dm.dmPrintQuality, 300);
    EXPECT_EQ(dm.dmOrientation, 2);
    EXPECT_EQ(dm.dmPaperSize, 9);
}

TEST(VirtualPrinterChoice, withoutTheHostsButtonsOrientationIsNotWritten)
{
    DEVMODEW dm = wholeDevMode();
    dm.dmOrientation = 77;
    applyVirtualPrinterChoice({.paperCode = always(-1)}, dm);
    EXPECT_EQ(dm.dmFields, static_cast<DWORD>(DM_PRINTQUALITY | DM_PAPERSIZE));
    EXPECT_EQ(dm.dmOrientation, 77);
    EXPECT_EQ(static_cast<WORD>(dm.dmPaperSize), 65535);
}

TEST(VirtualPrinterChoice, aCustomSizeIsWrittenInTenths)
{
    DEVMODEW dm = wholeDevMode();
    applyVirtualPrinterChoice({.landscape = false, .width = 8.27, .length = 11.69, .inches = true}, dm);
    EXPECT_EQ(dm.dmFields,
              static_cast<DWORD>(DM_PRINTQUALITY | DM_ORIENTATION | DM_PAPERSIZE | DM_PAPERWIDTH | DM_PAPERLENGTH));
    EXPECT_EQ(dm.dmOrientation, 1);
    EXPECT_EQ(dm.dmPaperWidth, 2101);
    EXPECT_EQ(dm.dmPaperLength, 2969);
    EXPECT_EQ(dm.dmPaperSize, 256);
}

TEST(VirtualPrinterChoice, paperQueryHasOnlyQualityAndOrientation)
{
    DEVMODEW dm = wholeDevMode();
    dm.dmFields = DM_COPIES | DM_PAPERSIZE;
    DEVMODEW askedWith = {};
    const auto ask = [&askedWith](const DEVMODEW& given)
    {
        askedWith = given;
        return short{11};
    };
    applyVirtualPrinterChoice({.qualityIndex = 4, .landscape = true, .paperCode = ask}, dm);
    EXPECT_EQ(askedWith.dmFields, static_cast<DWORD>(DM_PRINTQUALITY | DM_ORIENTATION));
    EXPECT_EQ(askedWith.dmPrintQuality, 1200);
    EXPECT_EQ(askedWith.dmOrientation, 2);
    EXPECT_EQ(dm.dmPaperSize, 11);
}

TEST(VirtualPrinterChoice, staysWithinTheBlocksPublicPart)
{
    struct Case
    {
        WORD size;
        DWORD written;
    };
    // Orientation ends at 78, the paper's code at 80, its length at 82, its width at 84 and the quality at 92.
    const Case cases[] = {{76, 0},
                          {79, DM_ORIENTATION},
                          {80, DM_ORIENTATION | DM_PAPERSIZE},
                          {83, DM_ORIENTATION | DM_PAPERSIZE | DM_PAPERLENGTH},
                          {91, DM_ORIENTATION | DM_PAPERSIZE | DM_PAPERLENGTH | DM_PAPERWIDTH},
                          {92, DM_ORIENTATION | DM_PAPERSIZE | DM_PAPERLENGTH | DM_PAPERWIDTH | DM_PRINTQUALITY}};
    for (const Case& c : cases)
    {
        // Bytes outside the block are 0x55.
        DEVMODEW dm = {};
        std::memset(&dm, 0x55, sizeof dm);
        dm.dmSize = c.size;
        dm.dmDriverExtra = 40;
        DEVMODEW before = dm;
        applyVirtualPrinterChoice({.landscape = true, .width = 100, .length = 200}, dm);
        EXPECT_EQ(dm.dmFields, c.written) << c.size;
        before.dmFields = dm.dmFields;
        EXPECT_EQ(std::memcmp(reinterpret_cast<const BYTE*>(&dm) + c.size,
                              reinterpret_cast<const BYTE*>(&before) + c.size, sizeof dm - c.size),
                  0)
            << c.size;
        EXPECT_EQ(dm.dmOrientation, c.written & DM_ORIENTATION ? 2 : 0x5555) << c.size;
        EXPECT_EQ(dm.dmPaperLength, c.written & DM_PAPERLENGTH ? 2000 : 0x5555) << c.size;

        dm = before;
        applyVirtualPrinterChoice({.paperCode = always(9)}, dm);
        EXPECT_EQ(dm.dmPaperSize, c.written & DM_PAPERSIZE ? 9 : 0x5555) << c.size;
    }
}
