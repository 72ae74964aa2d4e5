#pragma once

#include "mfc/Mfc.h"

// The field of the description. A dialog selects the whole text of an edit control that gets the focus, and then one
// key replaces it: right for a name, wrong for a text of several lines that nobody asked to type anew.
class DescriptionEdit : public CEdit
{
protected:
    LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override
    {
        const LRESULT result = CEdit::WindowProc(message, wParam, lParam);
        return message == WM_GETDLGCODE ? result & ~static_cast<LRESULT>(DLGC_HASSETSEL) : result;
    }
};
