#include "tests/support/operator/WindowTools.h"

#include <stdexcept>

namespace
{
// The numbers are the system's: of the newer dialog and of the older one.
constexpr int fileNameFields[] = {1152, 1148};
constexpr std::size_t longestLabel = 4096;

LRESULT send(HWND window, UINT message, WPARAM first = 0, LPARAM second = 0)
{
    return ::SendMessageW(window, message, first, second);
}

// length is what the window says and fill copies at most that much, with the end.
template <class Fill>
std::wstring filled(LRESULT length, Fill fill)
{
    std::wstring text(static_cast<std::size_t>(length) + 1, L'\0');
    text.resize(static_cast<std::size_t>(fill(text.size(), reinterpret_cast<LPARAM>(text.data()))));
    return text;
}

void addItems(HWND tree, HTREEITEM item, int depth, std::vector<TreeItem>& items)
{
    for (; item; item = nextItem(tree, TVGN_NEXT, item))
    {
        items.push_back({item, depth});
        addItems(tree, nextItem(tree, TVGN_CHILD, item), depth + 1, items);
    }
}
} // namespace

std::wstring classOf(HWND window)
{
    WCHAR name[64] = {};
    ::GetClassNameW(window, name, 64);
    return name;
}

std::wstring textOf(HWND window)
{
    return filled(send(window, WM_GETTEXTLENGTH),
                  [window](std::size_t size, LPARAM text) { return send(window, WM_GETTEXT, size, text); });
}

std::vector<std::wstring> entriesOf(HWND combo)
{
    std::vector<std::wstring> texts;
    const auto count = static_cast<WPARAM>(send(combo, CB_GETCOUNT));
    for (WPARAM i = 0; i < count; ++i)
        texts.push_back(filled(send(combo, CB_GETLBTEXTLEN, i),
                               [combo, i](std::size_t, LPARAM text) { return send(combo, CB_GETLBTEXT, i, text); }));
    return texts;
}

bool isUsable(HWND window)
{
    if (!::IsWindowVisible(window))
        return false;
    for (HWND w = window; w; w = ::GetAncestor(w, GA_PARENT))
        if (!::IsWindowEnabled(w))
            return false;
    return true;
}

std::vector<HWND> visibleWindowsIn(HWND window)
{
    std::vector<HWND> found;
    ::EnumChildWindows(
        window,
        [](HWND child, LPARAM parameter) -> BOOL
        {
            if (::IsWindowVisible(child))
                reinterpret_cast<std::vector<HWND>*>(parameter)->push_back(child);
            return TRUE;
        },
        reinterpret_cast<LPARAM>(&found));
    return found;
}

HWND visibleControl(HWND window, int id)
{
    // A list of files inside a Save dialog has the number of its OK.
    if (const HWND own = ::GetDlgItem(window, id); own && ::IsWindowVisible(own))
        return own;
    for (const HWND child : visibleWindowsIn(window))
        if (::GetDlgCtrlID(child) == id)
            return child;
    return nullptr;
}

HTREEITEM nextItem(HWND tree, UINT relation, HTREEITEM item)
{
    return reinterpret_cast<HTREEITEM>(send(tree, TVM_GETNEXTITEM, relation, reinterpret_cast<LPARAM>(item)));
}

std::vector<TreeItem> itemsOf(HWND tree)
{
    std::vector<TreeItem> items;
    addItems(tree, nextItem(tree, TVGN_ROOT), 0, items);
    return items;
}

TreeItemDetails detailsOf(HWND tree, HTREEITEM item)
{
    std::wstring text(longestLabel, L'\0');
    TreeItemDetails result;
    result.details.mask =
        TVIF_HANDLE | TVIF_PARAM | TVIF_IMAGE | TVIF_SELECTEDIMAGE | TVIF_CHILDREN | TVIF_STATE | TVIF_TEXT;
    result.details.hItem = item;
    result.details.stateMask = TVIS_OVERLAYMASK | TVIS_EXPANDED | TVIS_SELECTED;
    result.details.pszText = text.data();
    result.details.cchTextMax = static_cast<int>(text.size());
    if (!send(tree, TVM_GETITEMW, 0, reinterpret_cast<LPARAM>(&result.details)))
        throw std::runtime_error("the tree has no such entry");
    result.label = result.details.pszText;
    result.details.pszText = nullptr;
    return result;
}

HWND fileNameField(HWND dialog)
{
    for (const int id : fileNameFields)
        if (const HWND field = visibleControl(dialog, id))
            return field;
    return nullptr;
}
