#pragma once

#include "kernel/OdString.h"
#include "plothost/Reports.h"

#include <optional>
#include <string>

// The host's side of the command "PC3EDIT".
namespace plothost
{
struct EditQuestion
{
    OdString name;
    bool isPrinter = false; // name is a Windows printer, which gets a new configuration
    OdString paperName;     // to select in a configuration; "" leaves the one it has
};

struct EditAnswer
{
    std::string problem; // why the command could not be run, or left incomplete results; "" otherwise
    // Also empty if the command ended before its editor: it then leaves no values and no reason.
    std::optional<EditReport> report;
};

// Shows the editor and waits until it closes. Clears the named values of earlier runs first.
EditAnswer edit(const EditQuestion& question);
} // namespace plothost
