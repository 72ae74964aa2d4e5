#include "files/FileChecks.h"

#include "files/PathStart.h"
#include "files/native/SystemPath.h"

#include <cerrno>
#include <dirent.h>
#include <sys/stat.h>

#include <memory>

namespace
{
std::optional<mode_t> modeOf(const OdString& path)
{
    struct stat status = {};
    const std::optional<std::string> text = systemPath(path);
    return text && ::stat(text->c_str(), &status) == 0 ? std::optional(status.st_mode) : std::nullopt;
}
} // namespace

bool isRegularFile(const OdString& path)
{
    const std::optional<mode_t> mode = modeOf(path);
    return mode && S_ISREG(*mode);
}

bool isFolder(const OdString& path)
{
    const std::optional<mode_t> mode = modeOf(path);
    return mode && S_ISDIR(*mode);
}

bool isReadOnly(const OdString& path)
{
    const std::optional<mode_t> mode = modeOf(path);
    return mode && !(*mode & S_IWUSR);
}

std::optional<std::vector<OdString>> filesIn(const OdString& folder)
{
    const std::optional<std::string> text = systemPath(folder);
    const auto close = [](DIR* open) { ::closedir(open); };
    const std::unique_ptr<DIR, decltype(close)> entries(text ? ::opendir(text->c_str()) : nullptr);
    if (!entries)
        return std::nullopt;
    std::vector<OdString> names;
    for (;;)
    {
        errno = 0;
        const dirent* const entry = ::readdir(entries.get());
        if (!entry)
            return errno == 0 ? std::optional(std::move(names)) : std::nullopt;
        OdString name(odFromUtf8(entry->d_name));
        if (isRegularFile(joinPath(folder, name)))
            names.push_back(std::move(name));
    }
}
