#pragma once

#include "files/ByteBuffer.h"
#include "kernel/OdChar.h"

#include <cstddef>
#include <string_view>

// The two things a configuration needs of the disk. Each platform has its own FileAccess.cpp.
//
// Both answer null after success, otherwise the reason in plain English. A null or empty path is refused. What they
// throw is std::bad_alloc, and then the disk is as it was.
namespace files
{
// A larger file is refused, and none is written. Far above any configuration in the field.
constexpr std::size_t maxFileBytes = std::size_t{64} << 20;

// Reads a whole file, at most as large as a configuration may be. Folders, devices and pipes are refused without
// waiting for them; a file that another program has for itself is tried again for two seconds.
const char* readFile(const OdChar* path, ByteBuffer& bytes);

// Replaces the content of a file, or makes it, in one step: the bytes go into a temporary file beside it, are flushed
// to the disk, and then take its place. On any failure the old file is intact and the temporary one is gone.
//
// A symbolic link is followed, a read-only file is refused, and who may use the file stays: owner, group, mode, access
// list, extended attributes. A file with other names (hard links), or with properties that cannot be given to a new
// file, is rewritten in place while the new content is kept beside it. A file that another program has open is tried
// again for two seconds. Old temporary files that no program holds are removed.
const char* replaceFile(const OdChar* path, std::string_view bytes);
} // namespace files
