#include "kernel/OdText.h"
#include "tests/support/PrinterRoomTest.h"

#include <array>
#include <cstring>
#include <stdexcept>
#include <thread>

// The spooler of the room behaves like real ones, including their faults.

using room::Call;

namespace
{
const HANDLE poison = reinterpret_cast<HANDLE>(std::uintptr_t{0x1234});
constexpr DWORD untouched = 0xCDCDCDCD;

class RoomSpooler : public PrinterRoomTest
{
protected:
    static HANDLE open(const OdChar* name)
    {
        HANDLE handle = poison;
        return ::OpenPrinterW(const_cast<OdChar*>(name), &handle, nullptr) ? handle : nullptr;
    }

    // Opens the printer P for the rest of the test.
    HANDLE openP() { return m_opened = open(OD_T("P")); }

    // The record of a printer, by the size-then-fill protocol.
    std::vector<BYTE> infoOf(HANDLE handle, DWORD level)
    {
        DWORD needed = 0;
        EXPECT_FALSE(::GetPrinterW(handle, level, nullptr, 0, &needed));
        std::vector<BYTE> buffer(needed);
        EXPECT_TRUE(::GetPrinterW(handle, level, buffer.data(), needed, &needed));
        return buffer;
    }

    void TearDown() override
    {
        if (m_opened)
            ::ClosePrinter(m_opened);
        PrinterRoomTest::TearDown();
    }

    HANDLE m_opened = nullptr;
};

template <class Record>
Record recordIn(const std::vector<BYTE>& buffer, std::size_t index = 0)
{
    Record record;
    std::memcpy(&record, buffer.data() + index * sizeof record, sizeof record);
    return record;
}
} // namespace

TEST_F(RoomSpooler, opensAPrinterInAnyLetterCase)
{
    room.add({.name = OD_T("Plotter A")});
    const HANDLE handle = open(OD_T("plotter a"));
    ASSERT_NE(handle, nullptr);
    EXPECT_EQ(room.openHandles(), 1);
    EXPECT_TRUE(::ClosePrinter(handle));
    EXPECT_EQ(room.openHandles(), 0);
}

TEST_F(RoomSpooler, opensNullButNotTheEmptyName)
{
    HANDLE handle = nullptr;
    EXPECT_TRUE(::OpenPrinterW(nullptr, &handle, nullptr));
    EXPECT_TRUE(room.calls()[0].null);
    ::ClosePrinter(handle);
    EXPECT_EQ(open(OD_T("")), nullptr);
    EXPECT_EQ(::GetLastError(), ERROR_INVALID_PRINTER_NAME);
}

TEST_F(RoomSpooler, aFailingOpenMayWriteAForeignHandle)
{
    HANDLE handle = poison;
    OdChar name[] = OD_T("unknown");
    EXPECT_FALSE(::OpenPrinterW(name, &handle, nullptr));
    EXPECT_EQ(handle, poison);

    room.writeHandleOnFailedOpen();
    EXPECT_FALSE(::OpenPrinterW(name, &handle, nullptr));
    EXPECT_NE(handle, poison);
}

TEST_F(RoomSpooler, anOpenCanSucceedWithMinusOne)
{
    room.add({.name = OD_T("P"), .opensAs = -1});
    EXPECT_EQ(open(OD_T("P")), reinterpret_cast<HANDLE>(std::intptr_t{-1}));
    EXPECT_EQ(room.openHandles(), 0);
}

TEST(RoomSpoolerCount, strayClosesAreCounted)
{
    PrinterRoom room;
    EXPECT_FALSE(::ClosePrinter(poison));
    EXPECT_FALSE(::DeleteDC(reinterpret_cast<HDC>(poison)));
    EXPECT_EQ(room.strayCloses(), 2);
}

TEST_F(RoomSpooler, recordsFollowTheSizeThenFillProtocol)
{
    room.add({.name = OD_T("P"), .driver = OD_T("Acme"), .port = OD_T("FILE:")});
    const HANDLE handle = openP();
    DWORD needed = 0;
    EXPECT_FALSE(::GetPrinterW(handle, 5, nullptr, 0, &needed));
    EXPECT_EQ(::GetLastError(), ERROR_INSUFFICIENT_BUFFER);
    ASSERT_GT(needed, sizeof(PRINTER_INFO_5W));

    std::vector<BYTE> buffer(needed);
    EXPECT_FALSE(::GetPrinterW(handle, 5, buffer.data(), needed - 1, &needed));
    ASSERT_TRUE(::GetPrinterW(handle, 5, buffer.data(), needed, &needed));
    EXPECT_EQ(room::Text(recordIn<PRINTER_INFO_5W>(buffer).pPortName), OD_T("FILE:"));
}

TEST_F(RoomSpooler, absentTextsAreNullAndBlocksAreMisaligned)
{
    room.add({.name = OD_T("P"), .driver = std::nullopt, .port = std::nullopt, .namedInRecords = false});
    const HANDLE handle = openP();
    for (const bool odd : {false, true})
    {
        room.lies(Call::getPrinter).oddBlocks = odd;
        const auto buffer = infoOf(handle, 2);
        const auto info = recordIn<PRINTER_INFO_2W>(buffer);
        EXPECT_EQ(info.pPrinterName, nullptr);
        EXPECT_EQ(info.pDriverName, nullptr);
        EXPECT_EQ(info.pPortName, nullptr);
        ASSERT_NE(info.pDevMode, nullptr);
        EXPECT_EQ(reinterpret_cast<std::uintptr_t>(info.pDevMode) % 4, odd ? 1U : 2U);
    }
}

TEST_F(RoomSpooler, recordCallsLieAsScripted)
{
    room.add({.name = OD_T("P"), .driver = OD_T("D"), .port = OD_T("LPT1:")});
    const HANDLE handle = openP();
    room::RecordLies& lies = room.lies(Call::getPrinter);
    DWORD needed = untouched;

    lies = {.sizeQuerySucceeds = true};
    EXPECT_TRUE(::GetPrinterW(handle, 5, nullptr, 0, &needed));

    lies = {.neededUnwritten = true};
    needed = untouched;
    EXPECT_FALSE(::GetPrinterW(handle, 5, nullptr, 0, &needed));
    EXPECT_EQ(needed, untouched);

    lies = {.needed = 7, .fillsWhatFits = true};
    EXPECT_FALSE(::GetPrinterW(handle, 5, nullptr, 0, &needed));
    EXPECT_EQ(needed, 7U);
    std::array<BYTE, 16> bytes = {};
    bytes.fill(0x77);
    EXPECT_TRUE(::GetPrinterW(handle, 5, bytes.data(), 7, &needed));
    EXPECT_EQ(bytes[7], 0x77);

    lies = {.fillsWhatFits = true, .overrun = 2};
    EXPECT_TRUE(::GetPrinterW(handle, 5, bytes.data(), 7, &needed));
    EXPECT_NE(bytes[7], 0x77);
    EXPECT_NE(bytes[8], 0x77);
    EXPECT_EQ(bytes[9], 0x77);
}

TEST_F(RoomSpooler, theLastTextMayLackATerminator)
{
    room.add({.name = OD_T("P"), .port = OD_T("FILE:")});
    room.lies(Call::getPrinter).unterminatedTexts = true;
    const auto buffer = infoOf(openP(), 5);
    const auto port = reinterpret_cast<const BYTE*>(recordIn<PRINTER_INFO_5W>(buffer).pPortName);
    EXPECT_EQ(port + 5 * sizeof(OdChar), buffer.data() + buffer.size());
}

TEST_F(RoomSpooler, theNetworkPassIsRefusedByDefault)
{
    room.add({.name = OD_T("Net"), .connection = true});
    DWORD needed = untouched;
    DWORD returned = untouched;
    EXPECT_FALSE(::EnumPrintersW(0x64, nullptr, 2, nullptr, 0, &needed, &returned));
    EXPECT_EQ(::GetLastError(), ERROR_INVALID_FLAGS);
    EXPECT_EQ(needed, 0U);

    // Without a local printer the local pass has nothing to deliver, so it succeeds.
    EXPECT_TRUE(::EnumPrintersW(2, nullptr, 2, nullptr, 0, &needed, &returned));
    EXPECT_EQ(needed, 0U);

    room.allowNetworkPass();
    EXPECT_FALSE(::EnumPrintersW(0x64, nullptr, 2, nullptr, 0, &needed, &returned));
    EXPECT_EQ(::GetLastError(), ERROR_INSUFFICIENT_BUFFER);
}

TEST_F(RoomSpooler, enumeratesInOrderWithAScriptedCount)
{
    for (const OdChar* name : {OD_T("B"), OD_T("A")})
        room.add({.name = name});
    room.add({.name = OD_T("hidden"), .listed = false});
    DWORD needed = 0;
    DWORD returned = 0;
    ::EnumPrintersW(2, nullptr, 4, nullptr, 0, &needed, &returned);
    std::vector<BYTE> buffer(needed);
    ASSERT_TRUE(::EnumPrintersW(2, nullptr, 4, buffer.data(), needed, &needed, &returned));
    EXPECT_EQ(returned, 2U);
    EXPECT_EQ(room::Text(recordIn<PRINTER_INFO_4W>(buffer, 0).pPrinterName), OD_T("B"));
    EXPECT_EQ(room::Text(recordIn<PRINTER_INFO_4W>(buffer, 1).pPrinterName), OD_T("A"));

    room.lies(Call::enumPrinters).returned = 99;
    ASSERT_TRUE(::EnumPrintersW(2, nullptr, 4, buffer.data(), needed, &needed, &returned));
    EXPECT_EQ(returned, 99U);
}

TEST_F(RoomSpooler, everyCallToARemovedPrinterFails)
{
    room.add({.name = OD_T("P"), .driver = OD_T("D")});
    const HANDLE handle = openP();
    room.remove(OD_T("P"));
    DWORD needed = untouched;
    EXPECT_FALSE(::GetPrinterW(handle, 2, nullptr, 0, &needed));
    EXPECT_EQ(needed, untouched);
    EXPECT_FALSE(::GetPrinterDriverW(handle, nullptr, 3, nullptr, 0, &needed));
    EXPECT_EQ(::GetLastError(), ERROR_UNKNOWN_PRINTER_DRIVER);
    OdChar name[] = OD_T("P");
    EXPECT_EQ(::DocumentPropertiesW(nullptr, handle, name, nullptr, nullptr, 0), -1);
    EXPECT_EQ(open(name), nullptr);
}

TEST_F(RoomSpooler, onlyTheNthCallFails)
{
    room.add({.name = OD_T("P")});
    room.failNth(2);
    const HANDLE first = open(OD_T("P"));
    EXPECT_FALSE(room.failureReached());
    EXPECT_EQ(open(OD_T("P")), nullptr);
    EXPECT_TRUE(room.failureReached());
    const HANDLE third = open(OD_T("P"));
    EXPECT_NE(third, nullptr);

    room.failNth(1);
    EXPECT_FALSE(::ClosePrinter(first)); // fails, but closes the handle
    EXPECT_EQ(room.openHandles(), 1);
    ::ClosePrinter(third);
}

TEST_F(RoomSpooler, refusesCallsForOnePrinterOrForAll)
{
    room.add({.name = OD_T("A")});
    room.add({.name = OD_T("B")});
    room.refuse(Call::openPrinter, OD_T("A"));
    EXPECT_EQ(open(OD_T("A")), nullptr);
    const HANDLE b = open(OD_T("B"));
    ASSERT_NE(b, nullptr);
    room.refuse(Call::getPrinter);
    DWORD needed = 0;
    EXPECT_FALSE(::GetPrinterW(b, 5, nullptr, 0, &needed));
    EXPECT_EQ(needed, 0U);
    ::ClosePrinter(b);
}

TEST_F(RoomSpooler, aHookMayThrowOrRemoveThePrinter)
{
    room.add({.name = OD_T("P")});
    room.add({.name = OD_T("Q")});
    room.onCall(Call::openPrinter, OD_T("P"), [](const room::CallRecord&) { throw std::runtime_error("driver"); });
    EXPECT_THROW(open(OD_T("P")), std::runtime_error);
    room.onCall(Call::openPrinter, OD_T("Q"), [&](const room::CallRecord& call) { room.remove(call.printer); });
    EXPECT_EQ(open(OD_T("Q")), nullptr);
}

TEST_F(RoomSpooler, aHeldCallBlocksNoOther)
{
    room.add({.name = OD_T("Slow")});
    room.add({.name = OD_T("Fast")});
    const auto held = room.hold(Call::openPrinter, OD_T("Slow"));
    HANDLE slow = nullptr;
    std::thread background([&] { slow = open(OD_T("Slow")); });
    held->awaitEntered();
    const HANDLE fast = open(OD_T("Fast"));
    EXPECT_NE(fast, nullptr);
    EXPECT_EQ(room.openHandles(), 1);
    held->release();
    background.join();
    EXPECT_NE(slow, nullptr);
    ::ClosePrinter(slow);
    ::ClosePrinter(fast);
}

TEST(RoomSpoolerCount, withoutARoomNoPrinterIsInstalled)
{
    HANDLE handle = poison;
    OdChar name[] = OD_T("P");
    EXPECT_FALSE(::OpenPrinterW(name, &handle, nullptr));
    DWORD needed = untouched;
    DWORD returned = untouched;
    EXPECT_TRUE(::EnumPrintersW(2, nullptr, 2, nullptr, 0, &needed, &returned));
    EXPECT_EQ(needed, 0U);
}
