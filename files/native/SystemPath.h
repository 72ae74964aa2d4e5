#pragma once

#include "kernel/OdString.h"

#include <optional>
#include <string>

// The path as the system wants it, in UTF-8. Nothing for a text that is no path here: empty, with a NUL, at which the
// system would stop reading, or with an unpaired surrogate, which UTF-8 cannot express.
std::optional<std::string> systemPath(const OdString& path);
