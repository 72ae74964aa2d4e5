#pragma once

#include "GarmPC3Editor/Decisions/GmTexts.h"
#include "win32/windows/SystemHandles.h"

// What the windows load from the library that is the current place of resources; during a command that is the language
// resource library.

GmTexts languageTexts();

// An icon for a square of that many pixels; null if the library does not have it.
IconHandle loadIcon(UINT id, int size);
