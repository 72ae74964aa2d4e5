#pragma once

#include <cstddef>

// What this process holds of the system, to see whether something that should leave no trace does.

// Handles of every kind.
std::size_t openSystemHandles();

// Allocations of address space that are the mapped views of files, libraries included.
std::size_t mappedViews();

// Fonts, brushes, bitmaps and the like in the table that the system shares with the process; GetGuiResources answers 0
// under Wine.
std::size_t gdiObjects();
