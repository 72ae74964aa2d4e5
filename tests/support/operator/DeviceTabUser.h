#pragma once

#include "GarmPC3Editor/Decisions/DeviceTree.h"
#include "tests/support/operator/SheetDriver.h"

#include <string>
#include <vector>

// The user of the device tab: a SheetDriver on a sheet whose second tab is on show. Entries are named by their kind.
class DeviceTabUser
{
public:
    // Selects the tab.
    DeviceTabUser(SheetDriver& user, HWND sheet);

    SheetDriver& user;
    const HWND sheet;
    const HWND tab;
    const HWND tree;

    // --- Tree ---

    // Null when there is no such entry.
    HTREEITEM item(GmDeviceEntry type) const;
    std::wstring label(GmDeviceEntry type) const { return labelOf(item(type)); }
    std::wstring labelOf(HTREEITEM item) const;
    bool isMarked(GmDeviceEntry type) const;
    std::vector<GmDeviceEntry> markedEntries() const;
    bool isExpanded(GmDeviceEntry type) const;
    // With image, children and so on filled in.
    TVITEMW details(HTREEITEM item) const;
    GmDeviceEntry typeOf(HTREEITEM item) const;
    HTREEITEM next(HTREEITEM item, UINT relation) const;
    // In the order of display, all entries taken as expanded.
    std::vector<HTREEITEM> items() const;
    std::vector<GmDeviceEntry> entries() const;

    // Also an entry that is out of sight.
    void select(GmDeviceEntry type) const;
    void selectNothing() const;

    // --- Pages ---

    std::vector<HWND> pages() const; // all that were made, the visible ones first as the Tab key finds them
    HWND shownPage() const;          // null when there is none
    HWND control(int id) const { return user.control(tab, id); }
    bool isUsable(int id) const { return ::isUsable(control(id)); }

    void click(int id) const { user.click(tab, id); }
    bool isChecked(int id) const { return user.send(control(id), BM_GETCHECK) == BST_CHECKED; }
    // Presses a key in a control that a person could use.
    void key(int id, WPARAM virtualKey) const;
    int sliderAt(int id) const { return static_cast<int>(user.send(control(id), TBM_GETPOS)); }
    int selectionOf(int id) const { return static_cast<int>(user.send(control(id), CB_GETCURSEL)); }

    void pressOk() const { user.press(sheet, IDOK); }
};
