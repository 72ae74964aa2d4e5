#include "mfc/CTreeCtrl.h"

#include <cwchar>
#include <vector>

HTREEITEM CTreeCtrl::InsertItem(const TVINSERTSTRUCTW& insert) const
{
    return reinterpret_cast<HTREEITEM>(SendMessage(TVM_INSERTITEMW, 0, reinterpret_cast<LPARAM>(&insert)));
}

HTREEITEM CTreeCtrl::InsertItem(LPCWSTR text, HTREEITEM parent, HTREEITEM after) const
{
    TVINSERTSTRUCTW insert = {};
    insert.hParent = parent;
    insert.hInsertAfter = after;
    insert.item.mask = TVIF_TEXT;
    insert.item.pszText = const_cast<LPWSTR>(text);
    return InsertItem(insert);
}

HTREEITEM CTreeCtrl::InsertItem(LPCWSTR text, int image, int selectedImage, HTREEITEM parent, HTREEITEM after) const
{
    TVINSERTSTRUCTW insert = {};
    insert.hParent = parent;
    insert.hInsertAfter = after;
    insert.item.mask = TVIF_TEXT | TVIF_IMAGE | TVIF_SELECTEDIMAGE;
    insert.item.pszText = const_cast<LPWSTR>(text);
    insert.item.iImage = image;
    insert.item.iSelectedImage = selectedImage;
    return InsertItem(insert);
}

BOOL CTreeCtrl::DeleteItem(HTREEITEM item) const
{
    return static_cast<BOOL>(SendMessage(TVM_DELETEITEM, 0, reinterpret_cast<LPARAM>(item)));
}

BOOL CTreeCtrl::DeleteAllItems() const
{
    return DeleteItem(TVI_ROOT);
}

UINT CTreeCtrl::GetCount() const
{
    return static_cast<UINT>(SendMessage(TVM_GETCOUNT));
}

HTREEITEM CTreeCtrl::GetNextItem(HTREEITEM item, UINT code) const
{
    return reinterpret_cast<HTREEITEM>(SendMessage(TVM_GETNEXTITEM, code, reinterpret_cast<LPARAM>(item)));
}

HTREEITEM CTreeCtrl::GetRootItem() const
{
    return GetNextItem(nullptr, TVGN_ROOT);
}

HTREEITEM CTreeCtrl::GetSelectedItem() const
{
    return GetNextItem(nullptr, TVGN_CARET);
}

HTREEITEM CTreeCtrl::GetChildItem(HTREEITEM item) const
{
    return GetNextItem(item, TVGN_CHILD);
}

HTREEITEM CTreeCtrl::GetNextSiblingItem(HTREEITEM item) const
{
    return GetNextItem(item, TVGN_NEXT);
}

HTREEITEM CTreeCtrl::GetParentItem(HTREEITEM item) const
{
    return GetNextItem(item, TVGN_PARENT);
}

BOOL CTreeCtrl::GetItem(TVITEMW& item) const
{
    return static_cast<BOOL>(SendMessage(TVM_GETITEMW, 0, reinterpret_cast<LPARAM>(&item)));
}

BOOL CTreeCtrl::SetItem(const TVITEMW& item) const
{
    return static_cast<BOOL>(SendMessage(TVM_SETITEMW, 0, reinterpret_cast<LPARAM>(&item)));
}

CString CTreeCtrl::GetItemText(HTREEITEM item) const
{
    // The control does not say how long the text is, and cuts it to the buffer.
    std::vector<WCHAR> buffer(256);
    for (;;)
    {
        TVITEMW read = {};
        read.mask = TVIF_HANDLE | TVIF_TEXT;
        read.hItem = item;
        read.pszText = buffer.data();
        read.cchTextMax = static_cast<int>(buffer.size());
        if (!GetItem(read))
            return CString();
        // The pointer may have been changed to the control's own text, which is complete.
        const bool isOwnText = read.pszText != buffer.data();
        if (isOwnText || std::wcslen(read.pszText) + 1 < buffer.size())
            return CString(read.pszText);
        buffer.assign(buffer.size() * 2, WCHAR());
    }
}

BOOL CTreeCtrl::SetItemText(HTREEITEM item, LPCWSTR text) const
{
    TVITEMW write = {};
    write.mask = TVIF_HANDLE | TVIF_TEXT;
    write.hItem = item;
    write.pszText = const_cast<LPWSTR>(text);
    return SetItem(write);
}

DWORD_PTR CTreeCtrl::GetItemData(HTREEITEM item) const
{
    TVITEMW read = {};
    read.mask = TVIF_HANDLE | TVIF_PARAM;
    read.hItem = item;
    return GetItem(read) ? static_cast<DWORD_PTR>(read.lParam) : 0;
}

BOOL CTreeCtrl::SetItemData(HTREEITEM item, DWORD_PTR data) const
{
    TVITEMW write = {};
    write.mask = TVIF_HANDLE | TVIF_PARAM;
    write.hItem = item;
    write.lParam = static_cast<LPARAM>(data);
    return SetItem(write);
}

UINT CTreeCtrl::GetItemState(HTREEITEM item, UINT mask) const
{
    TVITEMW read = {};
    read.mask = TVIF_HANDLE | TVIF_STATE;
    read.hItem = item;
    read.stateMask = mask;
    return GetItem(read) ? read.state & mask : 0;
}

BOOL CTreeCtrl::SetItemState(HTREEITEM item, UINT state, UINT mask) const
{
    TVITEMW write = {};
    write.mask = TVIF_HANDLE | TVIF_STATE;
    write.hItem = item;
    write.state = state;
    write.stateMask = mask;
    return SetItem(write);
}

BOOL CTreeCtrl::GetItemImage(HTREEITEM item, int& image, int& selectedImage) const
{
    TVITEMW read = {};
    read.mask = TVIF_HANDLE | TVIF_IMAGE | TVIF_SELECTEDIMAGE;
    read.hItem = item;
    if (!GetItem(read))
        return FALSE;
    image = read.iImage;
    selectedImage = read.iSelectedImage;
    return TRUE;
}

BOOL CTreeCtrl::SelectItem(HTREEITEM item) const
{
    return static_cast<BOOL>(SendMessage(TVM_SELECTITEM, TVGN_CARET, reinterpret_cast<LPARAM>(item)));
}

BOOL CTreeCtrl::Expand(HTREEITEM item, UINT code) const
{
    return static_cast<BOOL>(SendMessage(TVM_EXPAND, code, reinterpret_cast<LPARAM>(item)));
}

HIMAGELIST CTreeCtrl::SetImageList(HIMAGELIST list, int which) const
{
    return reinterpret_cast<HIMAGELIST>(
        SendMessage(TVM_SETIMAGELIST, static_cast<WPARAM>(which), reinterpret_cast<LPARAM>(list)));
}

HIMAGELIST CTreeCtrl::GetImageList(UINT which) const
{
    return reinterpret_cast<HIMAGELIST>(SendMessage(TVM_GETIMAGELIST, which));
}
