#include "pia_tree/FileAccess.h"

#include "kernel/OdText.h"
#include "pia_tree/Limits.h"
#include "pia_tree/native/TempFile.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <climits>
#include <string>

namespace pia
{
namespace
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
        return "the links to the file never end";
    case ENOSPC:
    case EDQUOT:
    case EFBIG:
        return "there is not enough room on the disk";
    default:
        return otherwise;
    }
}

// False for a name that no file here can have; it would be taken for another one.
bool toNative(const OdChar* path, std::string& native)
{
    const OdStringView text = odViewOrEmpty(path);
    native = odToUtf8(text);
    return !text.empty() && odFromUtf8(native) == text;
}

std::string_view folderOf(std::string_view path) noexcept
{
    const auto slash = path.rfind('/');
    return slash == path.npos ? std::string_view() : path.substr(0, slash + 1);
}

// The file behind a path that may name a symbolic link, whether that file exists or not.
const char* followLinks(std::string& path)
{
    constexpr int mostLinks = 40;
    for (int i = 0; i < mostLinks; ++i)
    {
        char target[PATH_MAX];
        const ssize_t length = ::readlink(path.c_str(), target, sizeof target);
        if (length < 0)
            return nullptr; // no link; whatever else is wrong shows when it is used
        const std::string_view name(target, static_cast<std::size_t>(length));
        path = name.starts_with('/') ? std::string(name) : std::string(folderOf(path)).append(name);
    }
    return reasonOf(ELOOP, nullptr);
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

// Owner and group need rights that we mostly lack; the mode comes last because they may change it.
bool copyPermissions(int file, const struct stat& target) noexcept
{
    if (::fchown(file, target.st_uid, target.st_gid) != 0)
        (void)!::fchown(file, static_cast<uid_t>(-1), target.st_gid);
    return ::fchmod(file, target.st_mode & 07777) == 0;
}
} // namespace

const char* readFile(const OdChar* path, ByteBuffer& bytes)
{
    std::string name;
    if (!toNative(path, name))
        return "no file has that name";
    // Without waiting: a pipe would keep us until somebody writes to it.
    const File file(::open(name.c_str(), O_RDONLY | O_NONBLOCK | O_NOCTTY | O_CLOEXEC));
    struct stat status = {};
    if (!file || ::fstat(file.get(), &status) != 0)
        return reasonOf(errno, "the file cannot be opened");
    if (!S_ISREG(status.st_mode))
        return "that is a folder or a device, not a file";
    if (static_cast<std::uint64_t>(status.st_size) > maxFileBytes)
        return "the file is too large";

    // One byte more than there should be, to see the end of the file.
    bytes = ByteBuffer(static_cast<std::size_t>(status.st_size) + 1);
    for (;;)
    {
        const ssize_t got = ::read(file.get(), bytes.data() + bytes.size(), bytes.capacity() - bytes.size());
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
            bytes.reserveMore(1); // it is growing while we read
    }
}

const char* replaceFile(const OdChar* path, std::string_view bytes)
{
    constexpr auto cannotWrite = "the file cannot be written";
    std::string name;
    if (!toNative(path, name))
        return "no file has that name";
    if (const char* reason = followLinks(name))
        return reason;
    const std::string folderName(folderOf(name));
    const std::string target = name.substr(folderName.size());

    const File folder(::open(folderName.empty() ? "." : folderName.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    if (!folder)
        return reasonOf(errno, "the folder cannot be opened");
    struct stat status = {};
    const bool exists = ::fstatat(folder.get(), target.c_str(), &status, 0) == 0;
    if (!exists && (errno != ENOENT || target.empty()))
        return target.empty() ? "that is a folder, not a file" : reasonOf(errno, cannotWrite);
    if (exists && !S_ISREG(status.st_mode))
        return "that is a folder or a device, not a file";
    // An administrator may write every file; one that nobody may write is meant to stay as it is.
    constexpr mode_t anyWrite = S_IWUSR | S_IWGRP | S_IWOTH;
    if (exists &&
        ((status.st_mode & anyWrite) == 0 || ::faccessat(folder.get(), target.c_str(), W_OK, AT_EACCESS) != 0))
        return "the file is read-only";

    removeStaleFiles(folder.get());
    TempFile temp(folder.get(), exists ? 0600 : 0666);
    if (!temp.file())
        return reasonOf(errno, cannotWrite);
    if ((exists && !copyPermissions(temp.file().get(), status)) || !writeAll(temp.file().get(), bytes) ||
        ::fsync(temp.file().get()) != 0 || !temp.file().close() || !temp.takePlaceOf(target.c_str()))
        return reasonOf(errno, cannotWrite);
    // The new file stands; that its name reaches the disk too is all that is left, and not every file system can say.
    (void)::fsync(folder.get());
    return nullptr;
}
} // namespace pia
