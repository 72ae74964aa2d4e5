#pragma once

#include "kernel/OdString.h"

// What only the system knows about paths. Each platform has its own FullPath.cpp.

// The path from its root, a relative one from the current folder, without "." and ".." in it. A path on a share stays
// on the share. As it is when the system cannot tell, as for an empty path or one with a NUL in it.
OdString fullPath(const OdString& path);

// What stands between the parts of a path.
OdChar pathSeparator() noexcept;
