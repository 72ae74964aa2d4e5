#pragma once

#include "mfc/CWnd.h"

// A push button, check box or radio button. The setters return the previous picture; no button owns its picture.
class CButton : public CWnd
{
public:
    int GetCheck() const { return static_cast<int>(SendMessage(BM_GETCHECK)); }
    void SetCheck(int check) const { SendMessage(BM_SETCHECK, static_cast<WPARAM>(check)); }
    UINT GetState() const { return static_cast<UINT>(SendMessage(BM_GETSTATE)); }
    HICON SetIcon(HICON icon) const
    {
        return reinterpret_cast<HICON>(SendMessage(BM_SETIMAGE, IMAGE_ICON, reinterpret_cast<LPARAM>(icon)));
    }
    HICON GetIcon() const { return reinterpret_cast<HICON>(SendMessage(BM_GETIMAGE, IMAGE_ICON)); }
    HBITMAP SetBitmap(HBITMAP bitmap) const
    {
        return reinterpret_cast<HBITMAP>(SendMessage(BM_SETIMAGE, IMAGE_BITMAP, reinterpret_cast<LPARAM>(bitmap)));
    }
    HBITMAP GetBitmap() const { return reinterpret_cast<HBITMAP>(SendMessage(BM_GETIMAGE, IMAGE_BITMAP)); }
};
