#include "mfc/CComboBox.h"

void CComboBox::GetLBText(int index, CString& text) const
{
    text.Empty();
    const int length = GetLBTextLen(index);
    if (length == CB_ERR)
        return;
    const int copied = GetLBText(index, text.GetBuffer(length + 1));
    text.ReleaseBuffer(copied == CB_ERR ? 0 : copied);
}
