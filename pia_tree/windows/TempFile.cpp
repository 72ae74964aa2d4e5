#include "pia_tree/windows/TempFile.h"

#include "pia_tree/TempName.h"

#include <cstdint>
#include <cstring>
#include <memory>
#include <vector>

namespace pia
{
namespace
{
// FileRenameInfoEx and its flags, which the headers know for newer systems only.
constexpr auto fileRenameInfoEx = static_cast<FILE_INFO_BY_HANDLE_CLASS>(22);
constexpr DWORD renameReplaces = 1;
constexpr DWORD renameWhileOpen = 2;

// Gives an open file another name, in one step also when a file of that name is there.
bool rename(const File& file, const std::wstring& name)
{
    const std::size_t nameBytes = name.size() * sizeof(wchar_t);
    // In units that align the structure; all zero, with room for a terminator that is not counted.
    std::vector<std::uint64_t> block((sizeof(FILE_RENAME_INFO) + nameBytes) / sizeof(std::uint64_t) + 1);
    auto* information = reinterpret_cast<FILE_RENAME_INFO*>(block.data());
    const auto size = static_cast<DWORD>(block.size() * sizeof(std::uint64_t));
    information->FileNameLength = static_cast<DWORD>(nameBytes);
    std::memcpy(information->FileName, name.data(), nameBytes);

    // Newer systems do it also while others have the replaced file open. The flags are where the plain form has its
    // one byte.
    const DWORD flags = renameReplaces | renameWhileOpen;
    std::memcpy(information, &flags, sizeof flags);
    if (::SetFileInformationByHandle(file.get(), fileRenameInfoEx, information, size))
        return true;
    const DWORD replaces = TRUE;
    std::memcpy(information, &replaces, sizeof replaces);
    return ::SetFileInformationByHandle(file.get(), FileRenameInfo, information, size);
}

HANDLE openShared(const std::wstring& path, DWORD access) noexcept
{
    return ::CreateFileW(path.c_str(), access, FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE, nullptr,
                         OPEN_EXISTING, 0, nullptr);
}

// The list of who may do what; empty when it cannot be had.
std::vector<unsigned char> accessListOf(const File& file)
{
    DWORD needed = 0;
    ::GetKernelObjectSecurity(file.get(), DACL_SECURITY_INFORMATION, nullptr, 0, &needed);
    std::vector<unsigned char> list(needed);
    if (!::GetKernelObjectSecurity(file.get(), DACL_SECURITY_INFORMATION, list.data(), needed, &needed))
        list.clear();
    return list;
}

bool isMissing(const wchar_t* path) noexcept
{
    const DWORD before = ::GetLastError();
    const bool missing =
        ::GetFileAttributesW(path) == INVALID_FILE_ATTRIBUTES && ::GetLastError() == ERROR_FILE_NOT_FOUND;
    ::SetLastError(before);
    return missing;
}

// Whether the process that wrote a file at that time is no more: its number is nobody's, or that of a younger process.
bool isGone(DWORD process, const FILETIME& written) noexcept
{
    const HANDLE handle = ::OpenProcess(SYNCHRONIZE | PROCESS_QUERY_LIMITED_INFORMATION, FALSE, process);
    if (!handle)
        return ::GetLastError() == ERROR_INVALID_PARAMETER;
    // Somebody may still hold a handle of a process that has ended.
    bool gone = ::WaitForSingleObject(handle, 0) == WAIT_OBJECT_0;
    FILETIME started = {};
    FILETIME unused = {};
    if (!gone && ::GetProcessTimes(handle, &started, &unused, &unused, &unused))
        gone = ::CompareFileTime(&written, &started) < 0;
    ::CloseHandle(handle);
    return gone;
}

// A file that is being written cannot be opened for ourselves alone. The process is asked for as well because of the
// moment in which a file is closed that takes an open target's place.
void removeIfStale(const std::wstring& folder, const WIN32_FIND_DATAW& entry)
{
    char name[MAX_PATH] = {};
    for (std::size_t i = 0; i + 1 < MAX_PATH && entry.cFileName[i]; ++i)
        name[i] = entry.cFileName[i] < 0x80 ? static_cast<char>(entry.cFileName[i]) : '?';
    const auto process = processOfTempName(name);
    if (!process || !isGone(*process, entry.ftLastWriteTime))
        return;
    const File removed(::CreateFileW((folder + entry.cFileName).c_str(), DELETE, 0, nullptr, OPEN_EXISTING,
                                     FILE_FLAG_DELETE_ON_CLOSE | FILE_FLAG_OPEN_REPARSE_POINT, nullptr));
}
} // namespace

TempFile::~TempFile()
{
    m_file.close();
    if (!m_path.empty())
        ::DeleteFileW(m_path.c_str());
}

HANDLE TempFile::create(const std::wstring& folder, std::wstring& path)
{
    for (;;)
    {
        const std::string name = nextTempName(::GetCurrentProcessId());
        path = folder;
        path.append(name.begin(), name.end());
        const HANDLE file =
            ::CreateFileW(path.c_str(), GENERIC_WRITE | DELETE, 0, nullptr, CREATE_NEW, FILE_ATTRIBUTE_NORMAL, nullptr);
        // A name is taken when a killed process had our number.
        if (file == INVALID_HANDLE_VALUE && ::GetLastError() == ERROR_FILE_EXISTS)
            continue;
        if (file == INVALID_HANDLE_VALUE)
            path.clear();
        return file;
    }
}

void TempFile::takeOverProperties(const std::wstring& target)
{
    const File file(openShared(target, FILE_READ_ATTRIBUTES | READ_CONTROL));
    if (!file)
        return;
    // Opened for that alone: a share may let us write files but not say who may use them. A list that is the same
    // already is left alone: Wine makes a mode of it and would add rights that nobody gave.
    const File guarded(openShared(m_path, READ_CONTROL | WRITE_DAC));
    std::vector<unsigned char> list = accessListOf(file);
    if (guarded && !list.empty() && list != accessListOf(guarded))
        ::SetKernelObjectSecurity(guarded.get(), DACL_SECURITY_INFORMATION, list.data());

    BY_HANDLE_FILE_INFORMATION information = {};
    if (!::GetFileInformationByHandle(file.get(), &information))
        return;
    constexpr DWORD kept =
        FILE_ATTRIBUTE_ARCHIVE | FILE_ATTRIBUTE_HIDDEN | FILE_ATTRIBUTE_SYSTEM | FILE_ATTRIBUTE_NOT_CONTENT_INDEXED;
    FILE_BASIC_INFO basic = {}; // zero: as it is
    basic.FileAttributes = information.dwFileAttributes & kept;
    basic.CreationTime.LowPart = information.ftCreationTime.dwLowDateTime;
    basic.CreationTime.HighPart = static_cast<LONG>(information.ftCreationTime.dwHighDateTime);
    ::SetFileInformationByHandle(m_file.get(), FileBasicInfo, &basic, sizeof basic);
}

bool TempFile::takePlaceOf(const std::wstring& target, bool targetExists)
{
    if (rename(m_file, target))
    {
        m_path.clear();
        // That the name reaches the disk too is all that is left, and not every file system can say.
        ::FlushFileBuffers(m_file.get());
        m_file.close();
        return true;
    }
    const DWORD error = ::GetLastError();
    m_file.close();
    ::SetLastError(error);
    return targetExists && exchangeClosed(target.c_str());
}

// For a target that others have open, where the system does not replace such a file in one step: this goes through a
// moment in which there is no target.
bool TempFile::exchangeClosed(const wchar_t* target) noexcept
{
    bool done = ::ReplaceFileW(target, m_path.c_str(), nullptr, REPLACEFILE_IGNORE_MERGE_ERRORS, nullptr, nullptr);
    const bool onlyCopy = !done && isMissing(target);
    if (onlyCopy)
        done = ::MoveFileExW(m_path.c_str(), target, MOVEFILE_WRITE_THROUGH);
    if (done || onlyCopy)
        m_path.clear();
    return done;
}

void removeStaleFiles(const std::wstring& folder)
{
    const std::wstring pattern = folder + std::wstring(tempNameStart.begin(), tempNameStart.end()) + L'*' +
                                 std::wstring(tempNameEnd.begin(), tempNameEnd.end());
    WIN32_FIND_DATAW entry = {};
    const auto close = [](HANDLE search) { ::FindClose(search); };
    const std::unique_ptr<void, decltype(close)> search(::FindFirstFileW(pattern.c_str(), &entry));
    if (search.get() == INVALID_HANDLE_VALUE)
        return;
    do
        removeIfStale(folder, entry);
    while (::FindNextFileW(search.get(), &entry));
}
} // namespace pia
