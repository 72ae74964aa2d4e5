#include "plothost/Paths.h"

#include "host/FilePath.h"
#include "host/LocalSearch.h"
#include "kernel/OdText.h"
#include "plothost/CloseName.h"
#include "plothost/Printable.h"

#include <algorithm>
#include <filesystem>
#include <system_error>

namespace plothost
{
namespace
{
namespace fs = std::filesystem;

OdString textOf(const fs::path& path)
{
    return OdString(path.string<OdChar>());
}

// Runs what looks at the disk; a text that is no path here (an unpaired surrogate, a NUL) gives the answer for nothing.
template <class Answer, class Look>
Answer lookAt(const OdString& path, Answer none, Look look)
{
    if (path.isEmpty() || path.find(OdChar()) >= 0)
        return none;
    try
    {
        return look(fs::path(path.c_str()));
    }
    catch (const std::system_error&)
    {
        return none;
    }
}

std::string folderList(const OdString& searchPath)
{
    std::string text;
    for (const OdString& folder : FilePath::GetPaths(searchPath))
        text += (text.empty() ? "" : "; ") + printable(folder);
    return text.empty() ? "no folder" : text;
}
} // namespace

OdString absolutePath(const OdString& path)
{
    return lookAt(path, path, [](const fs::path& given) { return textOf(fs::absolute(given).lexically_normal()); });
}

bool isFile(const OdString& path)
{
    return lookAt(path, false, [](const fs::path& given) { return fs::is_regular_file(given); });
}

OdString absoluteSearchPath(const OdString& searchPath)
{
    std::vector<OdString> folders;
    OdString joined;
    for (const OdString& folder : FilePath::GetPaths(searchPath))
    {
        const OdString path = absolutePath(folder);
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
    using Found = std::optional<std::vector<ListReport::Configuration>>;
    return lookAt(folder, Found(),
                  [](const fs::path& given)
                  {
                      std::vector<ListReport::Configuration> found;
                      for (const fs::directory_entry& entry : fs::directory_iterator(given))
                      {
                          std::error_code ignored;
                          const OdString name = textOf(entry.path().filename());
                          if (odEndsWithNoCase(name, OD_T(".pc3")) && entry.is_regular_file(ignored))
                              found.push_back({name, textOf(entry.path())});
                      }
                      std::sort(found.begin(), found.end(),
                                [](const auto& a, const auto& b)
                                {
                                    const auto order = odCompareNoCase(a.name, b.name);
                                    return order != 0 ? order < 0 : a.name < b.name;
                                });
                      return Found(std::move(found));
                  });
}

bool findConfiguration(const OdString& name, OdString& path)
{
    if (isFile(name))
    {
        path = absolutePath(name);
        return true;
    }
    return LocalSearch::SearchPC3File(name, path);
}

std::string whyNotFound(const OdString& name, const OdString& searchPath)
{
    std::string text = "'" + printable(name) + "' is not found in " + folderList(searchPath);
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
    const std::string shown = "'" + printable(path) + "' cannot be written";
    const std::string unseen = reason.empty() ? shown : shown + ": " + reason;
    return lookAt(path, unseen,
                  [&](const fs::path& given)
                  {
                      const fs::path folder = given.parent_path();
                      if (fs::is_directory(given))
                          return shown + ": it is a folder";
                      if (!folder.empty() && !fs::is_directory(folder))
                          return shown + ": there is no folder '" + printable(textOf(folder)) + "'";
                      if (fs::exists(given) &&
                          (fs::status(given).permissions() & fs::perms::owner_write) == fs::perms::none)
                          return shown + ": it is read-only";
                      return std::string(unseen);
                  });
}
} // namespace plothost
