#pragma once

#include "kernel/OdString.h"

#include <vector>

// Language tags such as "en", "de-AT" or "zh-Hant-TW".

// Whether a text is a language tag: parts of 1 to 8 ASCII letters and digits separated by "-", the first with at least
// 2 letters, at most 35 units in all. Tags name folders, so nothing else may reach the file system.
bool isLanguageTag(OdStringView tag) noexcept;

// The tag followed by its more general ones: "de-AT" yields "de-AT", "de". A part of one unit is dropped together with
// the one after it. Empty for a text that is not a tag.
std::vector<OdString> languageFallbacks(OdStringView tag);

// Full path of a module's language library: the folder TAG beside the module's file, for the first of the fallbacks
// that has one, and in it the module's name without extension followed by "Res.dll". Empty if there is none. Throws
// only std::bad_alloc.
OdString findLanguageLibrary(const OdString& moduleFile, OdStringView tag);
