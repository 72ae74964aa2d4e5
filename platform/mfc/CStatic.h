#pragma once

#include "mfc/CWnd.h"

// A label, frame or picture. SetIcon returns the icon shown before; the label owns neither.
class CStatic : public CWnd
{
public:
    HICON SetIcon(HICON icon) const
    {
        return reinterpret_cast<HICON>(SendMessage(STM_SETICON, reinterpret_cast<WPARAM>(icon)));
    }
    HICON GetIcon() const { return reinterpret_cast<HICON>(SendMessage(STM_GETICON)); }
};
