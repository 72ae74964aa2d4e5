#pragma once

#include <fcntl.h>

#include <cerrno>

namespace files
{
enum class Lock
{
    held,
    busy,    // another one has it
    unknown, // this file system has no locks
};

// Locks a whole open file without waiting: F_RDLCK together with other readers, F_WRLCK alone, which needs a file open
// for writing. The lock goes with the open file, and Wine's programs see it.
inline Lock lockFile(int file, short type) noexcept
{
    struct flock range = {};
    range.l_type = type;
    range.l_whence = SEEK_SET;
    if (::fcntl(file, F_OFD_SETLK, &range) == 0)
        return Lock::held;
    return errno == EAGAIN || errno == EACCES ? Lock::busy : Lock::unknown;
}
} // namespace files
