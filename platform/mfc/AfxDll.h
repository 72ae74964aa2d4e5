#pragma once

#include "win32/Win32.h"

// What a DLL's entry point does with its application object. False refuses the load: InitInstance returned FALSE or
// threw. ExitInstance has then already run.
bool AfxDllProcessAttach(HINSTANCE hInstance) noexcept;

// Runs ExitInstance if the attach succeeded, and only once, however often the loader and the C runtime call this.
void AfxDllProcessDetach() noexcept;
