#include "pia_tree/FileAccess.h"

#include "pia_tree/Limits.h"
#include "pia_tree/windows/TempFile.h"

#include <windows.h>

#include <string>

namespace pia
{
namespace
{
constexpr auto cannotWrite = "the file cannot be written";
constexpr auto notAFile = "that is a folder or a device, not a file";

const char* reasonOf(DWORD error, const char* otherwise) noexcept
{
    switch (error)
    {
    case ERROR_FILE_NOT_FOUND:
    case ERROR_PATH_NOT_FOUND:
    case ERROR_INVALID_DRIVE:
    case ERROR_BAD_NETPATH:
        return "the file or its folder does not exist";
    case ERROR_ACCESS_DENIED:
    case ERROR_WRITE_PROTECT:
        return "the file or its folder is protected";
    case ERROR_SHARING_VIOLATION:
    case ERROR_LOCK_VIOLATION:
    case ERROR_USER_MAPPED_FILE:
        return "another program is using the file";
    case ERROR_INVALID_NAME:
        return "no file has that name";
    case ERROR_FILENAME_EXCED_RANGE:
        return "the name of the file is too long";
    case ERROR_DISK_FULL:
    case ERROR_HANDLE_DISK_FULL:
        return "there is not enough room on the disk";
    default:
        return otherwise;
    }
}

// Runs a query that is given a buffer and its size and answers the length of the text, or the size it wants with its
// terminator, or 0. Empty when it fails.
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

// The absolute form of a path that may be longer than the classic limit.
std::wstring absolutePath(const wchar_t* path)
{
    std::wstring full =
        queryText([path](wchar_t* out, DWORD size) { return ::GetFullPathNameW(path, size, out, nullptr); });
    const std::wstring_view extended(LR"(\\?\)");
    if (full.empty() || full.starts_with(extended) || full.starts_with(LR"(\\.\)"))
        return full;
    if (full.starts_with(LR"(\\)"))
        return std::wstring(LR"(\\?\UNC\)").append(full, 2);
    return full.insert(0, extended);
}

// Where an open file or folder really is, with all links followed; such a path is absolute in the sense above. Some
// file systems cannot tell, nor can Wine for long paths: then the path it was opened by, if that is no link itself.
std::wstring finalPath(const File& file, const std::wstring& path)
{
    std::wstring final =
        queryText([&file](wchar_t* out, DWORD size)
                  { return ::GetFinalPathNameByHandleW(file.get(), out, size, FILE_NAME_NORMALIZED); });
    if (!final.empty() || (::GetFileAttributesW(path.c_str()) & FILE_ATTRIBUTE_REPARSE_POINT))
        return final;
    return path;
}

// Opens a file or a folder that is there; disturbs nobody else who has it open.
HANDLE open(const std::wstring& path, DWORD access) noexcept
{
    return ::CreateFileW(path.c_str(), access, FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE, nullptr,
                         OPEN_EXISTING, FILE_FLAG_BACKUP_SEMANTICS, nullptr);
}

std::size_t nameStart(const std::wstring& path) noexcept
{
    const auto slash = path.find_last_of(L"\\/");
    return slash == path.npos ? 0 : slash + 1;
}

struct Target
{
    std::wstring path; // links followed
    bool exists = false;

    std::wstring folder() const { return path.substr(0, nameStart(path)); }
};

// What a write goes to, or the reason why it must not.
const char* findTarget(const wchar_t* path, Target& target)
{
    target.path = absolutePath(path);
    // Behind a colon is the name of a stream inside a file; nothing can take the place of one.
    if (target.path.empty() || target.path.find(L':', nameStart(target.path)) != target.path.npos)
        return "no file has that name";

    const File file(open(target.path, FILE_READ_ATTRIBUTES));
    const DWORD error = ::GetLastError();
    target.exists = static_cast<bool>(file);
    if (target.exists)
    {
        BY_HANDLE_FILE_INFORMATION information = {};
        if (::GetFileType(file.get()) != FILE_TYPE_DISK || !::GetFileInformationByHandle(file.get(), &information) ||
            (information.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY))
            return notAFile;
        if (information.dwFileAttributes & FILE_ATTRIBUTE_READONLY)
            return "the file is read-only";
        // What the exchange needs. Asked for beforehand because Wine's exchange, when it fails, leaves a file behind.
        const File exchangeable(open(target.path, GENERIC_READ | DELETE));
        if (!exchangeable)
            return reasonOf(::GetLastError(), cannotWrite);
        target.path = finalPath(file, target.path);
        return target.path.empty() ? cannotWrite : nullptr;
    }

    if (error != ERROR_FILE_NOT_FOUND)
        return reasonOf(error, cannotWrite);
    // A link that leads nowhere is there although no file is; it would be replaced by a file.
    if (::GetFileAttributesW(target.path.c_str()) != INVALID_FILE_ATTRIBUTES)
        return "the link leads to no file";
    const auto start = nameStart(target.path);
    if (start == target.path.size())
        return notAFile;
    const File folder(open(target.folder(), FILE_READ_ATTRIBUTES));
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

bool writeAll(HANDLE file, std::string_view bytes) noexcept
{
    while (!bytes.empty())
    {
        DWORD written = 0;
        // At most 64 MiB, so the size fits.
        if (!::WriteFile(file, bytes.data(), static_cast<DWORD>(bytes.size()), &written, nullptr) || written == 0)
            return false;
        bytes.remove_prefix(written);
    }
    return true;
}
} // namespace

const char* readFile(const OdChar* path, ByteBuffer& bytes)
{
    const std::wstring name = path && *path ? absolutePath(path) : std::wstring();
    if (name.empty())
        return "no file has that name";
    const File file(::CreateFileW(name.c_str(), GENERIC_READ, FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE,
                                  nullptr, OPEN_EXISTING, FILE_FLAG_SEQUENTIAL_SCAN, nullptr));
    if (!file)
        return reasonOf(::GetLastError(), "the file cannot be opened");
    LARGE_INTEGER size = {};
    if (::GetFileType(file.get()) != FILE_TYPE_DISK || !::GetFileSizeEx(file.get(), &size))
        return notAFile;
    if (static_cast<std::uint64_t>(size.QuadPart) > maxFileBytes)
        return "the file is too large";

    // One byte more than there should be, to see the end of the file.
    bytes = ByteBuffer(static_cast<std::size_t>(size.QuadPart) + 1);
    for (;;)
    {
        DWORD got = 0;
        if (!::ReadFile(file.get(), bytes.data() + bytes.size(), static_cast<DWORD>(bytes.capacity() - bytes.size()),
                        &got, nullptr))
            return "the file cannot be read";
        if (got == 0)
            return nullptr;
        bytes.setSize(bytes.size() + got);
        if (bytes.size() > maxFileBytes)
            return "the file is too large";
        if (bytes.size() == bytes.capacity())
            bytes.reserveMore(1); // it is growing while we read
    }
}

const char* replaceFile(const OdChar* path, std::string_view bytes)
{
    if (!path || !*path)
        return "no file has that name";
    Target target;
    if (const char* reason = findTarget(path, target))
        return reason;
    const std::wstring folder = target.folder();
    removeStaleFiles(folder);

    TempFile temp(folder);
    if (temp.file() && target.exists)
        temp.takeOverProperties(target.path);
    if (!temp.file() || !writeAll(temp.file().get(), bytes) || !::FlushFileBuffers(temp.file().get()) ||
        !temp.takePlaceOf(target.path, target.exists))
        return reasonOf(::GetLastError(), cannotWrite);
    return nullptr;
}
} // namespace pia
