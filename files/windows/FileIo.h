#pragma once

#include "files/ByteBuffer.h"

#include <windows.h>

#include <string>
#include <string_view>

// What reading and writing have in common.
namespace files
{
// A system error in plain English; otherwise for one that says nothing to a user.
const char* reasonOf(DWORD error, const char* otherwise) noexcept;

// Whether it may be over in a moment: another program has the file open.
bool isBusy(DWORD error) noexcept;

// Opens a file or a folder that is there; disturbs no other program that has it open. INVALID_HANDLE_VALUE with the
// last error when that fails, after two seconds when another program is in the way.
HANDLE openShared(const std::wstring& path, DWORD access, DWORD flags = FILE_FLAG_BACKUP_SEMANTICS) noexcept;

// The whole content of an open file. Null after success, otherwise the reason.
const char* readAll(HANDLE file, ByteBuffer& bytes);

bool writeAll(HANDLE file, std::string_view bytes) noexcept;

// Where in a path the name of the file begins.
std::size_t nameStart(const std::wstring& path) noexcept;
} // namespace files
