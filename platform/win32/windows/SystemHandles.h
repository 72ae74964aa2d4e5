#pragma once

#include "win32/UniqueHandle.h"

// The owners of what Windows gives out. Printers and device contexts, which portable code uses too, have theirs in
// spooler/Handles.h.
using BitmapHandle = UniqueHandle<HBITMAP, &::DeleteObject>;
using FontHandle = UniqueHandle<HFONT, &::DeleteObject>;
using HookHandle = UniqueHandle<HHOOK, &::UnhookWindowsHookEx>;
using IconHandle = UniqueHandle<HICON, &::DestroyIcon>;
using KernelHandle = UniqueHandle<HANDLE, &::CloseHandle>; // a file, an event, a thread, a process
using LibraryHandle = UniqueHandle<HMODULE, &::FreeLibrary>;
using MenuHandle = UniqueHandle<HMENU, &::DestroyMenu>;
using PenHandle = UniqueHandle<HPEN, &::DeleteObject>;
using RegistryKey = UniqueHandle<HKEY, &::RegCloseKey>;
using WindowHandle = UniqueHandle<HWND, &::DestroyWindow>;
