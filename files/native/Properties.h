#pragma once

struct stat;

namespace files
{
// Gives a new file the permissions of another one: owner, group, mode, access list and extended attributes, and never
// more rights than the other has. path names the other file, with links resolved, and status is its state. False if
// something could not be set; the new file is then accessible to its owner only.
bool takeOverProperties(int file, const char* path, const struct stat& status);
} // namespace files
