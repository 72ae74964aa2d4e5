#pragma once

#include "kernel/OdString.h"

#include <optional>
#include <vector>

// Questions about the disk. Paths may be relative, on a share and of any length; links are followed. What cannot be
// looked at (no such thing, no right to see it, no path of this system) is nothing. These throw nothing but
// std::bad_alloc. Each platform has its own FileChecks.cpp.

// Folders and devices are none.
bool isRegularFile(const OdString& path);

bool isFolder(const OdString& path);

// Whether it is there and marked as not to be written.
bool isReadOnly(const OdString& path);

// The names of the regular files in a folder, in no particular order. Nothing when the folder cannot be read.
std::optional<std::vector<OdString>> filesIn(const OdString& folder);
