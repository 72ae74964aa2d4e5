#pragma once

#include <cstdint>

namespace files
{
// For how long a reader or a writer tries again when another program is in its way: two seconds from the first refusal.
// Saves take some milliseconds, also on a share; who holds a file longer than this holds it for good.
class Patience
{
public:
    // Waits a little, each time longer. False, without waiting, when the time is over.
    bool again() noexcept;

private:
    std::uint64_t m_end = 0; // 0: nothing was refused yet
    unsigned m_pause = 1;    // milliseconds
};

// Of a clock that only goes forward.
std::uint64_t milliseconds() noexcept;

void pause(unsigned milliseconds) noexcept;
} // namespace files
