#pragma once

#include "kernel/OdString.h"

#include <vector>

// Search paths: folders separated by ";". Empty entries are skipped.
namespace FilePath
{
// The first folder of a search path, exactly as written; empty if there is none.
OdString GetFirstPath(const OdString& searchPath);

// All folders, in their order.
std::vector<OdString> GetPaths(const OdString& searchPath);
} // namespace FilePath
