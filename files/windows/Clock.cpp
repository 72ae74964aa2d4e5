#include "files/Patience.h"

#include <windows.h>

namespace files
{
std::uint64_t milliseconds() noexcept
{
    return ::GetTickCount64();
}

void pause(unsigned milliseconds) noexcept
{
    ::Sleep(milliseconds);
}
} // namespace files
