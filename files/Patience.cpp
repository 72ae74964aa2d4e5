#include "files/Patience.h"

#include <algorithm>

namespace files
{
bool Patience::again() noexcept
{
    constexpr unsigned longest = 2000;
    constexpr unsigned longestPause = 32;
    const std::uint64_t now = milliseconds();
    if (m_end == 0)
        m_end = now + longest;
    if (now >= m_end)
        return false;
    pause(m_pause);
    m_pause = std::min(2 * m_pause, longestPause);
    return true;
}
} // namespace files
