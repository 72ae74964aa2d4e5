#pragma once

#include <cstddef>

namespace editordriver
{
// What this process holds of the system, to see whether something that should leave no trace does. The system's own
// counters answer 0 under Wine, so these look into the tables behind them. Each throws std::runtime_error when its
// table is not where it is expected.

std::size_t systemHandles();
std::size_t gdiObjects();

// Windows of a thread, hidden ones and children too.
std::size_t windowsOf(unsigned long thread);
} // namespace editordriver
