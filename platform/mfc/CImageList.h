#pragma once

#include "win32/Win32.h"

#include <commctrl.h>

#include <utility>

// A list of pictures of one size. It owns them and destroys them with the object unless detached.
class CImageList
{
public:
    CImageList() = default;
    CImageList(const CImageList&) = delete;
    CImageList& operator=(const CImageList&) = delete;
    ~CImageList() { DeleteImageList(); }

    HIMAGELIST m_hImageList = nullptr;
    operator HIMAGELIST() const noexcept { return m_hImageList; }
    HIMAGELIST GetSafeHandle() const noexcept { return m_hImageList; }

    // FALSE if the object already has a list or the system refuses.
    BOOL Create(int width, int height, UINT flags, int initial, int grow)
    {
        return Attach(m_hImageList ? nullptr : ::ImageList_Create(width, height, flags, initial, grow));
    }
    // FALSE if the object already has a list, and for null.
    BOOL Attach(HIMAGELIST list) noexcept
    {
        if (m_hImageList || !list)
            return FALSE;
        m_hImageList = list;
        return TRUE;
    }
    HIMAGELIST Detach() noexcept { return std::exchange(m_hImageList, nullptr); }
    BOOL DeleteImageList() noexcept
    {
        const HIMAGELIST list = Detach();
        return list ? ::ImageList_Destroy(list) : FALSE;
    }

    int GetImageCount() const { return ::ImageList_GetImageCount(m_hImageList); }
    // Adds a copy of the icon and returns its index; -1 on failure. The caller keeps the icon.
    int Add(HICON icon) const { return ::ImageList_ReplaceIcon(m_hImageList, -1, icon); }
    // Makes a picture the overlay with that number, 1 to 4.
    BOOL SetOverlayImage(int image, int overlay) const
    {
        return ::ImageList_SetOverlayImage(m_hImageList, image, overlay);
    }
    // CLR_NONE draws transparently. Returns the previous colour.
    COLORREF SetBkColor(COLORREF colour) const { return ::ImageList_SetBkColor(m_hImageList, colour); }
};
