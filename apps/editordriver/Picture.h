#pragma once

#include "win32/Win32.h"

#include <filesystem>

namespace editordriver
{
// Writes the window as it looks on the screen, frame and title included, into a bitmap file (24 bits per pixel), after
// it has painted everything that it still had to. Call it on the window's thread. Throws std::runtime_error.
void savePicture(HWND window, const std::filesystem::path& file);
} // namespace editordriver
