#pragma once

#include <fcntl.h>

#include <cerrno>

namespace files
{
enum class Lock
{
    held,
    busy,    // another program has it
    unknown, // this file system has no locks
};

// Locks a whole open file without waiting: F_RDLCK shared with other readers, F_WRLCK exclusively, for which the file
// must be open for writing. The lock ends with the open file. Programs under Wine see it too.
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
