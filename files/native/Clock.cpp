#include "files/Patience.h"

#include <time.h>

namespace files
{
std::uint64_t milliseconds() noexcept
{
    timespec now = {};
    ::clock_gettime(CLOCK_MONOTONIC, &now);
    return static_cast<std::uint64_t>(now.tv_sec) * 1000 + static_cast<std::uint64_t>(now.tv_nsec) / 1'000'000;
}

void pause(unsigned milliseconds) noexcept
{
    const timespec time = {static_cast<time_t>(milliseconds / 1000),
                           static_cast<long>(milliseconds % 1000) * 1'000'000};
    ::nanosleep(&time, nullptr);
}
} // namespace files
