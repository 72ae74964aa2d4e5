#pragma once

#include <cstdint>

namespace files
{
// How long a reader or writer retries while another program has the file open: two seconds from the first refusal. A
// save takes a few milliseconds, even on a share; a program that holds a file longer than this will not release it
// soon.
class Patience
{
public:
    // Waits a little, longer each time. Returns false at once when the time is up.
    bool again() noexcept;

private:
    std::uint64_t m_end = 0; // 0: nothing was refused yet
    unsigned m_pause = 1;    // milliseconds
};

// From a clock that never goes back.
std::uint64_t milliseconds() noexcept;

void pause(unsigned milliseconds) noexcept;
} // namespace files
