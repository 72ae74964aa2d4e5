#pragma once

#include "win32/Win32.h"

#include <string>

namespace modulebench
{
// Shows everything in the editor: its second tab, every entry of the tree there, and its first tab again, painted each
// time. Throws std::runtime_error unless all six pages of the tree were created.
void showAllPages(HWND sheet);

// The same with a bare sheet, where no code creates the pages of the tree: they are bare dialogs from the library.
void showAllBarePages(HWND sheet, HINSTANCE resources);

// The contents of the tree on the second tab, which must be the shown one: a line for each entry.
std::wstring textsOfTree(HWND sheet);
} // namespace modulebench
