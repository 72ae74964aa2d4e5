#pragma once

#include "kernel/OdString.h"

#include <vector>

// Search paths: folders with ";" between them. Entries without a text are no folders.
namespace FilePath
{
// The first folder of a search path, as it is written there; empty when there is none.
OdString GetFirstPath(const OdString& searchPath);

// All folders in their order.
std::vector<OdString> GetPaths(const OdString& searchPath);
} // namespace FilePath
