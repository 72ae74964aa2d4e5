#pragma once

#include <windows.h>

namespace plothost
{
// Loads the print spooler's client and makes it list the printers, for which it contacts the print server. Returns
// false if that takes longer than that many milliseconds: then a thread hangs in the client, perhaps holding the
// system's loader lock, and nothing that loads or unloads a library may be called any more.
bool printServerAnswers(DWORD milliseconds);

// Ends the process in that state, with this status.
[[noreturn]] void endWithoutPrintServer(int status) noexcept;
} // namespace plothost
