#pragma once

#include "kernel/OdString.h"

// Looks for files in the host's folders. Any thread may search; each search uses one search path from start to end.
namespace LocalSearch
{
// Finds a plotter configuration by the name that a user or a drawing uses.
//
//   1. A name with a folder or drive: the path itself, relative to the current folder.
//   2. Each folder of the host's search path for plotter configurations, in order, with the name or relative path
//      appended. Of a path with its own root (a drive, a share, a root folder) only the file name is looked for
//      there, because it may come from another machine.
//
// At each place the name is tried as given and then with ".pc3" appended. Only regular files count. Returns true and
// the full path of the first one found; otherwise false, and fullPath is untouched. Never throws: a name that cannot be
// looked for (empty, with a NUL in it, a device's, not expressible on this system) is not found.
bool SearchPC3File(const OdString& name, OdString& fullPath) noexcept;

// The same with a search path given by the caller.
bool SearchPC3File(const OdString& name, const OdString& searchPath, OdString& fullPath) noexcept;
} // namespace LocalSearch
