#pragma once

#include "files/native/TempFile.h"

#include <string>
#include <string_view>

namespace files
{
// Writes new bytes into a file without changing its owner, names or attributes, for files that cannot be replaced by a
// new one. temp already has the bytes on disk; they are kept beside the target as its name plus ".new" until it has
// been rewritten, so a kill in between leaves them there complete. On failure the old content is restored; if even that
// fails, the ".new" file stays.
//
// path names the target, with links resolved. Returns null on success, otherwise the reason.
const char* rewriteInPlace(int folder, const std::string& path, TempFile& temp, std::string_view bytes);
} // namespace files
