#pragma once

#include "mfc/Mfc.h"
#include "win32/windows/SystemHandles.h"

// The description field. A dialog selects the whole text of an edit control that gets the focus, so the next key
// replaces it: right for a name, wrong for a text of several lines.
class DescriptionEdit : public CEdit
{
protected:
    LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override
    {
        const LRESULT result = CEdit::WindowProc(message, wParam, lParam);
        return message == WM_GETDLGCODE ? result & ~static_cast<LRESULT>(DLGC_HASSETSEL) : result;
    }
};

// Tooltips with the whole text of labels, for labels that shorten what does not fit. Labels need SS_NOTIFY to receive
// mouse messages.
class FullTextTips
{
public:
    // Takes the texts that the labels have now; call again when they change. A dialog with a new window gets new
    // tooltips; the old ones were destroyed with the old window.
    void setTexts(const CWnd& dialog, std::initializer_list<int> labels);

private:
    HWND m_tips = nullptr; // the system destroys it with the window that owns it
    HWND m_dialog = nullptr;
};

// The picture on a dialog's Help button (control 9), if there is one. This object owns it and so lives as long as the
// dialog's object.
class HelpButton
{
public:
    // Loads the picture from the current resources and puts it on the button, replacing the previous one.
    void setPicture(const CWnd& dialog);

private:
    IconHandle m_icon;
};
