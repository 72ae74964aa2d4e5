#pragma once

#include <utility>

// Runs work and passes its result on; gives the answer instead when work throws (memory ran out, a driver threw).
// The border between the model and its callers, who know failure only as a result.
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
