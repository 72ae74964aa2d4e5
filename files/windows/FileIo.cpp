#include "files/windows/FileIo.h"

#include "files/FileAccess.h"
#include "files/Patience.h"

#include <cstdint>

namespace files
{
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
        return "that is not a valid file name";
    case ERROR_FILENAME_EXCED_RANGE:
        return "the name of the file is too long";
    case ERROR_DISK_FULL:
    case ERROR_HANDLE_DISK_FULL:
        return "there is not enough room on the disk";
    default:
        return otherwise;
    }
}

bool isBusy(DWORD error) noexcept
{
    return error == ERROR_SHARING_VIOLATION || error == ERROR_LOCK_VIOLATION || error == ERROR_USER_MAPPED_FILE;
}

HANDLE openShared(const std::wstring& path, DWORD access, DWORD flags) noexcept
{
    Patience patience;
    for (;;)
    {
        const HANDLE file = ::CreateFileW(path.c_str(), access, FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE,
                                          nullptr, OPEN_EXISTING, flags, nullptr);
        const DWORD error = ::GetLastError();
        if (file != INVALID_HANDLE_VALUE || !isBusy(error) || !patience.again())
        {
            ::SetLastError(error);
            return file;
        }
    }
}

const char* readAll(HANDLE file, ByteBuffer& bytes)
{
    LARGE_INTEGER size = {};
    if (::GetFileType(file) != FILE_TYPE_DISK || !::GetFileSizeEx(file, &size))
        return "that is a folder or a device, not a file";
    if (static_cast<std::uint64_t>(size.QuadPart) > maxFileBytes)
        return "the file is too large";

    // One byte more than expected, to see the end of the file.
    bytes = ByteBuffer(static_cast<std::size_t>(size.QuadPart) + 1);
    for (;;)
    {
        DWORD got = 0;
        if (!::ReadFile(file, bytes.data() + bytes.size(), static_cast<DWORD>(bytes.capacity() - bytes.size()), &got,
                        nullptr))
            return "the file cannot be read";
        if (got == 0)
            return nullptr;
        bytes.setSize(bytes.size() + got);
        if (bytes.size() > maxFileBytes)
            return "the file is too large";
        if (bytes.size() == bytes.capacity())
            bytes.reserveMore(1); // it grows while we read
    }
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

std::size_t nameStart(const std::wstring& path) noexcept
{
    const auto slash = path.find_last_of(L"\\/");
    return slash == path.npos ? 0 : slash + 1;
}
} // namespace files
