#include "mfc/CUserException.h"

void AfxThrowUserException()
{
    static CUserException exception;
    throw &exception;
}
