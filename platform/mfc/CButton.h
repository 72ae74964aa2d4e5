#pragma once

#include "mfc/CWnd.h"

// A push button, check box or radio button. SetIcon returns the icon shown before; the button owns neither.
class CButton : public CWnd
{
public:
    int GetCheck() const { return static_cast<int>(SendMessage(BM_GETCHECK)); }
    void SetCheck(int check) const { SendMessage(BM_SETCHECK, static_cast<WPARAM>(check)); }
    HICON SetIcon(HICON icon) const
    {
        return reinterpret_cast<HICON>(SendMessage(BM_SETIMAGE, IMAGE_ICON, reinterpret_cast<LPARAM>(icon)));
    }
    HICON GetIcon() const { return reinterpret_cast<HICON>(SendMessage(BM_GETIMAGE, IMAGE_ICON)); }
};
