#pragma once

#include "mfc/CWnd.h"

// A text field.
class CEdit : public CWnd
{
public:
    BOOL GetModify() const { return static_cast<BOOL>(SendMessage(EM_GETMODIFY)); }
    void SetModify(BOOL modified = TRUE) const { SendMessage(EM_SETMODIFY, static_cast<WPARAM>(modified)); }
    void LimitText(int units = 0) const { SendMessage(EM_LIMITTEXT, static_cast<WPARAM>(units)); }
    void SetSel(int start, int end) const { SendMessage(EM_SETSEL, static_cast<WPARAM>(start), end); }
    void GetSel(int& start, int& end) const
    {
        DWORD from = 0;
        DWORD to = 0;
        SendMessage(EM_GETSEL, reinterpret_cast<WPARAM>(&from), reinterpret_cast<LPARAM>(&to));
        start = static_cast<int>(from);
        end = static_cast<int>(to);
    }
    void ReplaceSel(LPCWSTR text, BOOL canUndo = FALSE) const
    {
        SendMessage(EM_REPLACESEL, static_cast<WPARAM>(canUndo), reinterpret_cast<LPARAM>(text));
    }
    BOOL SetReadOnly(BOOL readOnly = TRUE) const
    {
        return static_cast<BOOL>(SendMessage(EM_SETREADONLY, static_cast<WPARAM>(readOnly)));
    }
};
