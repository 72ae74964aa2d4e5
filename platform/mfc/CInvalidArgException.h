#pragma once

#include "mfc/CException.h"

// An invalid argument: an index outside its range, a control that is not in the dialog.
class CInvalidArgException : public CException
{
};

// Throws the one CInvalidArgException, as a CInvalidArgException*.
[[noreturn]] void AfxThrowInvalidArgException();
