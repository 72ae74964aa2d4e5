#pragma once

#include "win32/Win32.h"

// What a DLL's entry point does with its application object. False refuses the load: InitInstance answered FALSE or
// threw. ExitInstance has then run already.
bool AfxDllProcessAttach(HINSTANCE hInstance) noexcept;

// Runs ExitInstance when the attach succeeded; once, whatever the loader and the C runtime call.
void AfxDllProcessDetach() noexcept;
