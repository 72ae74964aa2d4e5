#include "files/FileAccess.h"

#include "files/Patience.h"
#include "files/native/FileIo.h"
#include "files/native/Lock.h"
#include "files/native/Properties.h"
#include "files/native/Rewrite.h"
#include "files/native/TempFile.h"
#include "kernel/OdText.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <climits>
#include <string>

namespace files
{
namespace
{
// False for a name that no file here can have; the system would take it for another one.
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

// The file that a path leads to if it names a symbolic link, whether that file exists or not.
const char* followLinks(std::string& path)
{
    constexpr int mostLinks = 40;
    for (int i = 0; i < mostLinks; ++i)
    {
        char target[PATH_MAX];
        const ssize_t length = ::readlink(path.c_str(), target, sizeof target);
        if (length < 0)
            return nullptr; // not a link; any other problem shows when the path is used
        const std::string_view name(target, static_cast<std::size_t>(length));
        path = name.starts_with('/') ? std::string(name) : std::string(folderOf(path)).append(name);
    }
    return reasonOf(ELOOP, nullptr);
}
} // namespace

const char* readFile(const OdChar* path, ByteBuffer& bytes)
{
    std::string name;
    if (!toNative(path, name))
        return "that is not a valid file name";
    // Without waiting: opening a pipe would block until another program writes to it.
    const File file(::open(name.c_str(), O_RDONLY | O_NONBLOCK | O_NOCTTY | O_CLOEXEC));
    if (!file)
        return reasonOf(errno, "the file cannot be opened");
    // A writer is rewriting the file in place.
    Patience patience;
    while (lockFile(file.get(), F_RDLCK) == Lock::busy)
        if (!patience.again())
            return "another program is using the file";
    return readAll(file.get(), bytes);
}

const char* replaceFile(const OdChar* path, std::string_view bytes)
{
    std::string name;
    if (!toNative(path, name))
        return "that is not a valid file name";
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
    // An administrator may write every file, but a read-only one is meant to stay as it is.
    constexpr mode_t anyWrite = S_IWUSR | S_IWGRP | S_IWOTH;
    if (exists &&
        ((status.st_mode & anyWrite) == 0 || ::faccessat(folder.get(), target.c_str(), W_OK, AT_EACCESS) != 0))
        return "the file is read-only";

    TempFile temp(folder.get(), exists ? 0600 : 0666);
    if (!temp.file())
        return reasonOf(errno, cannotWrite);
    removeStaleFiles(folder.get(), temp.file().get());
    if (!writeAll(temp.file().get(), bytes))
        return reasonOf(errno, cannotWrite);
    // A file with several names, or one that only its owner can recreate, is rewritten in place. Checked after the
    // bytes are written, because until then only we may see them, and because writing clears some bits of the mode.
    const bool replaced =
        !exists || (status.st_nlink == 1 && takeOverProperties(temp.file().get(), name.c_str(), status));
    if (::fsync(temp.file().get()) != 0 || !temp.file().close())
        return reasonOf(errno, cannotWrite);
    if (!replaced)
        return rewriteInPlace(folder.get(), name, temp, bytes);
    if (!temp.takePlaceOf(target.c_str()))
        return reasonOf(errno, cannotWrite);
    // The new file is in place. All that is left is that its name reaches the disk, which not every file system can
    // confirm.
    (void)::fsync(folder.get());
    return nullptr;
}
} // namespace files
