#pragma once

#include "mfc/CWnd.h"

// A drop-down list. Indices start at 0; CB_ERR (-1) means none or failure, CB_ERRSPACE that memory ran out.
class CComboBox : public CWnd
{
public:
    int GetCount() const { return asInt(SendMessage(CB_GETCOUNT)); }
    int GetCurSel() const { return asInt(SendMessage(CB_GETCURSEL)); }
    // Sends no notification. -1 selects nothing, and returns CB_ERR although it worked.
    int SetCurSel(int index) const { return asInt(SendMessage(CB_SETCURSEL, asWord(index))); }

    int AddString(LPCWSTR text) const { return asInt(SendMessage(CB_ADDSTRING, 0, asParam(text))); }
    int InsertString(int index, LPCWSTR text) const
    {
        return asInt(SendMessage(CB_INSERTSTRING, asWord(index), asParam(text)));
    }
    int DeleteString(UINT index) const { return asInt(SendMessage(CB_DELETESTRING, index)); }
    void ResetContent() const { SendMessage(CB_RESETCONTENT); }

    // The search begins after the given entry, with -1 at the first, and wraps around; case does not count.
    int FindString(int after, LPCWSTR start) const
    {
        return asInt(SendMessage(CB_FINDSTRING, asWord(after), asParam(start)));
    }
    int FindStringExact(int after, LPCWSTR text) const
    {
        return asInt(SendMessage(CB_FINDSTRINGEXACT, asWord(after), asParam(text)));
    }
    int SelectString(int after, LPCWSTR start) const
    {
        return asInt(SendMessage(CB_SELECTSTRING, asWord(after), asParam(start)));
    }

    int GetLBTextLen(int index) const { return asInt(SendMessage(CB_GETLBTEXTLEN, asWord(index))); }
    // The buffer must be large enough for the text and a terminator.
    int GetLBText(int index, LPWSTR buffer) const
    {
        return asInt(SendMessage(CB_GETLBTEXT, asWord(index), reinterpret_cast<LPARAM>(buffer)));
    }
    // Empty if there is no such entry.
    void GetLBText(int index, CString& text) const;

    DWORD_PTR GetItemData(int index) const
    {
        return static_cast<DWORD_PTR>(SendMessage(CB_GETITEMDATA, asWord(index)));
    }
    int SetItemData(int index, DWORD_PTR data) const
    {
        return asInt(SendMessage(CB_SETITEMDATA, asWord(index), static_cast<LPARAM>(data)));
    }

private:
    static int asInt(LRESULT result) noexcept { return static_cast<int>(result); }
    static WPARAM asWord(int index) noexcept { return static_cast<WPARAM>(index); }
    static LPARAM asParam(LPCWSTR text) noexcept { return reinterpret_cast<LPARAM>(text); }
};
