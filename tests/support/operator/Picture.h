#pragma once

#include "kernel/OdString.h"
#include "win32/Win32.h"

namespace editordriver
{
// Writes the window as it looks on the screen, frame and title included, into a bitmap file (24 bits per pixel), after
// it has painted everything that it still had to. Call it on the window's thread. Throws std::runtime_error.
void savePicture(HWND window, const OdString& file);
} // namespace editordriver
