#pragma once

#include "tests/support/room/PrinterRoom.h"

#include <gtest/gtest.h>

// A test with its own printer room. In the end nothing may be open, and nothing may have been closed twice.
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

// PrinterRoom::failNth or throwNth.
using Sabotage = void (PrinterRoom::*)(int n);

// Spoils the first call that work makes to the room, then the second, ... until work makes fewer calls. After each run
// check(result, spoiled) examines the outcome. Returns how many calls were spoiled.
template <class Work, class Check>
int spoilEachCall(PrinterRoom& room, Sabotage sabotage, Work work, Check check)
{
    for (int n = 1;; ++n)
    {
        (room.*sabotage)(n);
        const auto result = work();
        const bool spoiled = room.failureReached();
        (room.*sabotage)(0);
        check(result, spoiled);
        EXPECT_EQ(room.openHandles(), 0) << "after spoiling call " << n;
        EXPECT_EQ(room.openContexts(), 0) << "after spoiling call " << n;
        if (!spoiled)
            return n - 1;
    }
}

template <class Work, class Check>
int failEachCall(PrinterRoom& room, Work work, Check check)
{
    return spoilEachCall(room, &PrinterRoom::failNth, work, check);
}

template <class Work, class Check>
int throwFromEachCall(PrinterRoom& room, Work work, Check check)
{
    return spoilEachCall(room, &PrinterRoom::throwNth, work, check);
}
