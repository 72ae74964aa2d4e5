#pragma once

#include "win32/Win32.h"

#include <prsht.h>

namespace modulebench
{
// Dialog procedures that put into the editor's two pages what the editor shows there, each with nothing but the system
// calls that this takes. The lParam of the page is the handle of the resource library.
INT_PTR CALLBACK fillGeneralPage(HWND page, UINT message, WPARAM first, LPARAM second) noexcept;
INT_PTR CALLBACK fillDevicePage(HWND page, UINT message, WPARAM first, LPARAM second) noexcept;
} // namespace modulebench
