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
    bool isPrinter = false; // name is a Windows printer's, which gets a new configuration
    OdString paperName;     // to select in a configuration; "" leaves the one it has
};

struct EditAnswer
{
    std::string problem; // why the command could not be run, or left incomplete results; "" otherwise
    // Nothing also when the command ended before its editor: it then leaves no value at all and does not say why.
    std::optional<EditReport> report;
};

// Shows the editor and waits for its end. Nothing of an earlier run is left in the named values.
EditAnswer edit(const EditQuestion& question);
} // namespace plothost
