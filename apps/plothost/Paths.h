#pragma once

#include "kernel/OdString.h"
#include "plothost/Reports.h"

#include <optional>
#include <vector>

// Paths as the caller means them: relative to the current folder. Nothing here throws for a path that the system does
// not know.
namespace plothost
{
// The folders of a search path from the root, each once, joined again with ";".
OdString absoluteSearchPath(const OdString& searchPath);

// The search path to use: what was typed, else the environment's, else the current folder. An empty one counts as none.
OdString chosenSearchPath(const std::optional<OdString>& typed, const OdString& environment);

// The configurations of a folder, by name. Nothing when the folder cannot be read.
std::optional<std::vector<ListReport::Configuration>> configurationsIn(const OdString& folder);

// Finds a configuration that was named on the command line: as a path from the current folder, else on the host's
// search path. False when there is none.
bool findConfiguration(const OdString& name, OdString& path);

// Why findConfiguration found none, in one line of UTF-8.
std::string whyNotFound(const OdString& name, const OdString& searchPath);

// Why a file could not be written there, in one line of UTF-8. reason is what the writer said; what can be seen here is
// plainer and goes before it.
std::string whyNotWritten(const OdString& path, const std::string& reason = {});
} // namespace plothost
