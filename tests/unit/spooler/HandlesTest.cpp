#include "spooler/Handles.h"
#include "kernel/OdText.h"
#include "tests/support/PrinterRoomTest.h"

#include <stdexcept>
#include <type_traits>

using room::Call;

namespace
{
class Handles : public PrinterRoomTest
{
};

static_assert(!std::is_copy_constructible_v<PrinterHandle> && !std::is_copy_assignable_v<PrinterHandle>);
static_assert(std::is_nothrow_move_constructible_v<DeviceContext>);
} // namespace

TEST_F(Handles, aPrinterIsClosedExactlyOnce)
{
    room.add({.name = OD_T("P")});
    {
        PrinterHandle first = openPrinter(OD_T("P"));
        PrinterHandle second = std::move(first);
        EXPECT_TRUE(second);
        first = std::move(second);
        EXPECT_TRUE(first);
        first = openPrinter(OD_T("P")); // closes the previous one
        EXPECT_EQ(room.openHandles(), 1);
        PrinterHandle& same = first;
        first = std::move(same);
        EXPECT_TRUE(first);
    }
    EXPECT_EQ(room.openHandles(), 0);
    EXPECT_EQ(room.count(Call::closePrinter), 2);
}

TEST_F(Handles, aReleasedHandleIsTheCallersToClose)
{
    room.add({.name = OD_T("P")});
    PrinterHandle owner = openPrinter(OD_T("P"));
    const PrinterHandle next(owner.release());
    EXPECT_FALSE(owner);
    EXPECT_TRUE(next);
    owner.reset();
    EXPECT_EQ(room.openHandles(), 1);
}

TEST_F(Handles, theLastErrorSurvivesTheClose)
{
    room.add({.name = OD_T("P")});
    room.onCall(Call::closePrinter, OD_T("P"), [](const room::CallRecord&) { ::SetLastError(ERROR_INVALID_HANDLE); });
    PrinterHandle handle = openPrinter(OD_T("P"));
    ::SetLastError(ERROR_ACCESS_DENIED);
    handle.reset();
    EXPECT_EQ(::GetLastError(), static_cast<DWORD>(ERROR_ACCESS_DENIED));
}

TEST_F(Handles, aFailedOpenKeepsNoHandle)
{
    room.writeHandleOnFailedOpen();
    EXPECT_FALSE(openPrinter(OD_T("unknown")));
    EXPECT_EQ(room.count(Call::closePrinter), 0);
}

TEST_F(Handles, minusOneAndNullAreNotHandles)
{
    for (const int value : {-1, 0})
    {
        room.add({.name = OD_T("P"), .opensAs = value, .contextIs = value});
        EXPECT_FALSE(openPrinter(OD_T("P"))) << value;
        EXPECT_FALSE(createDeviceContext(OD_T("D"), OD_T("P"), nullptr)) << value;
        room.remove(OD_T("P"));
    }
    EXPECT_EQ(room.count(Call::closePrinter), 0);
    EXPECT_EQ(room.count(Call::deleteDC), 0);
}

TEST_F(Handles, aNullNameIsPassedOnAsEmpty)
{
    EXPECT_FALSE(openPrinter(OD_T("")));
    EXPECT_FALSE(openPrinter(nullptr));
    ASSERT_EQ(room.count(Call::openPrinter), 2);
    for (const room::CallRecord& call : room.calls())
    {
        EXPECT_FALSE(call.null);
        EXPECT_TRUE(call.printer.empty());
    }
}

TEST_F(Handles, namesAreOpenedUnchanged)
{
    for (const OdChar* name : {OD_T(",XcvMonitor Local Port"), OD_T("\\\\server\\share"), OD_T("a, b"), OD_T(" p ")})
    {
        room.add({.name = name});
        EXPECT_TRUE(openPrinter(name)) << odToUtf8(name);
    }
}

TEST_F(Handles, aCloseThatThrowsStillReleasesTheHandle)
{
    room.add({.name = OD_T("P")});
    PrinterHandle handle = openPrinter(OD_T("P"));
    room.onCall(Call::closePrinter, OD_T("P"), [](const room::CallRecord&) { throw std::runtime_error("monitor"); });
    EXPECT_NO_THROW(handle.reset());
    EXPECT_FALSE(handle);
    EXPECT_EQ(room.count(Call::closePrinter), 1);
    EXPECT_EQ(room.openHandles(), 0);
}
