#pragma once

#include "kernel/OdString.h"
#include "win32/Win32.h"

#include <string>
#include <vector>

// The indispensable system calls, in the module's order and with buffers of the sizes that the system asks for; none of
// our code is in them. Their results are not used. Each function throws std::runtime_error when a call fails.
namespace modulebench
{
// For PC3GETDEVMODE on a configuration that is bound to the printer: reads the file's bytes, opens the printer and asks
// for its driver's name, opens it twice more and asks for its own device mode and for its papers' codes and names.
void bareCallsOfCommand(const OdString& file, const OdString& printer);

// For opening the editor on it: the file's bytes, the driver's name and the port.
void bareCallsOfEditor(const OdString& file, const OdString& printer);

// For the list on its first page.
std::vector<std::wstring> namesOfPrinters();

// Runs bareCallsOfCommand on its own thread, which posts the message at the end.
void bareCheck(const OdString& file, const OdString& printer, HWND window, UINT message);
} // namespace modulebench
