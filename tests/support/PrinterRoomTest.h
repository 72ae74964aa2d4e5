#pragma once

#include "win32/room/PrinterRoom.h"

#include <gtest/gtest.h>

// A test with a room of its own, which must be left as it was found: nothing open, nothing closed that was not.
class PrinterRoomTest : public testing::Test
{
protected:
    void TearDown() override
    {
        EXPECT_EQ(room.openHandles(), 0);
        EXPECT_EQ(room.openContexts(), 0);
        EXPECT_EQ(room.strayCloses(), 0);
    }

    PrinterRoom room;
};

// Fails the first call to the room that work makes, then the second, ... until work gets by without. After each run
// check(result, failed) looks at what came of it. Returns how many calls failed.
template <class Work, class Check>
int failEachCall(PrinterRoom& room, Work work, Check check)
{
    for (int n = 1;; ++n)
    {
        room.failNth(n);
        const auto result = work();
        const bool failed = room.failureReached();
        room.failNth(0);
        check(result, failed);
        EXPECT_EQ(room.openHandles(), 0) << "after failing call " << n;
        EXPECT_EQ(room.openContexts(), 0) << "after failing call " << n;
        if (!failed)
            return n - 1;
    }
}
