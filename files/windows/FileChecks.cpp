#include "files/FileChecks.h"

#include "files/FullPath.h"
#include "files/PathStart.h"
#include "win32/Win32.h"

#include <memory>

namespace
{
// The path in a form whose length does not matter to the system. Empty for what is not a place on a disk: for the name
// of a device the system would report the attributes of a file.
OdString askedPath(const OdString& path)
{
    if (path.isEmpty() || path.find(OdChar()) >= 0)
        return {};
    const OdString full = fullPath(path);
    return pathStart(full).kind == PathKind::device ? OdString() : extendedPath(full);
}

// Of the target, if it is a link.
DWORD attributesBehindLink(const OdString& asked)
{
    const HANDLE handle =
        ::CreateFileW(asked.c_str(), FILE_READ_ATTRIBUTES, FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE,
                      nullptr, OPEN_EXISTING, FILE_FLAG_BACKUP_SEMANTICS, nullptr);
    if (handle == INVALID_HANDLE_VALUE)
        return INVALID_FILE_ATTRIBUTES;
    BY_HANDLE_FILE_INFORMATION information = {};
    const BOOL got = ::GetFileInformationByHandle(handle, &information);
    ::CloseHandle(handle);
    return got ? information.dwFileAttributes : INVALID_FILE_ATTRIBUTES;
}

// INVALID_FILE_ATTRIBUTES if it does not exist.
DWORD attributesOf(const OdString& path)
{
    const OdString asked = askedPath(path);
    if (asked.isEmpty())
        return INVALID_FILE_ATTRIBUTES;
    const DWORD attributes = ::GetFileAttributesW(asked.c_str());
    const bool isLink = attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_REPARSE_POINT);
    return isLink ? attributesBehindLink(asked) : attributes;
}
} // namespace

bool isRegularFile(const OdString& path)
{
    const DWORD attributes = attributesOf(path);
    return attributes != INVALID_FILE_ATTRIBUTES && !(attributes & (FILE_ATTRIBUTE_DIRECTORY | FILE_ATTRIBUTE_DEVICE));
}

bool isFolder(const OdString& path)
{
    const DWORD attributes = attributesOf(path);
    return attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_DIRECTORY);
}

bool isReadOnly(const OdString& path)
{
    const DWORD attributes = attributesOf(path);
    return attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_READONLY);
}

std::optional<std::vector<OdString>> filesIn(const OdString& folder)
{
    const OdString asked = askedPath(folder);
    if (asked.isEmpty())
        return std::nullopt;
    WIN32_FIND_DATAW entry = {};
    const HANDLE search = ::FindFirstFileW(joinPath(asked, OD_T("*")).c_str(), &entry);
    if (search == INVALID_HANDLE_VALUE) // the root of a share may be empty, even of "."
        return ::GetLastError() == ERROR_FILE_NOT_FOUND ? std::optional<std::vector<OdString>>(std::in_place)
                                                        : std::nullopt;
    const std::unique_ptr<void, decltype(&::FindClose)> close(search, &::FindClose);
    std::vector<OdString> names;
    do
    {
        const bool isLink = (entry.dwFileAttributes & FILE_ATTRIBUTE_REPARSE_POINT) != 0;
        if (isLink ? isRegularFile(joinPath(folder, OdString(entry.cFileName)))
                   : !(entry.dwFileAttributes & (FILE_ATTRIBUTE_DIRECTORY | FILE_ATTRIBUTE_DEVICE)))
            names.emplace_back(entry.cFileName);
    } while (::FindNextFileW(search, &entry));
    return ::GetLastError() == ERROR_NO_MORE_FILES ? std::optional(std::move(names)) : std::nullopt;
}
