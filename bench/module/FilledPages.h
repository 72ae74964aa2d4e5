#pragma once

#include "win32/Win32.h"

#include <prsht.h>

namespace modulebench
{
// Dialog procedures that fill the editor's two pages with what the editor shows there, each with only the system calls
// that this takes. The page's lParam is the handle of the resource library.
INT_PTR CALLBACK fillGeneralPage(HWND page, UINT message, WPARAM first, LPARAM second) noexcept;
INT_PTR CALLBACK fillDevicePage(HWND page, UINT message, WPARAM first, LPARAM second) noexcept;
} // namespace modulebench
