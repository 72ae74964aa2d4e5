#pragma once

#include "GarmPC3Editor/Decisions/GmTexts.h"
#include "win32/windows/SystemHandles.h"

// What the windows take from the library that is the current place of resources when they ask: for the length of a
// command that is the language resource library.

GmTexts languageTexts();

// An icon, drawn for a square of that many pixels; none when the library does not have it.
IconHandle loadIcon(UINT id, int size);
