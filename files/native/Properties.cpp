#include "files/native/Properties.h"

#include <sys/stat.h>
#include <sys/xattr.h>
#include <unistd.h>

#include <cerrno>
#include <optional>
#include <string>
#include <string_view>

namespace files
{
namespace
{
constexpr mode_t allPermissions = 07777;

// The result of a size-then-fill query; nothing if it fails.
template <class Query>
std::optional<std::string> queryBytes(Query query)
{
    for (;;)
    {
        const ssize_t size = query(nullptr, 0);
        if (size < 0)
            return std::nullopt;
        // One byte more, so that growth in the meantime is noticed.
        std::string bytes(static_cast<std::size_t>(size) + 1, '\0');
        const ssize_t got = query(bytes.data(), bytes.size());
        if (got < 0 && errno == ERANGE)
            continue;
        if (got < 0)
            return std::nullopt;
        bytes.resize(static_cast<std::size_t>(got));
        return bytes;
    }
}

// Calls visit with each name and stops at the first false. Names end in a NUL.
template <class Visit>
bool forEachName(const std::string& names, Visit visit)
{
    for (std::size_t at = 0; at < names.size(); at = names.find('\0', at) + 1)
        if (!visit(names.c_str() + at))
            return false;
    return true;
}

// Access lists are extended attributes too. Those that the new file inherited from its folder and the other file lacks
// are removed.
bool takeOverAttributes(int file, const char* path)
{
    const auto wanted = queryBytes([path](char* out, std::size_t size) { return ::listxattr(path, out, size); });
    if (!wanted)
        return errno == ENOTSUP;
    const auto inherited = queryBytes([file](char* out, std::size_t size) { return ::flistxattr(file, out, size); });
    if (!inherited)
        return false;
    const bool removed = forEachName(
        *inherited, [&](const char* name)
        { return ::getxattr(path, name, nullptr, 0) >= 0 || errno != ENODATA || ::fremovexattr(file, name) == 0; });
    return removed && forEachName(*wanted,
                                  [&](const char* name)
                                  {
                                      const auto value = queryBytes([&](char* out, std::size_t size)
                                                                    { return ::getxattr(path, name, out, size); });
                                      if (!value)
                                          return false;
                                      if (::fsetxattr(file, name, value->data(), value->size(), 0) == 0)
                                          return true;
                                      // A label that only the system can set, and has set.
                                      const auto given = queryBytes([&](char* out, std::size_t size)
                                                                    { return ::fgetxattr(file, name, out, size); });
                                      return given && *given == *value;
                                  });
}

// The owner comes first, because changing it clears some bits of the mode, and the mode last, because an access list
// sets the group's bits.
bool takeOverAll(int file, const char* path, const struct stat& wanted)
{
    struct stat status = {};
    if (::fstat(file, &status) != 0)
        return false;
    if ((status.st_uid != wanted.st_uid || status.st_gid != wanted.st_gid) &&
        ::fchown(file, wanted.st_uid, wanted.st_gid) != 0)
        return false;
    if (!takeOverAttributes(file, path) || ::fchmod(file, wanted.st_mode & allPermissions) != 0)
        return false;
    return ::fstat(file, &status) == 0 && status.st_mode == wanted.st_mode && status.st_uid == wanted.st_uid &&
           status.st_gid == wanted.st_gid;
}
} // namespace

bool takeOverProperties(int file, const char* path, const struct stat& status)
{
    if (takeOverAll(file, path, status))
        return true;
    // An access list that was set determines the group bits of the mode.
    ::fchmod(file, S_IRUSR | S_IWUSR);
    return false;
}
} // namespace files
