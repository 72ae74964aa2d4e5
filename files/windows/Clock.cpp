#include "files/Patience.h"

#include <windows.h>

namespace pia
{
std::uint64_t milliseconds() noexcept
{
    return ::GetTickCount64();
}

void pause(unsigned milliseconds) noexcept
{
    ::Sleep(milliseconds);
}
} // namespace pia
