#pragma once

#include "kernel/OdString.h"
#include "win32/Win32.h"

// What a background check posts: wParam 1 when a printer was determined and 0 otherwise, lParam 0.
inline constexpr UINT printerCheckedMessage = WM_USER + 101;

// Determines the printer of a device name (not empty) on a thread of its own and posts printerCheckedMessage to the
// window: exactly once per call, even if the thread cannot be started or memory runs out. Returns at once. The check
// has its own copy of the name; nothing cancels it, and checks may end in any order.
void startBackgroundCheck(const OdString& deviceName, HWND window) noexcept;

// Runs work(context) on a thread of its own that is never joined. The module stays loaded while it runs, even if the
// host releases it. Returns false if the thread cannot be started: work is then not called and the caller keeps
// context.
bool startModuleThread(void (*work)(void* context) noexcept, void* context) noexcept;
