#pragma once

#include "kernel/OdString.h"

// Looks for files in the host's folders. Any thread may ask: one search sees one search path from start to end.
namespace LocalSearch
{
// Finds a plotter configuration by the name a user or a drawing gives.
//
//   1. A name with a folder (or drive): the path as it is, a relative one from the current folder.
//   2. Every folder of the host's plotter-configuration search path in its order, with the name, or the relative path,
//      behind it. Of a path with a place of its own (a drive, a share, a root) only the file name is looked for there:
//      it may come from another machine.
//
// At each place first the name as given, then with ".pc3" behind it. Only regular files count. True and the full path
// of the first one found; false otherwise, fullPath then stays as it was. Never throws: a name that cannot be looked
// for (empty, with a NUL in it, a device's, not expressible on this system) is not found.
bool SearchPC3File(const OdString& name, OdString& fullPath) noexcept;

// The same on a search path of one's own.
bool SearchPC3File(const OdString& name, const OdString& searchPath, OdString& fullPath) noexcept;
} // namespace LocalSearch
