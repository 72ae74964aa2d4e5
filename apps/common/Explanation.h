#pragma once

#include "kernel/OdString.h"

#include <optional>
#include <string>

// Why the module refused something. The module itself only returns success or failure, so a program runs the same code
// again, linked into itself, on the same file or printer, and turns the fault into a sentence: one line of UTF-8
// without line end. Nothing if it works now.
namespace apps
{
std::optional<std::string> whyNotRead(const OdString& path);

// For a configuration file, even if it cannot be read at all.
std::optional<std::string> whyNoDevMode(const OdString& path);

// The printer that a file names, before reading binds it to another one; "" if the file cannot be read.
OdString storedPrinter(const OdString& path);

// For a new configuration for a printer.
std::optional<std::string> whyNotCreated(const OdString& printer);
} // namespace apps
