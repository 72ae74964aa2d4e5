#include "files/native/FileIo.h"

#include "files/FileAccess.h"

#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstdint>

namespace files
{
const char* reasonOf(int error, const char* otherwise) noexcept
{
    switch (error)
    {
    case ENOENT:
    case ENOTDIR:
        return "the file or its folder does not exist";
    case EACCES:
    case EPERM:
    case EROFS:
        return "the file or its folder is protected";
    case ENAMETOOLONG:
        return "the name of the file is too long";
    case ELOOP:
        return "the links to the file form a loop";
    case ENOSPC:
    case EDQUOT:
    case EFBIG:
        return "there is not enough room on the disk";
    default:
        return otherwise;
    }
}

const char* readAll(int file, ByteBuffer& bytes)
{
    struct stat status = {};
    if (::fstat(file, &status) != 0)
        return reasonOf(errno, "the file cannot be opened");
    if (!S_ISREG(status.st_mode))
        return "that is a folder or a device, not a file";
    if (static_cast<std::uint64_t>(status.st_size) > maxFileBytes)
        return "the file is too large";

    // One byte more than expected, to see the end of the file.
    bytes = ByteBuffer(static_cast<std::size_t>(status.st_size) + 1);
    for (;;)
    {
        const ssize_t got = ::read(file, bytes.data() + bytes.size(), bytes.capacity() - bytes.size());
        if (got < 0 && errno == EINTR)
            continue;
        if (got < 0)
            return "the file cannot be read";
        if (got == 0)
            return nullptr;
        bytes.setSize(bytes.size() + static_cast<std::size_t>(got));
        if (bytes.size() > maxFileBytes)
            return "the file is too large";
        if (bytes.size() == bytes.capacity())
            bytes.reserveMore(1); // it grows while we read
    }
}

bool writeAll(int file, std::string_view bytes) noexcept
{
    while (!bytes.empty())
    {
        const ssize_t written = ::write(file, bytes.data(), bytes.size());
        if (written < 0 && errno == EINTR)
            continue;
        if (written <= 0)
            return false;
        bytes.remove_prefix(static_cast<std::size_t>(written));
    }
    return true;
}
} // namespace files
