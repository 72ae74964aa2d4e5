#pragma once

#include "mfc/CImageList.h"
#include "mfc/CWnd.h"

// A tree of entries with texts and pictures. Functions that look up an entry return null if there is none; a call that
// the control refuses returns FALSE.
class CTreeCtrl : public CWnd
{
public:
    HTREEITEM InsertItem(const TVINSERTSTRUCTW& insert) const;
    HTREEITEM InsertItem(LPCWSTR text, HTREEITEM parent = TVI_ROOT, HTREEITEM after = TVI_LAST) const;
    HTREEITEM InsertItem(LPCWSTR text, int image, int selectedImage, HTREEITEM parent = TVI_ROOT,
                         HTREEITEM after = TVI_LAST) const;
    BOOL DeleteItem(HTREEITEM item) const;
    BOOL DeleteAllItems() const;

    UINT GetCount() const;
    HTREEITEM GetNextItem(HTREEITEM item, UINT code) const;
    HTREEITEM GetRootItem() const;
    HTREEITEM GetSelectedItem() const;
    HTREEITEM GetChildItem(HTREEITEM item) const;
    HTREEITEM GetNextSiblingItem(HTREEITEM item) const;
    HTREEITEM GetParentItem(HTREEITEM item) const;

    BOOL GetItem(TVITEMW& item) const;
    BOOL SetItem(const TVITEMW& item) const;
    // The complete text, however long; empty if there is no such entry.
    CString GetItemText(HTREEITEM item) const;
    BOOL SetItemText(HTREEITEM item, LPCWSTR text) const;
    DWORD_PTR GetItemData(HTREEITEM item) const;
    BOOL SetItemData(HTREEITEM item, DWORD_PTR data) const;
    // Only the bits in the mask.
    UINT GetItemState(HTREEITEM item, UINT mask) const;
    BOOL SetItemState(HTREEITEM item, UINT state, UINT mask) const;
    BOOL GetItemImage(HTREEITEM item, int& image, int& selectedImage) const;

    BOOL SelectItem(HTREEITEM item) const;
    BOOL Expand(HTREEITEM item, UINT code) const;

    // The caller keeps the list, which must live as long as the control shows it. Returns the previous one.
    HIMAGELIST SetImageList(HIMAGELIST list, int which) const;
    HIMAGELIST GetImageList(UINT which) const;
};
