#include "GarmPC3Editor/Decisions/VirtualPaper.h"

#include "GarmPC3Editor/Decisions/VirtualPrinterNames.h"
#include "host/GmResellerData.h"
#include "tests/support/PrinterRoomTest.h"

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
} // namespace

TEST_F(VirtualPaper, theExactNameIsTriedOverAllPrintersFirst)
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

TEST_F(VirtualPaper, theFirstPaperOfANameCountsWhateverItsCode)
{
    room.add({.name = OD_T("PDF Printer"), .papers = {{0, OD_T("Zero")}, {7, OD_T("Zero")}, {5, OD_T("")}}});
    EXPECT_EQ(paperCodeForName(OD_T("PDF Printer"), OD_T("Zero"), nullptr), 0);
    EXPECT_EQ(paperCodeForName(OD_T("PDF Printer"), OD_T(""), nullptr), 5);
}

TEST_F(VirtualPaper, whatTheDriverDidNotDeliverIsNoNameAndNoCode)
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
