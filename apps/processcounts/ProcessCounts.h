#pragma once

#include <cstddef>

// What this process holds of the system, to see whether something that should leave no trace does. The system's own
// counters answer 0 under Wine, so these look into the tables behind them. Each throws std::runtime_error when its
// table is not where it is expected or does not see what is there.

// Handles of every kind.
std::size_t openSystemHandles();

// Allocations of address space that are the mapped views of files, libraries included.
std::size_t mappedViews();

// Fonts, brushes, bitmaps and the like.
std::size_t gdiObjects();

// Windows of a thread, hidden ones and children too.
std::size_t windowsOf(unsigned long thread);
