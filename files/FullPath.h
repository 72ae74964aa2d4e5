#pragma once

#include "kernel/OdString.h"

// What only the system knows about paths. Each platform has its own FullPath.cpp.

// The absolute path, with relative ones taken from the current folder, and without "." and "..". A path on a share
// stays on the share. Returned unchanged if the system cannot resolve it, as for an empty path or one with a NUL in it.
OdString fullPath(const OdString& path);

// What separates the parts of a path.
OdChar pathSeparator() noexcept;
