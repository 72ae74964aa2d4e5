#pragma once

#include "win32/Win32.h"

#include <commctrl.h>

#include <utility>

// A list of pictures of one size, which it owns: gone with the object unless detached.
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

    // FALSE when the object has a list already, or the system refuses.
    BOOL Create(int width, int height, UINT flags, int initial, int grow)
    {
        return Attach(m_hImageList ? nullptr : ::ImageList_Create(width, height, flags, initial, grow));
    }
    // FALSE when the object has a list already, and for null.
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
    // The index of the new picture, a copy; -1 when it fails. The icon stays the caller's.
    int Add(HICON icon) const { return ::ImageList_ReplaceIcon(m_hImageList, -1, icon); }
    // Makes a picture the overlay of that number, 1 to 4.
    BOOL SetOverlayImage(int image, int overlay) const
    {
        return ::ImageList_SetOverlayImage(m_hImageList, image, overlay);
    }
    // CLR_NONE draws transparently. Answers the colour before.
    COLORREF SetBkColor(COLORREF colour) const { return ::ImageList_SetBkColor(m_hImageList, colour); }
};
