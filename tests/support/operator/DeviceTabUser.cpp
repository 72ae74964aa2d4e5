#include "tests/support/operator/DeviceTabUser.h"

#include "resources/Resource.h"

#include <prsht.h>

#include <algorithm>
#include <stdexcept>

namespace
{
HWND shownTab(SheetDriver& user, HWND sheet)
{
    user.selectTab(sheet, 1);
    return user.page(sheet);
}
} // namespace

DeviceTabUser::DeviceTabUser(SheetDriver& driver, HWND sheetWindow)
    : user(driver), sheet(sheetWindow), tab(shownTab(driver, sheetWindow)), tree(driver.control(tab, IDC_TREE))
{
}

HTREEITEM DeviceTabUser::next(HTREEITEM item, UINT relation) const
{
    return nextItem(tree, relation, item);
}

std::vector<HTREEITEM> DeviceTabUser::items() const
{
    std::vector<HTREEITEM> all;
    for (const TreeItem& entry : itemsOf(tree))
        all.push_back(entry.item);
    return all;
}

TVITEMW DeviceTabUser::details(HTREEITEM item) const
{
    return detailsOf(tree, item).details;
}

GmDeviceEntry DeviceTabUser::typeOf(HTREEITEM item) const
{
    return static_cast<GmDeviceEntry>(details(item).lParam);
}

std::vector<GmDeviceEntry> DeviceTabUser::entries() const
{
    std::vector<GmDeviceEntry> types;
    for (const HTREEITEM item : items())
        types.push_back(typeOf(item));
    return types;
}

HTREEITEM DeviceTabUser::item(GmDeviceEntry type) const
{
    for (const HTREEITEM item : items())
        if (typeOf(item) == type)
            return item;
    return nullptr;
}

std::wstring DeviceTabUser::labelOf(HTREEITEM item) const
{
    return detailsOf(tree, item).label;
}

bool DeviceTabUser::isMarked(GmDeviceEntry type) const
{
    return (details(item(type)).state & TVIS_OVERLAYMASK) == INDEXTOOVERLAYMASK(1);
}

std::vector<GmDeviceEntry> DeviceTabUser::markedEntries() const
{
    std::vector<GmDeviceEntry> types = entries();
    std::erase_if(types, [this](GmDeviceEntry type) { return !isMarked(type); });
    return types;
}

bool DeviceTabUser::isExpanded(GmDeviceEntry type) const
{
    return (details(item(type)).state & TVIS_EXPANDED) != 0;
}

void DeviceTabUser::select(GmDeviceEntry type) const
{
    const HTREEITEM target = item(type);
    if (!target || !user.send(tree, TVM_SELECTITEM, TVGN_CARET, reinterpret_cast<LPARAM>(target)))
        throw std::runtime_error("the entry cannot be selected");
}

void DeviceTabUser::selectNothing() const
{
    user.send(tree, TVM_SELECTITEM, TVGN_CARET, 0);
}

std::vector<HWND> DeviceTabUser::pages() const
{
    std::vector<HWND> found;
    for (HWND child = ::GetWindow(tab, GW_CHILD); child; child = ::GetWindow(child, GW_HWNDNEXT))
    {
        if (classOf(child) == L"#32770")
            found.push_back(child);
    }
    return found;
}

HWND DeviceTabUser::shownPage() const
{
    HWND shown = nullptr;
    for (const HWND page : pages())
        if (::IsWindowVisible(page))
        {
            if (shown)
                throw std::runtime_error("two pages are on show");
            shown = page;
        }
    return shown;
}

void DeviceTabUser::key(int id, WPARAM virtualKey) const
{
    const HWND target = control(id);
    if (!::isUsable(target))
        throw std::runtime_error("a key in a control that cannot be used");
    user.send(target, WM_KEYDOWN, virtualKey, 1);
    user.send(target, WM_KEYUP, virtualKey, 1);
}
