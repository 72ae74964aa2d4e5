#pragma once

#include "files/native/TempFile.h"

#include <string>
#include <string_view>

namespace files
{
// Gives a file new bytes without giving it another owner, other names or other attributes: for what cannot be had for a
// file that takes its place. temp holds the bytes already, on the disk, and they are kept beside the target under its
// name and ".new" until the target has them: a kill in between leaves them there whole. When it fails the old content
// is put back; where even that fails the ".new" file stays.
//
// path names the target, without links. Null after success, otherwise the reason.
const char* rewriteInPlace(int folder, const std::string& path, TempFile& temp, std::string_view bytes);
} // namespace files
