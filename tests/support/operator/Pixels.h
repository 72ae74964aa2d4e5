#pragma once

#include "win32/Win32.h"

#include <vector>

// What a picture shows, so that two handles can be compared; empty for what is none.
std::vector<BYTE> pixels(HBITMAP bitmap);
// Of the icon's colours.
std::vector<BYTE> pixels(HICON icon);
