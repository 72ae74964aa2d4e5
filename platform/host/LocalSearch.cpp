#include "host/LocalSearch.h"

#include "files/FileChecks.h"
#include "files/FullPath.h"
#include "files/PathStart.h"
#include "host/CGarmPath.h"
#include "host/FilePath.h"
#include "host/GarmInterfaces.h"

#include <optional>

namespace
{
std::optional<OdString> regularFile(const OdString& path)
{
    return isRegularFile(path) ? std::optional(fullPath(path)) : std::nullopt;
}

// First as given, then with the extension: a configuration may be called "A0.pc3.pc3", and "A0.pc3" is found first
// (quirk 76).
std::optional<OdString> fileOrConfiguration(const OdString& path)
{
    auto found = regularFile(path);
    return found ? found : regularFile(path + OD_T(".pc3"));
}

std::optional<OdString> search(const OdString& name, const OdString& searchPath)
{
    // The system would stop reading at a NUL and find a file with another name.
    if (name.isEmpty() || name.find(OdChar()) >= 0 || searchPath.find(OdChar()) >= 0)
        return std::nullopt;

    const PathKind kind = pathStart(name).kind;
    if (kind == PathKind::device || kind == PathKind::deviceName)
        return std::nullopt; // reading it would wait for a port
    const CGarmPath parts(name);
    if (parts.fileName().isEmpty())
        return std::nullopt; // a folder, which would become a file together with ".pc3"
    if (parts.hasFolder())
        if (auto found = fileOrConfiguration(name))
            return found;

    const OdString inFolder = isJoinable(kind) ? name : parts.fileName();
    for (const OdString& folder : FilePath::GetPaths(searchPath))
        if (auto found = fileOrConfiguration(CGarmPath::join(folder, inFolder)))
            return found;
    return std::nullopt;
}
} // namespace

bool LocalSearch::SearchPC3File(const OdString& name, OdString& fullPath) noexcept
{
    try
    {
        return SearchPC3File(name, getMainInternalInterface()->plotCfgSearchPath(), fullPath);
    }
    catch (...)
    {
        return false;
    }
}

bool LocalSearch::SearchPC3File(const OdString& name, const OdString& searchPath, OdString& fullPath) noexcept
{
    try
    {
        auto found = search(name, searchPath);
        if (!found)
            return false;
        fullPath = std::move(*found);
        return true;
    }
    catch (...)
    {
        return false;
    }
}
