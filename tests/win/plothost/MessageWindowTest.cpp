#include "plothost/windows/BackgroundWait.h"

#include <gtest/gtest.h>

#include <thread>

using plothost::MessageWindow;

namespace
{
constexpr UINT awaited = WM_USER + 101;
constexpr DWORD patience = 60'000; // never used up: the message comes
} // namespace

TEST(MessageWindow, aMessageThatCameBeforeTheWaitIsTaken)
{
    MessageWindow window;
    ASSERT_NE(window.handle(), nullptr);
    ASSERT_TRUE(::PostMessageW(window.handle(), awaited, 1, 0));
    EXPECT_EQ(window.waitFor(awaited, patience), std::optional<WPARAM>(1));
}

TEST(MessageWindow, itsFirstParameterIsTheAnswerAlsoWhenItIsZero)
{
    MessageWindow window;
    ASSERT_TRUE(::PostMessageW(window.handle(), awaited, 0, 7));
    EXPECT_EQ(window.waitFor(awaited, patience), std::optional<WPARAM>(0));
}

TEST(MessageWindow, otherMessagesDoNotEndTheWait)
{
    MessageWindow window;
    ASSERT_TRUE(::PostMessageW(window.handle(), WM_NULL, 3, 0));
    ASSERT_TRUE(::PostMessageW(window.handle(), awaited + 1, 4, 0));
    ASSERT_TRUE(::PostMessageW(window.handle(), awaited, 5, 0));
    EXPECT_EQ(window.waitFor(awaited, patience), std::optional<WPARAM>(5));
}

TEST(MessageWindow, aMessageFromAnotherThreadEndsTheWait)
{
    MessageWindow window;
    std::thread poster([target = window.handle()] { ::PostMessageW(target, awaited, 1, 0); });
    EXPECT_EQ(window.waitFor(awaited, patience), std::optional<WPARAM>(1));
    poster.join();
}

TEST(MessageWindow, withoutTimeThereIsNoAnswer)
{
    MessageWindow window;
    EXPECT_EQ(window.waitFor(awaited, 0), std::nullopt);
}

TEST(MessageWindow, itIsGoneAtTheEndAndCanBeMadeAgain)
{
    HWND first = nullptr;
    {
        const MessageWindow window;
        first = window.handle();
        EXPECT_TRUE(::IsWindow(first));
        EXPECT_FALSE(::IsWindowVisible(first));
    }
    EXPECT_FALSE(::IsWindow(first));
    const MessageWindow again;
    EXPECT_NE(again.handle(), nullptr);
}
