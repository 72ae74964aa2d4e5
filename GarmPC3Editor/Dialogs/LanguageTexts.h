#pragma once

#include "GarmPC3Editor/Decisions/GmTexts.h"

// The texts of the library that is the current place of resources when one is asked for: for the length of a command
// that is the language resource library.
GmTexts languageTexts();
