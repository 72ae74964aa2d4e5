#pragma once

#include <utility>

// Returns the result of work, or the answer if work throws (memory ran out, a driver threw). The border between the
// model and its callers, who see a failure only as a result.
template <class Answer, class Work>
Answer answerOnThrow(Answer answer, Work&& work) noexcept
{
    try
    {
        return std::forward<Work>(work)();
    }
    catch (...)
    {
        return answer;
    }
}
