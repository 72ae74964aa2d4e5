#pragma once

#include "kernel/OdString.h"

#include <optional>
#include <vector>

// Questions about the disk. Paths may be relative, on a share and of any length; links are followed. Something that
// cannot be examined (it does not exist, access is denied, the path is not valid on this system) counts as missing.
// These throw only std::bad_alloc. Each platform has its own FileChecks.cpp.

// Not for folders and devices.
bool isRegularFile(const OdString& path);

bool isFolder(const OdString& path);

// Whether it exists and is marked read-only.
bool isReadOnly(const OdString& path);

// The names of the regular files in a folder, in no particular order. Empty if the folder cannot be read.
std::optional<std::vector<OdString>> filesIn(const OdString& folder);
