#pragma once

#include "win32/windows/SystemHandles.h"

#include <functional>

namespace modulebench
{
// Runs show, which shows a property sheet modally on this thread. As soon as the sheet's message loop runs, use is
// called with the sheet; then its Cancel button is pressed. The owner is active beforehand, as it is in a host. Throws
// std::runtime_error if no sheet was shown, and passes on what use throws.
void withSheet(HWND owner, const std::function<void()>& show, const std::function<void(HWND)>& use);

// A visible window for sheets to belong to.
WindowHandle createOwner();

// Paints everything that the window and its children still have to paint.
void paint(HWND window);

// Just as a click on the tab does.
void showTab(HWND sheet, int index);
HWND shownPage(HWND sheet);
} // namespace modulebench
