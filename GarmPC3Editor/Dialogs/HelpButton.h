#pragma once

#include "GarmPC3Editor/Dialogs/Icons.h"
#include "mfc/Mfc.h"

// The picture on a dialog's Help button, when it has such a button (control 9). It belongs to this object, which
// therefore lives as long as the dialog's object.
class HelpButton
{
public:
    // Loads the picture from the current resources and puts it on the button, in place of the one before.
    void setPicture(const CWnd& dialog);

private:
    IconHandle m_icon;
};
