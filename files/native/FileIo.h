#pragma once

#include "files/ByteBuffer.h"

#include <string_view>

// What reading and writing have in common.
namespace files
{
inline constexpr auto cannotWrite = "the file cannot be written";

// A system error in plain English; otherwise is for one that would mean nothing to a user.
const char* reasonOf(int error, const char* otherwise) noexcept;

// The whole content of an open file. Returns null on success, otherwise the reason.
const char* readAll(int file, ByteBuffer& bytes);

bool writeAll(int file, std::string_view bytes) noexcept;
} // namespace files
