#pragma once

#include <windows.h>

namespace plothost
{
// Brings the print spooler's client into the process and has it list the printers, for which it asks the print server.
// False when that is not done after so many milliseconds: then a thread hangs in the client, maybe while it holds the
// system's loader lock, and nothing that loads or unloads a library may be called any more.
bool printServerAnswers(DWORD milliseconds);

// Ends the process in that state, with this status.
[[noreturn]] void endWithoutPrintServer(int status) noexcept;
} // namespace plothost
