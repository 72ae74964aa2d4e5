#include "plothost/Paths.h"

#include "common/Printable.h"
#include "files/FileChecks.h"
#include "files/FullPath.h"
#include "files/PathStart.h"
#include "host/CGarmPath.h"
#include "host/FilePath.h"
#include "host/LocalSearch.h"
#include "kernel/OdText.h"
#include "plothost/CloseName.h"

#include <algorithm>

namespace plothost
{
using apps::printable;
using apps::quoted;

namespace
{
std::string folderList(const OdString& searchPath)
{
    std::string text;
    for (const OdString& folder : FilePath::GetPaths(searchPath))
        text += (text.empty() ? "" : "; ") + printable(folder);
    return text.empty() ? "no folder" : text;
}
} // namespace

OdString absoluteSearchPath(const OdString& searchPath)
{
    std::vector<OdString> folders;
    OdString joined;
    for (const OdString& folder : FilePath::GetPaths(searchPath))
    {
        const OdString path = fullPath(folder);
        if (std::find(folders.begin(), folders.end(), path) != folders.end())
            continue;
        folders.push_back(path);
        joined += joined.isEmpty() ? OD_T("") : OD_T(";");
        joined += path.view();
    }
    return joined;
}

OdString chosenSearchPath(const std::optional<OdString>& typed, const OdString& environment)
{
    for (const OdString& searchPath : {typed.value_or(OdString()), environment})
        if (!FilePath::GetPaths(searchPath).empty())
            return absoluteSearchPath(searchPath);
    return absoluteSearchPath(OD_T("."));
}

std::optional<std::vector<ListReport::Configuration>> configurationsIn(const OdString& folder)
{
    const auto names = filesIn(folder);
    if (!names)
        return std::nullopt;
    std::vector<ListReport::Configuration> found;
    for (const OdString& name : *names)
        if (odEndsWithNoCase(name, OD_T(".pc3")))
            found.push_back({name, CGarmPath::join(folder, name)});
    std::sort(found.begin(), found.end(),
              [](const auto& a, const auto& b)
              {
                  const auto order = odCompareNoCase(a.name, b.name);
                  return order != 0 ? order < 0 : a.name < b.name;
              });
    return found;
}

bool findConfiguration(const OdString& name, OdString& path)
{
    if (isRegularFile(name))
    {
        path = fullPath(name);
        return true;
    }
    return LocalSearch::SearchPC3File(name, path);
}

std::string whyNotFound(const OdString& name, const OdString& searchPath)
{
    std::string text = quoted(name) + " is not found in " + folderList(searchPath);
    std::vector<std::string> names;
    for (const OdString& folder : FilePath::GetPaths(searchPath))
        if (const auto found = configurationsIn(folder))
            for (const ListReport::Configuration& configuration : *found)
                names.push_back(printable(configuration.name));
    const std::string meant = closestName(printable(name), names);
    return meant.empty() ? text : text + "; did you mean '" + meant + "'?";
}

std::string whyNotWritten(const OdString& path, const std::string& reason)
{
    const std::string shown = quoted(path) + " cannot be written";
    const OdString folder = parentFolder(path);
    if (isFolder(path))
        return shown + ": it is a folder";
    if (!folder.isEmpty() && !isFolder(folder))
        return shown + ": there is no folder '" + printable(folder) + "'";
    if (isReadOnly(path))
        return shown + ": it is read-only";
    return reason.empty() ? shown : shown + ": " + reason;
}
} // namespace plothost
