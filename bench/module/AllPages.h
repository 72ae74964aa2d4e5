#pragma once

#include "win32/Win32.h"

#include <string>

namespace modulebench
{
// Shows everything that the editor has: its second tab, every entry of the tree there, and its first tab again, painted
// each time. Throws std::runtime_error unless all six pages of the tree have been made.
void showAllPages(HWND sheet);

// The same with a bare sheet, where nobody makes the pages of the tree: they come as bare dialogs from the library.
void showAllBarePages(HWND sheet, HINSTANCE resources);

// What stands in the tree of the second tab, which must be the one that shows: a line for each entry.
std::wstring textsOfTree(HWND sheet);
} // namespace modulebench
