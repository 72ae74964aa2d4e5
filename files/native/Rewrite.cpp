#include "files/native/Rewrite.h"

#include "files/Patience.h"
#include "files/TempName.h"
#include "files/native/FileIo.h"
#include "files/native/Lock.h"

#include <fcntl.h>
#include <unistd.h>

#include <cerrno>

namespace files
{
namespace
{
constexpr auto inUse = "another program is using the file";

bool put(int file, std::string_view bytes) noexcept
{
    return ::lseek(file, 0, SEEK_SET) == 0 && writeAll(file, bytes) &&
           ::ftruncate(file, static_cast<off_t>(bytes.size())) == 0 && ::fsync(file) == 0;
}

// The file, open and locked, and its old content.
const char* openTarget(const std::string& path, File& file, ByteBuffer& old)
{
    file = File(::open(path.c_str(), O_RDWR | O_NOFOLLOW | O_NONBLOCK | O_NOCTTY | O_CLOEXEC));
    if (!file)
        return reasonOf(errno, cannotWrite);
    Patience patience;
    while (lockFile(file.get(), F_WRLCK) == Lock::busy)
        if (!patience.again())
            return inUse;
    return readAll(file.get(), old);
}

bool takeSpareName(TempFile& temp, const char* spare) noexcept
{
    Patience patience;
    while (!temp.takeFreeName(spare))
        if (errno != EEXIST || !patience.again())
            return false;
    return true;
}
} // namespace

const char* rewriteInPlace(int folder, const std::string& path, TempFile& temp, std::string_view bytes)
{
    const std::string spare = path.substr(path.rfind('/') + 1).append(spareNameEnd);
    // Two writers cannot both create the spare name, so neither overwrites the other's work.
    if (!takeSpareName(temp, spare.c_str()))
        return errno == EEXIST ? "a file with the same name and \".new\" is in the way" : reasonOf(errno, cannotWrite);
    (void)::fsync(folder);

    File file;
    ByteBuffer old;
    const char* reason = openTarget(path, file, old);
    if (!reason && !put(file.get(), bytes))
    {
        reason = reasonOf(errno, cannotWrite);
        if (!put(file.get(), old.view()))
            return "the file is damaged; its new content is in the file of the same name and \".new\"";
    }
    ::unlinkat(folder, spare.c_str(), 0);
    return reason;
}
} // namespace files
