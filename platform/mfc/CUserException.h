#pragma once

#include "mfc/CException.h"

// Ends an operation after the user was told why, as a failed data exchange does.
class CUserException : public CException
{
};

// Throws the one CUserException, as a CUserException*.
[[noreturn]] void AfxThrowUserException();
