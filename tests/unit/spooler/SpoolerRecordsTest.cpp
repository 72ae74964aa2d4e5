#include "spooler/SpoolerRecords.h"
#include "kernel/OdText.h"
#include "spooler/Handles.h"
#include "tests/support/PrinterRoomTest.h"

using room::Call;

namespace
{
class SpoolerRecordsOf : public PrinterRoomTest
{
protected:
    SpoolerRecordsOf()
    {
        room.add({.name = OD_T("Plotter A"), .driver = OD_T("Acme"), .port = OD_T("LPT1:")});
        m_handle = openPrinter(OD_T("Plotter A"));
    }

    void TearDown() override
    {
        m_handle.reset();
        PrinterRoomTest::TearDown();
    }

    SpoolerRecords ask() const
    {
        return queryInfo([this](BYTE* buffer, DWORD size, DWORD* needed)
                         { return ::GetPrinterW(m_handle.get(), 5, buffer, size, needed); });
    }

    PrinterHandle m_handle;
};
} // namespace

TEST_F(SpoolerRecordsOf, asksForTheSizeThenFills)
{
    const SpoolerRecords records = ask();
    const auto info = records.at<PRINTER_INFO_5W>(0);
    ASSERT_TRUE(info);
    EXPECT_EQ(records.text(info->pPortName), WideText(OD_T("LPT1:")));
    EXPECT_FALSE(records.at<PRINTER_INFO_5W>(5));
    ASSERT_EQ(room.count(Call::getPrinter), 2);
    EXPECT_FALSE(room.calls()[1].fill);
    EXPECT_TRUE(room.calls()[2].fill);
}

TEST_F(SpoolerRecordsOf, everyImplausibleSizeIsAFailure)
{
    struct Case
    {
        const char* name;
        room::RecordLies lies;
        int calls;
    };
    for (const Case& one :
         {Case{"the size query succeeds", {.sizeQuerySucceeds = true}, 1}, Case{"a size of zero", {.needed = 0}, 1},
          Case{"no size", {.neededUnwritten = true}, 1}, Case{"too large to allocate", {.needed = 0xFFFFFFFF}, 1},
          Case{"less than the fill needs", {.needed = 33}, 2}})
    {
        SCOPED_TRACE(one.name);
        room.forgetCalls();
        room.lies(Call::getPrinter) = one.lies;
        EXPECT_TRUE(ask().isNull());
        EXPECT_EQ(room.count(Call::getPrinter), one.calls);
    }
}

TEST_F(SpoolerRecordsOf, theMissingPartOfARecordIsZero)
{
    room.lies(Call::getPrinter) = {.needed = 8, .fillsWhatFits = true};
    const SpoolerRecords records = ask();
    const auto info = records.at<PRINTER_INFO_5W>(0);
    ASSERT_TRUE(info);
    EXPECT_EQ(info->pPortName, nullptr);
    EXPECT_FALSE(records.text(info->pPortName));
    EXPECT_FALSE(records.at<PRINTER_INFO_5W>(1));
}

TEST_F(SpoolerRecordsOf, aDriverMayWriteTooFar)
{
    room.lies(Call::getPrinter).overrun = 512;
    const SpoolerRecords records = ask();
    const auto info = records.at<PRINTER_INFO_5W>(0);
    ASSERT_TRUE(info);
    EXPECT_EQ(records.text(info->pPortName), WideText(OD_T("LPT1:")));
}

TEST_F(SpoolerRecordsOf, anUnterminatedTextEndsWithTheBuffer)
{
    room.lies(Call::getPrinter).unterminatedTexts = true;
    const SpoolerRecords records = ask();
    EXPECT_EQ(records.text(records.at<PRINTER_INFO_5W>(0)->pPortName), WideText(OD_T("LPT1:")));
}

TEST_F(SpoolerRecordsOf, aPointerOutsideTheBufferHasNoText)
{
    room.lies(Call::getPrinter).pointersOutside = true;
    const SpoolerRecords records = ask();
    const auto info = records.at<PRINTER_INFO_5W>(0);
    ASSERT_TRUE(info);
    ASSERT_NE(info->pPortName, nullptr);
    EXPECT_FALSE(records.text(info->pPortName));
    EXPECT_TRUE(records.bytesAt(info->pPortName).empty());
}

TEST(SpoolerRecords, aMisalignedTextAtTheEndIsRead)
{
    SpoolerRecords records = SpoolerRecords::toFill(7);
    const OdChar text[] = {'a', 'b'};
    std::memcpy(records.data() + 3, text, sizeof text);
    EXPECT_EQ(records.text(reinterpret_cast<const WCHAR*>(reinterpret_cast<std::uintptr_t>(records.data()) + 3)),
              WideText(OD_T("ab")));
}

TEST(SpoolerRecords, aTextThatFillsTheBufferIsComplete)
{
    SpoolerRecords records = SpoolerRecords::toFill(8);
    const std::size_t room = records.bytesAt(records.data()).size();
    ASSERT_EQ(room % sizeof(WCHAR), 0U);
    std::memset(records.data(), 'x', room);
    const std::optional<WideText> whole = records.text(reinterpret_cast<const WCHAR*>(records.data()));
    ASSERT_TRUE(whole);
    EXPECT_EQ(whole->size(), room / sizeof(WCHAR));
    // A single byte is not a code unit.
    const auto last = reinterpret_cast<std::uintptr_t>(records.data()) + room - 1;
    EXPECT_EQ(records.text(reinterpret_cast<const WCHAR*>(last)), WideText());
}

TEST(SpoolerRecords, aPointerBeforeTheBufferIsOutside)
{
    SpoolerRecords records = SpoolerRecords::toFill(8);
    const auto first = reinterpret_cast<std::uintptr_t>(records.data());
    const auto* before = reinterpret_cast<const WCHAR*>(first - 2);
    EXPECT_FALSE(records.text(before));
    EXPECT_TRUE(records.bytesAt(before).empty());
    EXPECT_FALSE(records.bytesAt(records.data()).empty());
}

TEST(SpoolerRecords, aNullSetIsEmpty)
{
    const SpoolerRecords none;
    EXPECT_TRUE(none.isNull());
    EXPECT_FALSE(none.at<PRINTER_INFO_5W>(0));
    EXPECT_FALSE(none.text(OD_T("elsewhere")));
    EXPECT_FALSE(none.text(nullptr));
}
