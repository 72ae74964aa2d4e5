#pragma once

#include "win32/Win32.h"

#include <functional>

namespace modulebench
{
// Runs show, which shows a property sheet modally on this thread. As soon as the sheet's message loop runs, use is
// called with the sheet, and afterwards its Cancel is pressed. The owner is active before, as it is in a host. Throws
// std::runtime_error when no sheet came, and what use throws.
void withSheet(HWND owner, const std::function<void()>& show, const std::function<void(HWND)>& use);

// A visible window for sheets to belong to.
HWND createOwner();

// Paints all that the window and its children still have to.
void paint(HWND window);

// As a click on the tab does it.
void showTab(HWND sheet, int index);
HWND shownPage(HWND sheet);
} // namespace modulebench
