#pragma once

#include "files/ByteBuffer.h"
#include "kernel/OdChar.h"

#include <cstddef>
#include <string_view>

// The two things a configuration needs from the disk. Each platform has its own FileAccess.cpp.
//
// Both return null on success, otherwise the reason in plain English. A null or empty path is refused. They throw only
// std::bad_alloc, and then the disk is unchanged.
namespace files
{
// Larger files are neither read nor written. Far above any configuration in the field.
constexpr std::size_t maxFileBytes = std::size_t{64} << 20;

// Reads a whole file, up to the largest size of a configuration. Folders, devices and pipes are refused immediately. A
// file that another program has open exclusively is retried for two seconds.
const char* readFile(const OdChar* path, ByteBuffer& bytes);

// Creates a file or replaces its content in one step: the bytes are written to a temporary file beside it, flushed to
// disk, and then put in its place. On any failure the old file is intact and the temporary one is deleted.
//
// A symbolic link is followed and a read-only file is refused. Permissions are kept: owner, group, mode, access list,
// extended attributes. A file with several names (hard links), or with properties that a new file cannot be given, is
// rewritten in place while the new content is kept beside it. A file that another program has open is retried for two
// seconds. Old temporary files that no program holds are removed.
const char* replaceFile(const OdChar* path, std::string_view bytes);
} // namespace files
