#pragma once

#include "kernel/OdString.h"

#include <optional>
#include <string>

// Why the module refused something. It answers only yes or no, so a program runs the same code once more, linked into
// itself, on the same file or printer, and makes a sentence of the fault that comes out: one line of UTF-8 without line
// end. Nothing when it works now.
namespace apps
{
std::optional<std::string> whyNotRead(const OdString& path);

// Of a configuration file; also when the file is not read at all.
std::optional<std::string> whyNoDevMode(const OdString& path);

// The printer that a file names, before reading binds it to another one; "" when the file is not read.
OdString storedPrinter(const OdString& path);

// Of a new configuration for a printer.
std::optional<std::string> whyNotCreated(const OdString& printer);
} // namespace apps
