#pragma once

#include "win32/Win32.h"

#include <commctrl.h>
#include <functional>
#include <string>
#include <vector>

// What can be seen of windows, from any thread of their process.

std::wstring classOf(HWND window);
std::wstring textOf(HWND window);
// The texts of a combo box.
std::vector<std::wstring> entriesOf(HWND combo);

// Whether a person could use the window: shown and enabled, like everything around it.
bool isUsable(HWND window);

// All visible windows inside, at any depth.
std::vector<HWND> visibleWindowsIn(HWND window);
// A control at any depth: the visible one with that number, the window's own first; null when none is visible.
HWND visibleControl(HWND window, int id);

// Of a tree, with TVGN_CHILD and the like.
HTREEITEM nextItem(HWND tree, UINT relation, HTREEITEM item = nullptr);
struct TreeItem
{
    HTREEITEM item;
    int depth;
};
// In the order of display, all taken as expanded.
std::vector<TreeItem> itemsOf(HWND tree);
// The text and the details that mask asks for.
struct TreeItemDetails
{
    TVITEMW details = {};
    std::wstring label;
};
TreeItemDetails detailsOf(HWND tree, HTREEITEM item);

// The field of the name in a Save dialog of the newer or the older kind; null in any other window.
HWND fileNameField(HWND dialog);
