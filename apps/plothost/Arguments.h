#pragma once

#include "plothost/Request.h"

#include <optional>
#include <string>
#include <vector>

namespace plothost
{
// Either a request, or what to print and the status to end with (help, version, wrong usage).
struct ParsedArguments
{
    std::optional<Request> request;
    ExitStatus status = exitYes;
    std::string output; // for standard output
    std::string error;  // for standard error
};

// Parses a command line without the program's own name. Never throws because of its content.
ParsedArguments parseArguments(const std::vector<OdString>& arguments);
} // namespace plothost
