#pragma once

#include "files/ByteBuffer.h"

#include <windows.h>

#include <string>
#include <string_view>

// What reading and writing have in common.
namespace files
{
inline constexpr auto cannotWrite = "the file cannot be written";

// A system error in plain English; otherwise is for one that would mean nothing to a user.
const char* reasonOf(DWORD error, const char* otherwise) noexcept;

// Whether the error may go away in a moment, because another program has the file open.
bool isBusy(DWORD error) noexcept;

// Opens an existing file or folder without disturbing other programs that have it open. On failure returns
// INVALID_HANDLE_VALUE and sets the last error; if another program has the file open, after two seconds of retrying.
HANDLE openShared(const std::wstring& path, DWORD access, DWORD flags = FILE_FLAG_BACKUP_SEMANTICS) noexcept;

// The whole content of an open file. Returns null on success, otherwise the reason.
const char* readAll(HANDLE file, ByteBuffer& bytes);

bool writeAll(HANDLE file, std::string_view bytes) noexcept;

// The position in a path at which the file's name begins.
std::size_t nameStart(const std::wstring& path) noexcept;
} // namespace files
