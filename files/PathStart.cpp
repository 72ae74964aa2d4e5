#include "files/PathStart.h"

#include "files/FullPath.h"

#include <algorithm>

namespace
{
constexpr OdStringView separators = OD_T("/\\");

bool isSeparatorAt(OdStringView path, std::size_t index) noexcept
{
    return index < path.size() && isPathSeparator(path[index]);
}

bool hasDriveAt(OdStringView path, std::size_t index) noexcept
{
    if (path.size() < index + 2 || path[index + 1] != ':')
        return false;
    const OdChar letter = odFoldCase(path[index]);
    return letter >= 'a' && letter <= 'z';
}

// The end of the next part, including its separator if there is one.
std::size_t behindPart(OdStringView path, std::size_t start) noexcept
{
    const std::size_t end = path.find_first_of(separators, start);
    return end == path.npos ? path.size() : end + 1;
}

// Whether "\\" is followed by this sign alone, as in "\\?\" and "\\.\". A server may well be called "?x".
bool isNamespace(OdStringView path, OdChar sign) noexcept
{
    return path.size() >= 3 && path[2] == sign && (path.size() == 3 || isPathSeparator(path[3]));
}

bool isNumberedDevice(OdStringView name) noexcept
{
    if (name.size() != 4 || !(odStartsWithNoCase(name, OD_T("com")) || odStartsWithNoCase(name, OD_T("lpt"))))
        return false;
    // The superscript digits count too.
    return (name[3] >= '1' && name[3] <= '9') || name[3] == 0xB9 || name[3] == 0xB2 || name[3] == 0xB3;
}

// Whether a file name is a device's. Only the part up to the first dot or colon counts, without trailing spaces.
bool isDeviceName(OdStringView name) noexcept
{
    name = name.substr(0, name.find_first_of(OD_T(".:")));
    while (name.ends_with(' '))
        name.remove_suffix(1);
    constexpr OdStringView names[] = {OD_T("con"), OD_T("prn"),    OD_T("aux"),
                                      OD_T("nul"), OD_T("conin$"), OD_T("conout$")};
    return isNumberedDevice(name) ||
           std::ranges::any_of(names, [&](OdStringView device) { return odEqualNoCase(name, device); });
}

PathStart networkStart(OdStringView path) noexcept
{
    if (isNamespace(path, '.'))
        return {PathKind::device, behindPart(path, std::min<std::size_t>(4, path.size()))};
    if (isNamespace(path, '?'))
    {
        const std::size_t first = std::min<std::size_t>(4, path.size());
        const std::size_t second = behindPart(path, first);
        if (odEqualNoCase(path.substr(first, path.find_first_of(separators, first) - first), OD_T("unc")))
            return {PathKind::extendedShare, behindPart(path, behindPart(path, second))};
        return {PathKind::extended, second};
    }
    return {PathKind::share, behindPart(path, behindPart(path, 2))};
}

PathStart localStart(OdStringView path) noexcept
{
    if (hasDriveAt(path, 0))
        return isSeparatorAt(path, 2) ? PathStart{PathKind::drive, 3} : PathStart{PathKind::driveRelative, 2};
    return isSeparatorAt(path, 0) ? PathStart{PathKind::rooted, 1} : PathStart{PathKind::relative, 0};
}
} // namespace

PathStart pathStart(OdStringView path) noexcept
{
    if (isSeparatorAt(path, 0) && isSeparatorAt(path, 1))
        return networkStart(path);
    PathStart start = localStart(path);
    const std::size_t name = std::max(path.find_last_of(separators) + 1, start.rootLength); // npos + 1 is 0
    if (isDeviceName(path.substr(name)))
        start.kind = PathKind::deviceName;
    return start;
}

OdString parentFolder(const OdString& path)
{
    const OdStringView text = path;
    const std::size_t root = pathStart(text).rootLength;
    std::size_t end = std::max(text.find_last_of(separators) + 1, root); // npos + 1 is 0
    while (end > root && isPathSeparator(text[end - 1]))
        --end;
    return OdString(text.substr(0, end));
}

OdString joinPath(const OdString& folder, const OdString& fileName)
{
    if (folder.isEmpty())
        return fileName;
    const OdChar last = folder.getAt(folder.getLength() - 1);
    OdString result = folder;
    if (!isPathSeparator(last) && last != ':')
        result += pathSeparator();
    return result + fileName;
}

OdString extendedPath(const OdString& full)
{
    switch (pathStart(full).kind)
    {
    case PathKind::drive:
        return OD_T("\\\\?\\") + full;
    case PathKind::share:
        return OD_T("\\\\?\\UNC\\") + full.mid(2);
    default:
        return full;
    }
}
