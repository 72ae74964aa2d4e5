#pragma once

#include "mfc/Mfc.h"

// Tooltips with the whole text of labels, for labels that shorten what does not fit. Labels need SS_NOTIFY, or the
// mouse does not find them.
class FullTextTips
{
public:
    // Takes the texts that the labels have now; call again when they change. A dialog whose window is new gets new
    // tooltips; the old ones went with the old window.
    void setTexts(const CWnd& dialog, std::initializer_list<int> labels);

private:
    HWND m_tips = nullptr; // the system destroys it with the window that owns it
    HWND m_dialog = nullptr;
};
