#include "plothost/windows/BackgroundWait.h"

#include <gtest/gtest.h>

#include <thread>

using plothost::BackgroundWait;

namespace
{
constexpr UINT awaited = WM_USER + 101;
constexpr DWORD patience = 60'000; // never used up: the message comes
} // namespace

TEST(BackgroundWait, messageThatCameBeforeWaitIsTaken)
{
    BackgroundWait wait;
    ASSERT_NE(wait.window(), nullptr);
    ASSERT_TRUE(::PostMessageW(wait.window(), awaited, 1, 0));
    EXPECT_EQ(wait.waitFor(awaited, patience), std::optional<WPARAM>(1));
}

TEST(BackgroundWait, firstParameterIsTheResultEvenIfZero)
{
    BackgroundWait wait;
    ASSERT_TRUE(::PostMessageW(wait.window(), awaited, 0, 7));
    EXPECT_EQ(wait.waitFor(awaited, patience), std::optional<WPARAM>(0));
}

TEST(BackgroundWait, otherMessagesDoNotEndTheWait)
{
    BackgroundWait wait;
    ASSERT_TRUE(::PostMessageW(wait.window(), WM_NULL, 3, 0));
    ASSERT_TRUE(::PostMessageW(wait.window(), awaited + 1, 4, 0));
    ASSERT_TRUE(::PostMessageW(wait.window(), awaited, 5, 0));
    EXPECT_EQ(wait.waitFor(awaited, patience), std::optional<WPARAM>(5));
}

TEST(BackgroundWait, aMessageFromAnotherThreadEndsTheWait)
{
    BackgroundWait wait;
    std::thread poster([target = wait.window()] { ::PostMessageW(target, awaited, 1, 0); });
    EXPECT_EQ(wait.waitFor(awaited, patience), std::optional<WPARAM>(1));
    poster.join();
}

TEST(BackgroundWait, withoutTimeThereIsNoAnswer)
{
    BackgroundWait wait;
    EXPECT_EQ(wait.waitFor(awaited, 0), std::nullopt);
}

TEST(BackgroundWait, itEndsAndCanBeCreatedAgain)
{
    HWND first = nullptr;
    {
        const BackgroundWait wait;
        first = wait.window();
        EXPECT_TRUE(::IsWindow(first));
        EXPECT_FALSE(::IsWindowVisible(first));
    }
    EXPECT_FALSE(::IsWindow(first));
    const BackgroundWait again;
    EXPECT_NE(again.window(), nullptr);
}
