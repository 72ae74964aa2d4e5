#pragma once

#include "kernel/OdString.h"
#include "win32/Win32.h"

namespace GmString
{
// The text with that number in a library's string table, of any length. The fallback is returned if there is no library
// or no such number, and for an empty text, which the system cannot tell from a missing one.
OdString loadString(UINT id, const OdChar* fallback, HINSTANCE library);
} // namespace GmString
