#include "mfc/CInvalidArgException.h"

void AfxThrowInvalidArgException()
{
    static CInvalidArgException exception;
    throw &exception;
}
