#include "files/FullPath.h"

#include "files/native/SystemPath.h"

#include <cerrno>
#include <unistd.h>

#include <algorithm>
#include <optional>
#include <string_view>
#include <vector>

namespace
{
std::optional<std::string> currentFolder()
{
    for (std::string folder(256, '\0');; folder.resize(2 * folder.size()))
    {
        if (::getcwd(folder.data(), folder.size()))
        {
            folder.resize(folder.find('\0'));
            return folder;
        }
        if (errno != ERANGE)
            return std::nullopt;
    }
}

std::string withoutDots(const std::string& path)
{
    std::vector<std::string_view> parts;
    for (std::string_view rest = path; !rest.empty();)
    {
        const std::string_view part = rest.substr(0, rest.find('/'));
        rest.remove_prefix(std::min(part.size() + 1, rest.size()));
        if (part == "..")
        {
            if (!parts.empty())
                parts.pop_back();
        }
        else if (!part.empty() && part != ".")
            parts.push_back(part);
    }
    std::string result;
    for (const std::string_view part : parts)
        result.append("/").append(part);
    // A trailing separator says that a folder is meant.
    return path.ends_with('/') || result.empty() ? result + "/" : result;
}
} // namespace

OdString fullPath(const OdString& path)
{
    std::optional<std::string> text = systemPath(path);
    if (!text)
        return path;
    if (!text->starts_with('/'))
    {
        const std::optional<std::string> here = currentFolder();
        if (!here)
            return path;
        text = *here + "/" + *text;
    }
    return OdString(odFromUtf8(withoutDots(*text)));
}

OdChar pathSeparator() noexcept
{
    return '/';
}
