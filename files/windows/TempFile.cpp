#include "files/windows/TempFile.h"

#include "files/Patience.h"
#include "files/TempName.h"
#include "files/windows/WineTools.h"

#include <algorithm>
#include <cstdint>
#include <cstring>
#include <memory>
#include <vector>

namespace files
{
namespace
{
// FileRenameInfoEx and its flags, which the headers define for newer systems only.
constexpr auto fileRenameInfoEx = static_cast<FILE_INFO_BY_HANDLE_CLASS>(22);
constexpr DWORD renameReplaces = 1;
constexpr DWORD renameWhileOpen = 2;

// Renames a file in one step, even if there is a file with that name.
bool rename(const std::wstring& path, const std::wstring& name)
{
    const File file(openShared(path, DELETE));
    if (!file)
        return false;
    const std::size_t nameBytes = name.size() * sizeof(wchar_t);
    // Counted in units that align the structure; all zero, with room for a terminator that is not counted.
    std::vector<std::uint64_t> block((sizeof(FILE_RENAME_INFO) + nameBytes) / sizeof(std::uint64_t) + 1);
    auto* information = reinterpret_cast<FILE_RENAME_INFO*>(block.data());
    const auto size = static_cast<DWORD>(block.size() * sizeof(std::uint64_t));
    information->FileNameLength = static_cast<DWORD>(nameBytes);
    std::memcpy(information->FileName, name.data(), nameBytes);

    // Newer systems can do it even while other programs have the replaced file open. The flags are where the plain form
    // has its single byte.
    const DWORD flags = renameReplaces | renameWhileOpen;
    std::memcpy(information, &flags, sizeof flags);
    if (::SetFileInformationByHandle(file.get(), fileRenameInfoEx, information, size))
        return true;
    const DWORD replaces = TRUE;
    std::memcpy(information, &replaces, sizeof replaces);
    return ::SetFileInformationByHandle(file.get(), FileRenameInfo, information, size);
}

// The access list; empty if it cannot be read.
std::vector<unsigned char> accessListOf(const File& file)
{
    DWORD needed = 0;
    ::GetKernelObjectSecurity(file.get(), DACL_SECURITY_INFORMATION, nullptr, 0, &needed);
    std::vector<unsigned char> list(needed);
    if (!::GetKernelObjectSecurity(file.get(), DACL_SECURITY_INFORMATION, list.data(), needed, &needed))
        list.clear();
    return list;
}

bool isMissing(const std::wstring& path) noexcept
{
    const DWORD before = ::GetLastError();
    const bool missing =
        ::GetFileAttributesW(path.c_str()) == INVALID_FILE_ATTRIBUTES && ::GetLastError() == ERROR_FILE_NOT_FOUND;
    ::SetLastError(before);
    return missing;
}

// Far past the end of any content, where it is in no one's way.
bool lock(const File& file) noexcept
{
    OVERLAPPED at = {};
    at.OffsetHigh = 1 << 30;
    return ::LockFileEx(file.get(), LOCKFILE_EXCLUSIVE_LOCK | LOCKFILE_FAIL_IMMEDIATELY, 0, 1, 0, &at);
}

std::uint64_t secondsOf(const FILETIME& time) noexcept
{
    constexpr std::uint64_t unitsPerSecond = 10'000'000;
    return ((std::uint64_t{time.dwHighDateTime} << 32) | time.dwLowDateTime) / unitsPerSecond;
}

void removeIfStale(const std::wstring& folder, const WIN32_FIND_DATAW& entry, std::uint64_t now)
{
    const std::wstring_view name(entry.cFileName);
    const bool ascii = std::all_of(name.begin(), name.end(), [](wchar_t c) { return c < 0x80; });
    if (!ascii || !isTempName(std::string(name.begin(), name.end())) ||
        secondsOf(entry.ftLastWriteTime) + staleSeconds > now)
        return;
    // Not shared: while the file is being written, no other program can open it.
    File file(::CreateFileW((folder + entry.cFileName).c_str(), GENERIC_WRITE | DELETE, 0, nullptr, OPEN_EXISTING,
                            FILE_FLAG_OPEN_REPARSE_POINT, nullptr));
    if (!file || !lock(file))
        return;
    file.close();
    ::DeleteFileW((folder + entry.cFileName).c_str());
}

std::wstring newTempPath(const std::wstring& folder)
{
    const std::string name = newTempName();
    return folder + std::wstring(name.begin(), name.end());
}

HANDLE openAlone(const std::wstring& path, DWORD how) noexcept
{
    return ::CreateFileW(path.c_str(), GENERIC_WRITE, 0, nullptr, how, FILE_ATTRIBUTE_NORMAL, nullptr);
}
} // namespace

TempFile::TempFile(const Target& target) : m_path(newTempPath(target.folder()))
{
    m_private = target.exists && wine::hasTools() && wine::makePrivate(m_path);
    m_file = File(openAlone(m_path, m_private ? OPEN_EXISTING : CREATE_NEW));
    if (!m_file)
    {
        if (!m_private)
            m_path.clear();
        return;
    }
    lock(m_file);
    if (target.exists && !m_private)
        takeOverProperties(target.path);
}

TempFile::~TempFile()
{
    const DWORD error = ::GetLastError();
    m_file.close();
    if (!m_path.empty())
        ::DeleteFileW(m_path.c_str());
    ::SetLastError(error);
}

void TempFile::takeOverProperties(const std::wstring& target)
{
    const File file(openShared(target, FILE_READ_ATTRIBUTES | READ_CONTROL));
    if (!file)
        return;
    // Opened for this alone: a share may let us write files but not set permissions. An identical list is left alone.
    const File guarded(openShared(m_path, READ_CONTROL | WRITE_DAC));
    std::vector<unsigned char> list = accessListOf(file);
    if (guarded && !list.empty() && list != accessListOf(guarded))
        ::SetKernelObjectSecurity(guarded.get(), DACL_SECURITY_INFORMATION, list.data());

    BY_HANDLE_FILE_INFORMATION information = {};
    if (!::GetFileInformationByHandle(file.get(), &information))
        return;
    constexpr DWORD kept =
        FILE_ATTRIBUTE_ARCHIVE | FILE_ATTRIBUTE_HIDDEN | FILE_ATTRIBUTE_SYSTEM | FILE_ATTRIBUTE_NOT_CONTENT_INDEXED;
    FILE_BASIC_INFO basic = {}; // zero: unchanged
    basic.FileAttributes = information.dwFileAttributes & kept;
    basic.CreationTime.LowPart = information.ftCreationTime.dwLowDateTime;
    basic.CreationTime.HighPart = static_cast<LONG>(information.ftCreationTime.dwHighDateTime);
    ::SetFileInformationByHandle(m_file.get(), FileBasicInfo, &basic, sizeof basic);
}

bool TempFile::takeOverRights(const Target& target)
{
    return !m_private || wine::giveRights(m_path, target.path);
}

const char* TempFile::takePlaceOf(const Target& target)
{
    Patience patience;
    do
    {
        if (rename(m_path, target.path) || (target.exists && exchangeOpen(target)))
        {
            m_path.clear();
            return nullptr;
        }
        if (m_path.empty())
            break; // the only copy, which must stay
    } while ((isBusy(::GetLastError()) || ::GetLastError() == ERROR_ACCESS_DENIED) && patience.again());
    // That we may replace the target was checked before, so the error means that another program has it open.
    const DWORD error = ::GetLastError();
    return reasonOf(target.exists && error == ERROR_ACCESS_DENIED ? ERROR_SHARING_VIOLATION : error, cannotWrite);
}

// For a target that other programs have open, where the system cannot replace such a file by a rename.
bool TempFile::exchangeOpen(const Target& target)
{
    if (wine::hasTools())
    {
        const DWORD error = ::GetLastError();
        const bool done = wine::rename(m_path, target.path);
        ::SetLastError(error);
        return done;
    }
    // There is a moment without a target.
    if (::ReplaceFileW(target.path.c_str(), m_path.c_str(), nullptr, REPLACEFILE_IGNORE_MERGE_ERRORS, nullptr, nullptr))
        return true;
    if (!isMissing(target.path))
        return false;
    if (::MoveFileExW(m_path.c_str(), target.path.c_str(), MOVEFILE_WRITE_THROUGH))
        return true;
    m_path.clear();
    return false;
}

bool TempFile::takeFreeName(const std::wstring& path) noexcept
{
    if (!::MoveFileExW(m_path.c_str(), path.c_str(), MOVEFILE_WRITE_THROUGH))
        return false;
    m_path.clear();
    return true;
}

void removeStaleFiles(const std::wstring& folder, const File& justMade)
{
    FILETIME now = {};
    if (!::GetFileTime(justMade.get(), nullptr, nullptr, &now))
        return;
    const std::wstring pattern = folder + std::wstring(tempNameStart.begin(), tempNameStart.end()) + L'*' +
                                 std::wstring(tempNameEnd.begin(), tempNameEnd.end());
    WIN32_FIND_DATAW entry = {};
    const auto close = [](HANDLE search) { ::FindClose(search); };
    const std::unique_ptr<void, decltype(close)> search(::FindFirstFileW(pattern.c_str(), &entry));
    if (search.get() == INVALID_HANDLE_VALUE)
        return;
    do
        removeIfStale(folder, entry, secondsOf(now));
    while (::FindNextFileW(search.get(), &entry));
}
} // namespace files
