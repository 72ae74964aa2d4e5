#pragma once

#include <cstddef>
#include <vector>

// What this process holds of the system, to see whether something that should leave no trace does. The system's own
// counters return 0 under Wine, so these look into the tables themselves. Each throws std::runtime_error when its
// table is not where it is expected or does not see what is there.

// Handles of every kind.
std::size_t openSystemHandles();

// Allocations of address space that are the mapped views of files, libraries included.
std::size_t mappedViews();

// Fonts, brushes, bitmaps and the like.
std::size_t gdiObjects();

// Windows of a thread, hidden ones and children too.
std::size_t windowsOf(unsigned long thread);

// Windows of all threads (children, hidden and message-only ones too), menus, icons and cursors.
std::size_t userObjects();

std::size_t threads();

// Bytes in use, of all heaps of the process.
std::size_t heapBytes();

// Bytes of memory that belong to this process alone, and those of them and of the shared ones that are in real memory.
std::size_t privateBytes();
std::size_t workingSet();

struct ProcessCount
{
    const char* name;
    std::size_t value;
};

// All of the process, in a fixed order.
std::vector<ProcessCount> allProcessCounts();
