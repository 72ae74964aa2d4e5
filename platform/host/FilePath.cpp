#include "host/FilePath.h"

std::vector<OdString> FilePath::GetPaths(const OdString& searchPath)
{
    std::vector<OdString> folders;
    OdStringView rest = searchPath.view();
    while (!rest.empty())
    {
        const auto end = rest.find(';');
        if (const OdStringView folder = rest.substr(0, end); !folder.empty())
            folders.emplace_back(folder);
        rest.remove_prefix(end == rest.npos ? rest.size() : end + 1);
    }
    return folders;
}

OdString FilePath::GetFirstPath(const OdString& searchPath)
{
    const auto folders = GetPaths(searchPath);
    return folders.empty() ? OdString() : folders.front();
}
