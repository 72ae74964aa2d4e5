#pragma once

#include "kernel/OdString.h"

#include <vector>

// Language tags such as "en", "de-AT" or "zh-Hant-TW".

// Whether a text is a language tag: parts of 1 to 8 ASCII letters and digits with "-" between them, the first one of 2
// letters or more, 35 units at most. Tags name folders, so nothing else ever reaches the file system.
bool isLanguageTag(OdStringView tag) noexcept;

// The tag and its more general ones, the best first: "de-AT" gives "de-AT", "de". A part of one unit goes together with
// the one behind it. Empty for a text that is no tag.
std::vector<OdString> languageFallbacks(OdStringView tag);

// Full path of the language library of a module: folder TAG beside the module's file, for the first tag of the
// fallbacks that has one; in it the module's name without extension followed by "Res.dll". Empty when there is none.
// Throws nothing but std::bad_alloc.
OdString findLanguageLibrary(const OdString& moduleFile, OdStringView tag);
