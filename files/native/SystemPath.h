#pragma once

#include "kernel/OdString.h"

#include <optional>
#include <string>

// The path as the system expects it, in UTF-8. Nothing for a text that is not a path here: an empty one, one with a
// NUL, where the system would stop reading, or one with an unpaired surrogate, which UTF-8 cannot express.
std::optional<std::string> systemPath(const OdString& path);
