#pragma once

#include "kernel/OdString.h"
#include "win32/Win32.h"

#include <string>
#include <vector>

// The system calls that cannot be done without, in the module's order and with buffers of the sizes that the system
// asks for; nothing of ours is in them. What they answer is not used. Each throws std::runtime_error when a call fails.
namespace modulebench
{
// Of PC3GETDEVMODE for a configuration that is bound to the printer: the file's bytes are read, the printer is opened
// and asked for its driver's name, opened again twice and asked for its own device mode and for its papers' codes and
// names.
void bareCallsOfCommand(const OdString& file, const OdString& printer);

// Of opening the editor on it: the file's bytes, the driver's name and the port.
void bareCallsOfEditor(const OdString& file, const OdString& printer);

// Of the list on its first page.
std::vector<std::wstring> namesOfPrinters();

// bareCallsOfCommand on a thread of its own, which posts the message when it is through.
void bareCheck(const OdString& file, const OdString& printer, HWND window, UINT message);
} // namespace modulebench
