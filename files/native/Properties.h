#pragma once

struct stat;

namespace files
{
// Gives a new file who may use another one: its owner, group, mode, access list and extended attributes, never more
// rights than it has. path names the other file, without links, and status is its state. False when something could not
// be given; the new file is then for its owner alone.
bool takeOverProperties(int file, const char* path, const struct stat& status);
} // namespace files
