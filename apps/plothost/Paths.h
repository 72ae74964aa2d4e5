#pragma once

#include "kernel/OdString.h"
#include "plothost/Reports.h"

#include <optional>
#include <vector>

// Paths relative to the current folder. Nothing here throws for an unknown path.
namespace plothost
{
// The folders of a search path as absolute paths, without duplicates, joined with ";".
OdString absoluteSearchPath(const OdString& searchPath);

// The search path to use: the typed one, else the environment's, else the current folder. An empty one is ignored.
OdString chosenSearchPath(const std::optional<OdString>& typed, const OdString& environment);

// The configurations of a folder, by name. Nothing if the folder cannot be read.
std::optional<std::vector<ListReport::Configuration>> configurationsIn(const OdString& folder);

// Finds a configuration named on the command line: relative to the current folder, else on the host's search path.
// Returns false if there is none.
bool findConfiguration(const OdString& name, OdString& path);

// Why findConfiguration failed, in one line of UTF-8.
std::string whyNotFound(const OdString& name, const OdString& searchPath);

// Why a file could not be written there, in one line of UTF-8. reason is the writer's; a clearer one that is found here
// takes precedence.
std::string whyNotWritten(const OdString& path, const std::string& reason = {});
} // namespace plothost
