#pragma once

#include "win32/Win32.h"

namespace modulebench
{
// Shows everything that the editor has: its second tab, every entry of the tree there, and its first tab again, painted
// each time. Throws std::runtime_error unless all six pages of the tree have been made.
void showAllPages(HWND sheet);

// The same with a bare sheet, where nobody makes the pages of the tree: they come as bare dialogs from the library.
void showAllBarePages(HWND sheet, HINSTANCE resources);
} // namespace modulebench
