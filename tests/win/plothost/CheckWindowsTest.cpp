#include "plothost/windows/CheckWindows.h"

#include "plothost/DevModeQuery.h"

#include <gtest/gtest.h>

#include <set>
#include <utility>
#include <vector>

using plothost::backgroundMessage;
using plothost::CheckWindows;

namespace
{
using Answers = std::vector<std::pair<unsigned, bool>>;

void pump()
{
    MSG next;
    while (::PeekMessageW(&next, nullptr, 0, 0, PM_REMOVE))
        ::DispatchMessageW(&next);
}

class CheckWindowsTest : public testing::Test
{
protected:
    Answers m_answers;
    CheckWindows m_windows{[this](unsigned question, bool found) { m_answers.emplace_back(question, found); }};
};
} // namespace

TEST_F(CheckWindowsTest, eachAnswerBelongsToItsQuestion)
{
    const HWND first = m_windows.open(1);
    const HWND second = m_windows.open(2);
    ASSERT_NE(first, second);
    ASSERT_TRUE(::PostMessageW(second, backgroundMessage, 0, 0));
    ASSERT_TRUE(::PostMessageW(first, backgroundMessage, 1, 0));
    pump();
    EXPECT_EQ(m_answers, (Answers{{2, false}, {1, true}}));
}

TEST_F(CheckWindowsTest, windowStaysUntilItsAnswer)
{
    std::set<HWND> seen;
    for (unsigned question = 1; question <= 50; ++question)
        seen.insert(m_windows.open(question));
    EXPECT_EQ(seen.size(), 50U);
    for (const HWND window : seen)
    {
        EXPECT_TRUE(::IsWindow(window));
        ::PostMessageW(window, backgroundMessage, 1, 0);
    }
    pump();
    EXPECT_EQ(m_answers.size(), 50U);
    for (const HWND window : seen)
        EXPECT_FALSE(::IsWindow(window)) << "its work is done";
}

TEST_F(CheckWindowsTest, otherMessagesAreNoAnswer)
{
    const HWND window = m_windows.open(1);
    ::PostMessageW(window, backgroundMessage + 1, 1, 0);
    ::PostMessageW(window, WM_NULL, 1, 0);
    pump();
    EXPECT_TRUE(m_answers.empty());
    EXPECT_TRUE(::IsWindow(window));
}

TEST_F(CheckWindowsTest, questionThatWasNotAskedIsTakenBack)
{
    const HWND window = m_windows.open(1);
    m_windows.close(window);
    EXPECT_FALSE(::IsWindow(window));
    m_windows.close(window);
    m_windows.close(nullptr);
}

TEST(CheckWindows, answerThatComesTooLateFindsNoWindow)
{
    HWND window = nullptr;
    {
        CheckWindows windows([](unsigned, bool) { FAIL() << "nobody is left"; });
        window = windows.open(1);
        ASSERT_TRUE(::PostMessageW(window, backgroundMessage, 1, 0));
    }
    EXPECT_FALSE(::PostMessageW(window, backgroundMessage, 1, 0));
    pump();
}
