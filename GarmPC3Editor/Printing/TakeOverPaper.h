#pragma once

#include "win32/Win32.h"

class DevModeView;
class GmMediaNode;
class GmPrinterInfo;

// Takes the paper of a device mode over: its name, and the bounds from the device context when the name changed or the
// media has no usable bounds. Sets modified then, and leaves it alone otherwise. Another size under the same name does
// not bring new bounds.
//
// False, with nothing changed, for a code of the system's own (below 256) that the printer does not list.
bool takeOverPaper(GmMediaNode& media, const DevModeView& dm, GmPrinterInfo& printer, HDC dc, bool& modified);
