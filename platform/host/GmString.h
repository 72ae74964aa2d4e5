#pragma once

#include "kernel/OdString.h"
#include "win32/Win32.h"

namespace GmString
{
// The text of that number in the string table of a library, of any length. The fallback where there is none: without a
// library, without such a number, and for an empty text, which the system cannot tell from a missing one.
OdString loadString(UINT id, const OdChar* fallback, HINSTANCE library);
} // namespace GmString
