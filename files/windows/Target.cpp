#include "files/windows/Target.h"

#include "files/FullPath.h"
#include "files/PathStart.h"
#include "files/windows/File.h"
#include "files/windows/WineTools.h"

#include <utility>

namespace files
{
namespace
{
constexpr auto notAFile = "that is a folder or a device, not a file";
constexpr auto noName = "that is not a valid file name";

// Runs a query that takes a buffer and its size and returns the length of the text, the size it needs including the
// terminator, or 0. Empty if it fails.
template <class Query>
std::wstring queryText(Query query)
{
    std::wstring text(MAX_PATH, L'\0');
    for (;;)
    {
        const DWORD length = query(text.data(), static_cast<DWORD>(text.size()));
        if (length < text.size())
        {
            text.resize(length);
            return text;
        }
        text.resize(length + std::size_t{1});
    }
}

// Where an open file or folder really is, with all links resolved; such a path is absolute. Some file systems cannot
// say, nor can Wine for long paths: then the path it was opened by, unless that is a link itself.
std::wstring finalPath(const File& file, const std::wstring& path)
{
    std::wstring final =
        queryText([&file](wchar_t* out, DWORD size)
                  { return ::GetFinalPathNameByHandleW(file.get(), out, size, FILE_NAME_NORMALIZED); });
    if (!final.empty() || (::GetFileAttributesW(path.c_str()) & FILE_ATTRIBUTE_REPARSE_POINT))
        return final;
    return path;
}

const char* examine(const File& file, Target& target)
{
    BY_HANDLE_FILE_INFORMATION information = {};
    if (::GetFileType(file.get()) != FILE_TYPE_DISK || !::GetFileInformationByHandle(file.get(), &information) ||
        (information.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY))
        return notAFile;
    if (information.dwFileAttributes & FILE_ATTRIBUTE_READONLY)
        return "the file is read-only";
    // What the replacement needs to know, asked beforehand: later another file could change the answer.
    const File exchangeable(openShared(target.path, DELETE));
    if (!exchangeable)
        return reasonOf(::GetLastError(), cannotWrite);
    target.path = finalPath(file, target.path);
    target.hasOtherNames = information.nNumberOfLinks > 1;
    return target.path.empty() ? cannotWrite : nullptr;
}

const char* examineFolder(Target& target)
{
    const auto start = nameStart(target.path);
    if (start == target.path.size())
        return notAFile;
    const File folder(openShared(target.folder(), FILE_READ_ATTRIBUTES));
    if (!folder)
        return reasonOf(::GetLastError(), cannotWrite);
    std::wstring folderPath = finalPath(folder, target.folder());
    if (folderPath.empty())
        return cannotWrite;
    if (!folderPath.ends_with(L'\\'))
        folderPath += L'\\';
    target.path = folderPath.append(target.path, start);
    return nullptr;
}
} // namespace

std::wstring absolutePath(const OdString& path)
{
    return std::wstring(extendedPath(fullPath(path)).view());
}

const char* findTarget(const wchar_t* path, Target& target)
{
    target.path = absolutePath(OdString(path));
    // After a colon comes the name of a stream inside a file, which no file can replace.
    if (target.path.empty() || target.path.find(L':', nameStart(target.path)) != target.path.npos)
        return noName;

    const File file(openShared(target.path, FILE_READ_ATTRIBUTES));
    const DWORD error = ::GetLastError();
    target.exists = static_cast<bool>(file);
    if (target.exists)
        return examine(file, target);
    if (error != ERROR_FILE_NOT_FOUND)
        return reasonOf(error, cannotWrite);
    // A link to a missing file exists although the file does not; it would be replaced by a file. Wine does not show
    // such a link.
    constexpr auto leadsNowhere = "the link leads to a missing file";
    if (::GetFileAttributesW(target.path.c_str()) != INVALID_FILE_ATTRIBUTES)
        return leadsNowhere;
    if (const auto end = wine::endOfLink(target.path))
    {
        if (end->empty())
            return leadsNowhere;
        target.path = absolutePath(OdString(*end));
    }
    return examineFolder(target);
}
} // namespace files
