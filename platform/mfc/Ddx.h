#pragma once

#include "mfc/CDataExchange.h"
#include "mfc/CString.h"

// Exchange of one value with one control, for DoDataExchange. A control that the dialog does not have throws the
// invalid-argument exception.

// Attaches the object to the control at the first exchange; later ones do nothing.
void DDX_Control(CDataExchange* pDX, int id, CWnd& control);

// The control's text. A control that already has it is not touched, so an edit control keeps its modified flag, its
// selection and its undo.
void DDX_Text(CDataExchange* pDX, int id, CString& value);

// A number with at most 15 significant digits, displayed with ".". Accepted with "." or the user's own decimal sign,
// with spaces around it. Anything else shows the standard message and fails the exchange; the value is then unchanged.
void DDX_Text(CDataExchange* pDX, int id, double& value);

// The selected entry of a combo box; -1 for none.
void DDX_CBIndex(CDataExchange* pDX, int id, int& index);

// The checked button in the group of radio buttons that begins with this one, counted from 0; -1 for none.
void DDX_Radio(CDataExchange* pDX, int id, int& value);
